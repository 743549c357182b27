"""Opens the files that tessara writes for office programs with independent readers and compares every cell and paragraph.

    check_office.py TESSARA_CLI OFFICE_FILES

What is expected was worked out by hand from the rules of the conversion.
"""

import hashlib
import os
import resource
import subprocess
import sys
import tempfile
import unittest
import zipfile
from xml.etree import ElementTree

import docx
import openpyxl
from docx.enum.section import WD_ORIENT
from docx.enum.text import WD_TAB_ALIGNMENT

TESSARA_CLI, OFFICE_FILES = sys.argv[1:3]

RECORDS = ["1 34 Bern", "2 41 Köln", "2 28 Bern", "9 55 Köln", "2 19 ", "1 62 Oslo"]


def data_file():
    """Six people: SEX with labels and the missing value 9, AGE, CITY."""
    lines = ["6 3 Tessara data||", "9^^^^^^||", "Sex of respondent|Age in years|", "||", "1=Male||", "2=Female||"]
    lines += ["||"] * 9
    lines += ["SEX|AGE|CITY"] + [record.replace(" ", "|") for record in RECORDS]
    return "".join(line.replace("|", "\x01").replace("^", "|") + "\r\n" for line in lines).encode("cp1252")


# A report of Frequencies with a rule above the table and one below it.
FREQUENCIES = [
    "Frequencies",
    "",
    "Variable: SEX     Sex of respondent",
    "",
    "Value                       Count       Percent      Cumulative",
    "-" * 65,
    "Male                            2        40.00          40.00",
    "Female                          3        60.00         100.00",
    "-" * 65,
    "                  Total         5",
    "                Missing         1",
    "",
    "",
    "",
    "",
    "",
    "",
]


