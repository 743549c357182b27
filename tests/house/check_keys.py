#!/usr/bin/env python3
"""Checks the page of commands and keys: usage: check_keys.py SOURCE-FOLDER

Every key of a command, and every caption under which a menu shows one, stands on installed/Help/keys.html. The commands
are read from the files command_rows*.cpp of src/shell, the menus from its command_table.cpp. A key may stand with another one
("Ctrl+I, Ctrl+E"), a caption without its access letter and its dots. Documents that are opened by a menu of their own
need no mention. Every finding is printed; the status is 1 when there is one.
"""

import html
import pathlib
import re
import sys

KEY = re.compile(r'\.(?:second_)?shortcut = "([^"]+)"')
CAPTION = re.compile(r'\.caption = "([^"]+)"')
DOCUMENT_MENU = "&Documentation"


def text_of(files):
    return "\n".join(file.read_text(encoding="utf-8") for file in sorted(files))


def number_of(word, header):
    """The number of a command that a row names by a constant."""
    if word.isdigit():
        return int(word)
    found = re.search(rf"constexpr int {word} = (\d+);", header)
    return int(found.group(1)) if found else None


def rows_of(source, header):
    """The text of each command's row, by its number."""
    rows = {}
    pieces = re.split(r"\{\.id = (\w+),", source)
    for word, text in zip(pieces[1::2], pieces[2::2]):
        rows[number_of(word, header)] = text.split("\n};")[0]
    return rows


def menus_of(source):
    """The numbers of the commands of all menus but that of the documents."""
    table = source[source.index("MenuBar()"):source.index("Toolbar()")]
    numbers = []
    titles = re.split(r'\{"(&\w+)",', table)
    for title, text in zip(titles[1::2], titles[2::2]):
        if title != DOCUMENT_MENU:
            numbers += [int(number) for number in re.findall(r"\{(\d+)", text)]
    return numbers


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    root = pathlib.Path(arguments[1])
    shell = root / "src" / "shell"
    page = (root / "installed" / "Help" / "keys.html").read_text(encoding="ascii")
    words = " ".join(html.unescape(re.sub(r"<[^>]*>", " ", page)).split())
    rows = rows_of(text_of(shell.glob("command_rows*.cpp")), text_of(shell.glob("command_*.h")))
    menus = menus_of(text_of([shell / "command_table.cpp"]))
    findings = []
    keys = {key for row in rows.values() for key in KEY.findall(row)}
    for key in sorted(keys):
        if not re.search(rf"(?<![\w+]){re.escape(key)}(?![\w+])", words):
            findings.append(f"the key {key} is not on the page")
    for number in menus:
        row = rows.get(number)
        if row is None:
            findings.append(f"command {number} has no row")
            continue
        own, _, uses = row.partition(".uses")
        for caption in CAPTION.findall(uses) or CAPTION.findall(own):
            plain = caption.replace("&", "").removesuffix("...")
            if not re.search(rf"(?<!\w){re.escape(plain)}(?!\w)", words):
                findings.append(f'command {number}: "{plain}" is not on the page')
    for finding in findings:
        print(finding)
    print(f"{len(keys)} keys, {len(menus)} commands, {len(findings)} findings")
    return 1 if findings or not keys or not menus else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
