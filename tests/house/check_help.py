#!/usr/bin/env python3
"""Checks the help pages: usage: check_help.py TESSARA-CLI INSTALLED-FOLDER

For every page of INSTALLED-FOLDER/Help: the tags are balanced, each relative link leads to a file and an anchor that
are there, each link "glossary:Subject" to a note of the default glossary, each picture is there and has an alternative
text, and the lines of each <pre class="run"> block are printed by TESSARA-CLI, without a gap and unchanged. Each topic
of Index.log has a page. The comment that opens a block names the sample file and the commands of the script, with "; "
between them:

    <pre class="run"><!-- sleep.dcs: control DRUG --eq 1; descriptives EXTRA -->

Blanks at the ends of lines, and empty lines at the ends of a block, do not count. The script runs in an empty folder.
Every finding is printed; the status is 1 when there is one.
"""

import html
import pathlib
import re
import subprocess
import sys
import tempfile
import urllib.parse
from html.parser import HTMLParser

VOID_TAGS = {"area", "base", "br", "col", "hr", "img", "input", "link", "meta", "param"}
BLOCK_START = '<pre class="run">'
BLOCK = re.compile(re.escape(BLOCK_START) + r"(.*?)</pre>", re.DOTALL)
RECIPE = re.compile(r"\s*<!--\s*([^\s:/\\]+\.dcs):\s*(.*?)\s*-->(.*)", re.DOTALL)
SECONDS_A_RUN = 60
GLOSSARY_SCHEME = "glossary"
RECORD_SIZE = 3080
SUBJECT = slice(2, 62)


def subjects_of(glossary):
    """The subjects of a glossary file. Its first record holds the count of records and no note."""
    data = glossary.read_bytes()
    count = int.from_bytes(data[:2], "little", signed=True)
    records = [data[at:at + RECORD_SIZE] for at in range(RECORD_SIZE, count * RECORD_SIZE, RECORD_SIZE)]
    return {record[SUBJECT].decode("cp1252").strip(" ") for record in records} - {""}


