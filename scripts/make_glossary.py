#!/usr/bin/env python3
"""Writes the default glossary, installed/Lexicards.lx1, from the terms in scripts/glossary.

The file is a row of records of 3080 bytes: a 16-bit number (little-endian), a subject of 60 and a text of 3000
characters in code page 1252, both filled with blanks, and 18 reserved bytes. Record 1 holds the number of the last
record and nothing else; every other record holds its own number. It needs Python 3 and nothing else.

The terms stand in text files, in the order of their subjects. A line "# Subject" begins a term. What follows are
paragraphs with an empty line between them; a line that begins with four blanks is a formula and stays a line of its
own. A paragraph may be "Handbook: ...": topics of installed/Help/Index.log. The last paragraph may be "See also ...":
subjects. Both have ", " between the names and a full stop at the end.
"""

import pathlib
import struct

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE = ROOT / "scripts" / "glossary"
TARGET = ROOT / "installed" / "Lexicards.lx1"
TOPICS = ROOT / "installed" / "Help" / "Index.log"
SUBJECT_SIZE = 60
TEXT_SIZE = 3000
RESERVED = bytes(18)
RECORD_SIZE = 2 + SUBJECT_SIZE + TEXT_SIZE + len(RESERVED)

SUBJECT_SIGN = "# "
FORMULA_SIGN = "    "
CROSS_REFERENCE = "See also "
HANDBOOK_TOPICS = "Handbook: "
LINE_END = "\r\n"


class Fault(Exception):
    """A term that does not fit; says which and why."""


def text_of(lines):
    """The text of a term: the lines of a paragraph joined by blanks, formulas each on a line, an empty line between."""
    blocks = []
    for paragraph in "\n".join(lines).strip("\n").split("\n\n"):
        rows = paragraph.split("\n")
        if all(row.startswith(FORMULA_SIGN) for row in rows):
            blocks.append(LINE_END.join(row.strip() for row in rows))
        elif any(row != row.strip() for row in rows):
            raise Fault(f"a formula stands inside a paragraph: {paragraph}")
        else:
            blocks.append(" ".join(rows))
    return (LINE_END * 2).join(blocks)


def terms_in(path):
    """The terms of a file as pairs of subject and text."""
    parts = []
    for line in path.read_text(encoding="cp1252").split("\n"):
        if line.startswith(SUBJECT_SIGN):
            parts.append((line[len(SUBJECT_SIGN):], []))
        elif parts:
            parts[-1][1].append(line)
        elif line:
            raise Fault(f"{path.name}: text ahead of the first subject")
    return [(subject, text_of(lines)) for subject, lines in parts]


def names_in(paragraph, sign):
    """The names that stand behind the sign of a paragraph; none when it has another beginning."""
    if not paragraph.startswith(sign):
        return []
    if not paragraph.endswith("."):
        raise Fault(f"no full stop: {paragraph}")
    return paragraph[len(sign):-1].split(", ")


def cross_references(text):
    """The subjects that the last paragraph of a text names."""
    return names_in(text.split(LINE_END)[-1], CROSS_REFERENCE)


def handbook_topics(text):
    """The topics of the handbook that a text names."""
    return [topic for paragraph in text.split(LINE_END) for topic in names_in(paragraph, HANDBOOK_TOPICS)]


def topic_titles():
    """The titles of the topic list, each ahead of the comma of its line."""
    return {line.partition(",")[0] for line in TOPICS.read_text(encoding="cp1252").splitlines()}


def field(text, size):
    data = text.encode("cp1252")
    if not text.strip() or len(data) > size:
        raise Fault(f"empty, or longer than {size} characters: {text}")
    return data.ljust(size)


def record(number, subject, text):
    return struct.pack("<h", number) + subject + text + RESERVED


def order(subject):
    return subject.lower()


def check(terms):
    """Subjects in order and each there once, cross references that lead to a term, and not to their own, and topics
    that the handbook has."""
    subjects = [subject for subject, _ in terms]
    topics = topic_titles()
    for one, two in zip(subjects, subjects[1:]):
        if order(one) >= order(two):
            raise Fault(f"out of order: {one}, {two}")
    for subject, text in terms:
        if "," in subject or subject != subject.strip():
            raise Fault(f"a cross reference cannot name it: {subject}")
        named = cross_references(text)
        for other in named:
            if other not in subjects or other == subject or named.count(other) > 1:
                raise Fault(f"{subject}: See also {other}")
        for topic in handbook_topics(text):
            if topic not in topics:
                raise Fault(f"{subject}: the handbook has no topic {topic}")


def main():
    terms = [term for path in sorted(SOURCE.glob("*.txt")) for term in terms_in(path)]
    check(terms)
    notes = [record(number, field(subject, SUBJECT_SIZE), field(text, TEXT_SIZE))
             for number, (subject, text) in enumerate(terms, 2)]
    first = record(len(notes) + 1, b" " * SUBJECT_SIZE, b" " * TEXT_SIZE)
    TARGET.parent.mkdir(parents=True, exist_ok=True)
    TARGET.write_bytes(first + b"".join(notes))
    assert TARGET.stat().st_size == RECORD_SIZE * (len(notes) + 1)
    print(f"{TARGET.name}: {len(notes)} notes")


if __name__ == "__main__":
    main()