class Office(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = cls.temporary.name
        subprocess.run([OFFICE_FILES, cls.folder], check=True)
        with open(cls.path("people.dcs"), "wb") as file:
            file.write(data_file())

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    @classmethod
    def path(cls, name):
        return os.path.join(cls.folder, name)

    def run_script(self, *lines, status=0, **options):
        with open(self.path("script.txt"), "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")
        run = subprocess.run([TESSARA_CLI, "--script", "script.txt"], cwd=self.folder, capture_output=True, text=True,
                             **options)
        self.assertEqual(run.returncode, status, run.stderr)
        return run.stderr

    def cells(self, name, sheet=0):
        book = openpyxl.load_workbook(self.path(name))
        return [list(row) for row in book.worksheets[sheet].iter_rows(values_only=True)]

    def paragraphs(self, name):
        return [paragraph.text for paragraph in docx.Document(self.path(name)).paragraphs]

    def digest(self, name):
        with open(self.path(name), "rb") as file:
            return hashlib.sha256(file.read()).hexdigest()


class Log(Office):
    def test_the_log_as_a_document(self):
        self.run_script("open people.dcs", "frequencies SEX", "word log.docx")
        document = docx.Document(self.path("log.docx"))
        # A page break reads as a line end; the mark stood alone in its line.
        self.assertEqual([paragraph.text for paragraph in document.paragraphs], FREQUENCIES + ["\n", "", "", ""])
        self.assertEqual(document.styles["Normal"].font.name, "Courier New")
        self.assertEqual(document.sections[0].orientation, WD_ORIENT.PORTRAIT)
        breaks = document.element.body.findall(".//{*}br")
        self.assertEqual([list(mark.attrib.values()) for mark in breaks], [["page"]])

    def test_the_log_as_a_spreadsheet(self):
        self.run_script("open people.dcs", "frequencies SEX", "excel log.xlsx")
        none = [None] * 4
        self.assertEqual(self.cells("log.xlsx"), [
            ["Frequencies", None, None, None],
            none,
            ["Variable: SEX", "Sex of respondent", None, None],
            none,
            ["Value", "Count", "Percent", "Cumulative"],
            none,
            ["Male", 2, 40, 40],
            ["Female", 3, 60, 100],
            none,
            ["Total", 5, None, None],
            ["Missing", 1, None, None],
        ])
        sheet = openpyxl.load_workbook(self.path("log.xlsx")).active
        self.assertEqual(sheet.title, "Output")
        self.assertEqual(sheet["C7"].number_format, "0.00")  # decimals as in the report
        self.assertEqual(sheet["B7"].number_format, "General")
        self.assertEqual(sheet.sheet_view.selection[0].activeCell, "A1")
        self.assertEqual(sheet["C7"].data_type, "n")

    def test_an_empty_log_is_not_written(self):
        for command in ["word", "excel"]:
            messages = self.run_script(command + " empty.out", status=1)
            self.assertEqual(messages, "Export Aborted!: There is no output to export.\n")
        self.assertFalse(os.path.exists(self.path("empty.out")))

    def test_data_and_the_script_are_not_written_over(self):
        before = self.digest("people.dcs")
        for command in ["word", "excel"]:
            messages = self.run_script("open people.dcs", "frequencies SEX", command + " people.dcs", status=2)
            self.assertIn('"people.dcs" is a file that this run works on; --overwrite writes over it', messages)
            messages = self.run_script("open people.dcs", "frequencies SEX", command + " script.txt", status=2)
            self.assertIn('"script.txt" is a file that this run works on', messages)
        self.assertEqual(self.digest("people.dcs"), before)

    def test_another_ending_is_told(self):
        messages = self.run_script("open people.dcs", "frequencies SEX", "excel log.txt")
        self.assertEqual(messages, "tessara-cli: note: the name of the file does not end in .xlsx\n")

    def test_a_path_that_cannot_be_written_is_refused(self):
        for name in ["no/log.xlsx", "no/log.docx"]:
            command = "excel " if name.endswith("xlsx") else "word "
            messages = self.run_script("open people.dcs", "frequencies SEX", command + name, status=1)
            self.assertEqual(messages, "Export Aborted!: The export failed. "
                                       "Please make sure the file is not open in another program.\n")

    def test_a_full_disk_leaves_the_old_file(self):
        """Files may grow to 20,000 bytes and no further, those that are on their way to the target too."""
        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (20000, 20000))

        long_list = ["open people.dcs"] + ["list SEX AGE CITY"] * 200
        for command, name in [("excel", "full.xlsx"), ("word", "full.docx")]:
            self.run_script("open people.dcs", "frequencies SEX", command + " " + name)
            before = self.digest(name)
            script = long_list + [command + " " + name]
            if command == "word":  # what is packed well needs more of it
                script = ["open people.dcs", "descriptives AGE --chart", "word full.docx --charts"]
                if not self.has_charts():
                    continue
            messages = self.run_script(*script, status=1, preexec_fn=limit)
            self.assertIn("Export Aborted!: The export failed.", messages)
            self.assertEqual(self.digest(name), before)
        self.assertEqual([name for name in os.listdir(self.folder) if name.startswith(".saving")], [])

    def has_charts(self):
        return os.path.exists(os.path.join(os.path.dirname(TESSARA_CLI), "libtessara-charts.so"))

    def test_charts_stand_behind_the_text(self):
        if not self.has_charts():
            self.skipTest("built without the module for charts")
        self.run_script("open people.dcs", "frequencies SEX", "word charts.docx --charts", "word plain.docx")
        tables = subprocess.run([TESSARA_CLI, "people.dcs", "frequencies", "SEX"], cwd=self.folder, capture_output=True,
                                check=True)
        self.assertTrue(tables.stdout)
        document = docx.Document(self.path("charts.docx"))
        shapes = document.inline_shapes
        texts = [paragraph.text for paragraph in document.paragraphs]
        plain = self.paragraphs("plain.docx")
        self.assertEqual(texts[:len(plain)], plain)
        self.assertGreaterEqual(len(shapes), 1)
        captions = texts[len(plain):]
        self.assertEqual(len(captions), 2 * len(shapes))
        for i, shape in enumerate(shapes):
            properties = shape._inline.docPr
            self.assertEqual(captions[2 * i], "")
            self.assertEqual(captions[2 * i + 1], properties.get("descr"))
            self.assertNotEqual(properties.get("descr"), "")
            self.assertEqual((shape.width, shape.height), (640 * 9525, 400 * 9525))
        with zipfile.ZipFile(self.path("charts.docx")) as archive:
            pictures = [name for name in archive.namelist() if name.endswith(".png")]
            self.assertEqual(len(pictures), len(shapes))
            for name in pictures:
                png = archive.read(name)
                self.assertEqual(png[:8], b"\x89PNG\r\n\x1a\n")
                self.assertEqual((int.from_bytes(png[16:20], "big"), int.from_bytes(png[20:24], "big")), (1280, 800))

    def test_a_run_without_charts_says_so(self):
        messages = self.run_script("open people.dcs", "list SEX", "word none.docx --charts")
        self.assertEqual(messages, "tessara-cli: note: the last procedure has left no charts\n")
        self.assertEqual(len(docx.Document(self.path("none.docx")).inline_shapes), 0)