class Page(HTMLParser):
    """Tags, anchors, links and pictures of one page."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.findings = []
        self.anchors = set()
        self.links = []
        self._open = []
        self.feed(text)
        self.close()
        for tag, line in self._open:
            self.findings.append(f"{line}: <{tag}> is not closed")

    def handle_starttag(self, tag, attrs):
        line = self.getpos()[0]
        values = dict(attrs)
        if len(values) != len(attrs):
            self.findings.append(f"{line}: an attribute of <{tag}> stands twice")
        for name in {values.get("id"), values.get("name") if tag == "a" else None} - {None}:
            if name in self.anchors:
                self.findings.append(f'{line}: the anchor "{name}" stands twice')
            self.anchors.add(name)
        for name in ("href", "src"):
            if name in values:
                self.links.append((line, values[name] or ""))
        if tag == "img":
            if not (values.get("alt") or "").strip():
                self.findings.append(f"{line}: a picture has no alternative text")
            if not values.get("src"):
                self.findings.append(f"{line}: a picture has no file")
        if tag not in VOID_TAGS:
            self._open.append((tag, line))

    def handle_startendtag(self, tag, attrs):
        self.handle_starttag(tag, attrs)
        if tag not in VOID_TAGS:
            self._open.pop()

    def handle_endtag(self, tag):
        line = self.getpos()[0]
        if tag in VOID_TAGS:
            self.findings.append(f"{line}: </{tag}> closes a tag that has no end")
        elif self._open and self._open[-1][0] == tag:
            self._open.pop()
        elif any(tag == other for other, _ in self._open):
            inner, opened = self._open[-1]
            self.findings.append(f"{line}: </{tag}> stands before the end of <{inner}> of line {opened}")
            while self._open.pop()[0] != tag:
                pass
        else:
            self.findings.append(f"{line}: </{tag}> closes nothing")


class Checker:
    def __init__(self, program, installed):
        self._program = program
        self._data = installed / "Data"
        self._help = installed / "Help"
        self._subjects = subjects_of(installed / "Lexicards.lx1")
        self._pages = {}
        self._printed = {}
        self.findings = []
        self.blocks = 0

    def check(self):
        texts = {}
        for path in sorted(self._help.rglob("*.html")):
            raw = path.read_bytes()
            try:
                texts[path.resolve()] = raw.decode("ascii")
            except UnicodeDecodeError as error:
                line = raw[: error.start].count(b"\n") + 1
                self._find(path, f"{line}: a character that is not us-ascii")
                texts[path.resolve()] = raw.decode("cp1252", "replace")
        if not texts:
            self.findings.append(f"{self._help}: there are no pages")
        self._pages = {path: Page(text) for path, text in texts.items()}
        for path, page in self._pages.items():
            for finding in page.findings:
                self._find(path, finding)
            for line, link in page.links:
                self._check_link(path, line, link)
            self._check_blocks(path, texts[path])
        self._check_topics(self._help / "Index.log")
        return len(texts)

    def _find(self, path, finding):
        self.findings.append(f"{path.name}:{finding}")

    def _check_link(self, path, line, link):
        parts = urllib.parse.urlsplit(link)
        if parts.scheme == GLOSSARY_SCHEME:
            if urllib.parse.unquote(link.partition(":")[2]) not in self._subjects:
                self._find(path, f'{line}: "{link}" leads to no note of the glossary')
            return
        if parts.scheme or parts.netloc:
            return
        target = path
        if parts.path:
            target = (path.parent / urllib.parse.unquote(parts.path)).resolve()
            # On some systems a name in other letters is found as well, on others it is not.
            if not target.is_file() or target.name not in {other.name for other in target.parent.iterdir()}:
                self._find(path, f'{line}: "{link}" leads to no file')
                return
        if parts.fragment:
            page = self._pages.get(target)
            if page is None or urllib.parse.unquote(parts.fragment) not in page.anchors:
                self._find(path, f'{line}: "{link}" leads to no anchor')
        elif not parts.path:
            self._find(path, f"{line}: a link leads nowhere")

    def _check_topics(self, path):
        """Each line of the topic list is a title, a comma and the name of a page; no title stands twice."""
        titles = set()
        for number, line in enumerate(path.read_text(encoding="cp1252").splitlines(), 1):
            title, _, page = line.partition(",")
            if not title or title in titles:
                self._find(path, f'{number}: "{title}" is no title, or stands twice')
            titles.add(title)
            if (self._help / f"{page}.html").resolve() not in self._pages:
                self._find(path, f'{number}: "{page}" is no page')

    def _check_blocks(self, path, text):
        for match in BLOCK.finditer(text):
            self.blocks += 1
            line = text.count("\n", 0, match.start()) + 1
            recipe = RECIPE.fullmatch(match.group(1))
            if recipe is None:
                self._find(path, f"{line}: the block does not begin with a comment that says how to run it")
                continue
            shown = [html.unescape(shown).rstrip() for shown in recipe.group(3).split("\n")]
            while shown and not shown[0]:
                shown.pop(0)
            while shown and not shown[-1]:
                shown.pop()
            if not shown:
                self._find(path, f"{line}: the block has no lines")
                continue
            commands = re.split(r";\s+", html.unescape(" ".join(recipe.group(2).split())))
            problem = self._problem(recipe.group(1), commands, shown)
            if problem:
                self._find(path, f"{line}: {problem}")
        if text.count("<pre class=") != text.count(BLOCK_START):
            self._find(path, "1: a <pre> of a class that is not run")

    def _problem(self, file, commands, shown):
        """What is wrong with the lines of a block, or nothing."""
        data = self._data / file
        if not data.is_file():
            return f"there is no sample {file}"
        printed, error = self._run(data, commands)
        if error:
            return error
        places = [at for at, text in enumerate(printed) if text == shown[0]]
        best = 0
        for at in places:
            same = 0
            while same < len(shown) and at + same < len(printed) and printed[at + same] == shown[same]:
                same += 1
            if same == len(shown):
                return None
            best = max(best, same)
        return f'the program does not print "{shown[best]}"' + (f' behind "{shown[best - 1]}"' if best else "")

    def _run(self, data, commands):
        key = (data, tuple(commands))
        if key not in self._printed:
            with tempfile.TemporaryDirectory() as folder:
                try:
                    run = subprocess.run([self._program, "--seed", "1", "--script", "-", str(data)], cwd=folder,
                                         input="\n".join(commands).encode() + b"\n", capture_output=True,
                                         timeout=SECONDS_A_RUN, check=False)
                    error = f"the script ends with status {run.returncode}: " + run.stderr.decode("utf-8", "replace")
                    printed = [line.rstrip() for line in run.stdout.decode("utf-8", "replace").split("\n")]
                    self._printed[key] = (printed, error.strip() if run.returncode else None)
                except subprocess.TimeoutExpired:
                    self._printed[key] = ([], f"the script did not end within {SECONDS_A_RUN} seconds")
        return self._printed[key]


def main(arguments):
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    program = pathlib.Path(arguments[1]).resolve()
    installed = pathlib.Path(arguments[2]).resolve()
    if not program.is_file():
        print(f"{program}: there is no such program", file=sys.stderr)
        return 2
    checker = Checker(str(program), installed)
    pages = checker.check()
    for finding in checker.findings:
        print(finding)
    print(f"{pages} pages, {checker.blocks} blocks, {len(checker.findings)} findings")
    return 1 if checker.findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