class Table(Office):
    def test_the_table_as_a_document(self):
        document = docx.Document(self.path("table.docx"))
        self.assertEqual([paragraph.text for paragraph in document.paragraphs], [
            "Smokers\t\t   All\tMale\tFemale",
            "Total Count\t\t1,200\t500\t700",
            "Köln\tPercent\t 12.50\t-3.0\t7,5",
            "=SUM(A1)\tCount\t007\t12345678901234567890\t5%",
        ])
        stops = [stop.alignment for stop in document.paragraphs[0].paragraph_format.tab_stops]
        self.assertEqual(stops, [WD_TAB_ALIGNMENT.LEFT, WD_TAB_ALIGNMENT.RIGHT, WD_TAB_ALIGNMENT.CENTER,
                                 WD_TAB_ALIGNMENT.RIGHT])
        self.assertEqual(document.styles["Normal"].font.name, "Courier New")

    def test_the_table_cell_by_cell(self):
        self.assertEqual(self.cells("table.xlsx"), [
            ["Smokers", None, "  All", "Male", "Female"],
            [None] * 5,
            ["Total Count", None, 1200, 500, 700],
            ["Köln", "Percent", 12.5, -3, "7,5"],
            ["=SUM(A1)", "Count", 7, "12345678901234567890", "5%"],
        ])
        sheet = openpyxl.load_workbook(self.path("table.xlsx")).active
        self.assertEqual(sheet.title, "Summary Table")
        self.assertEqual([sheet.cell(1, column).alignment.horizontal for column in (1, 3, 4, 5)],
                         ["left", "right", "center", "right"])
        self.assertEqual([sheet["C3"].number_format, sheet["C4"].number_format, sheet["C5"].number_format],
                         ["#,##0", "0.00", "000"])
        self.assertEqual(sheet["A5"].data_type, "s")  # a text, no formula


    def test_a_table_of_a_run(self):
        """Six people, one of them without a sex: two men and three women. 1.96 * 0.5 / sqrt(5) is 44 percent."""
        self.run_script("open people.dcs", "table categorical SEX --counts --percent --decimals 0", "excel run.xlsx",
                        "word run.docx")
        rows = [
            [None, None, "  All"],
            ["Total Count", None, 5],
            ["95% CI (+/-)", None, "44%"],
            ["Sex of respondent", None, None],
            ["Male", "Percent", "40%"],
            [None, "Count", 2],
            ["Female", "Percent", "60%"],
            [None, "Count", 3],
        ]
        self.assertEqual(self.cells("run.xlsx"), rows)
        texts = [["" if cell is None else str(cell) for cell in row] for row in rows]
        texts[0][2] = "   All"
        self.assertEqual(self.paragraphs("run.docx"), ["\t".join(row) for row in texts])


class Data(Office):
    def test_records_below_their_names(self):
        self.assertEqual(self.cells("data.xlsx"), [["CODE", "KÖLN"], [7, "=1+1"], [2.5, None], ["11/5/2026", "?"]])
        sheet = openpyxl.load_workbook(self.path("data.xlsx")).active
        self.assertEqual(sheet["A2"].number_format, "000")  # leading zeros of a code stay
        self.assertEqual(sheet["A3"].number_format, "General")
        self.assertEqual(sheet["B2"].data_type, "s")
        self.assertEqual(sheet.freeze_panes, "A2")
        self.assertTrue(sheet["A1"].font.b)

    def test_what_one_sheet_cannot_hold_goes_on_in_the_next(self):
        """One column, three rows and four characters to a sheet: names stand on each, a long text goes to a row more."""
        book = openpyxl.load_workbook(self.path("parts.xlsx"))
        self.assertEqual(book.sheetnames[:2], ["Data", "Data 2"])
        values = [cell for sheet in book.worksheets for row in sheet.iter_rows(values_only=True) for cell in row]
        self.assertEqual([value for value in values if value is not None],
                         ["CODE", 7, 2.5, "CODE", "11/5", "/202", "6", "KÖLN", "=1+1", "KÖLN", "?"])


class Hostile(Office):
    # Every byte: what XML cannot hold is "?", the rest stands for its character; five bytes have none of their own.
    def every_character(self):
        text = ""
        for byte in range(256):
            if byte in (10, 13):
                continue
            forbidden = byte < 32 and byte != 9
            own = {0x81, 0x8D, 0x8F, 0x90, 0x9D}
            text += "?" if forbidden else chr(byte) if byte in own else bytes([byte]).decode("cp1252")
        return text

    def test_a_document_holds_it_all(self):
        self.assertEqual(self.paragraphs("hostile.docx"), [
            '<b>bold</b> &amp; ]]> "quoted" _x000D_',
            self.every_character(),
            "x?y\nz",
            "=cmd|' /C calc'!A0",
        ])

    def test_a_spreadsheet_holds_it_all(self):
        """The conversion turns the bar into a tab, and the hyphen goes."""
        cells = self.cells("hostile.xlsx")
        # The numbered character is a text: its first byte is written by number.
        self.assertEqual(cells[0][0], '<b>bold</b> &amp; ]]> "quoted" _x005F_x000D_')
        every = self.every_character().replace("-", "").replace("|", "\t").split("\t")
        self.assertEqual([cell for cell in cells[1] if cell is not None], every)
        self.assertEqual(cells[2][0], "x?yz")
        self.assertEqual(cells[3][:2], ["=cmd", "' /C calc'!A0"])

    def test_all_parts_are_well_formed(self):
        for name in os.listdir(self.folder):
            if name.endswith((".docx", ".xlsx")):
                with zipfile.ZipFile(self.path(name)) as archive:
                    self.assertIsNone(archive.testzip())
                    for part in archive.namelist():
                        if part.endswith((".xml", ".rels")):
                            ElementTree.fromstring(archive.read(part))

    def test_limits_of_a_sheet_lose_nothing(self):
        """Two columns, six characters: a long text goes to the next cell, a row with three fields to the next row."""
        self.assertEqual(self.cells("limits.xlsx"), [["abcdef", "ghij"], ["k", None], [1, 2], [3, None]])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]])
