#!/usr/bin/env python3
"""Reads a disc by the grammar of its files and tells every place that breaks it.

    check_disc.py FOLDER
"""

import pathlib
import re
import sys

# The short book names of which every occurrence is written out on the screen.
short_name = re.compile(
    r"(Prov?|Jn|Ps|Gen|Sam|Rom?|Zech|Eccl?|Cor|Eph|Ja|Pet?|Mal|Matt|Gal|Tim?|Ex|Nu|Deu?t?|Dt|Ju|Heb|Jos|Is"
    r"|Thess|Chr|Ne|Rev|Phil?|Ru|Mk|Lu|Jer|Dan|Col|Jon)\.")
faults = []


def expect(holds, where, what):
    if not holds:
        faults.append(f"{where}: {what}")


def decode(line, where):
    """A line as the program reads it."""
    if line.startswith("!"):
        tail = line[-1]
        expect(len(line) > 2 and "a" <= tail <= "z", where, "a scrambled line without a shift letter")
        back = ord(tail) - 97
        line = "".join(chr((ord(c) - 97 - back) % 26 + 97) if "a" <= c <= "z" else c for c in line[1:-1])
    expect(not re.search("//|\t|  |^ | $", line), where, "blanks or slashes that the reading would drop")
    for found in short_name.finditer(line):
        expect(re.match(r" \d", line[found.end():]), where, f"“{found[0]}” would be written out")
    return line


def read(path):
    raw = path.read_bytes().decode("cp1252").split("\r\n")
    expect(raw.pop() == "", path.name, "no line end at the end")
    expect({line[0] == "!" for line in raw if line} == {True, False}, path.name, "plain and scrambled lines aren't mixed")
    return [decode(line, f"{path.name}:{number}") for number, line in enumerate(raw, 1)]


def check_lesson(lines, where):
    """One block from its introduction on; returns the names of its two verse files."""
    closing = next((k for k, line in enumerate(lines) if line.startswith("-")), len(lines))
    if len(lines) < closing + 3:
        expect(False, where, "no closing line or no two names behind it")
        return []
    expect(not lines[0].split("/")[-1].lstrip("^").startswith("-"), where, "the introduction ends the body")
    body = [line for line in lines[1:closing] if len(line) > 2 and not line.startswith("#")]
    pages = [line for line in body if not line.startswith("[")]
    expect(body and body[0] in pages, where, "an answer before the first page")
    expect(len(pages) >= 5, where, "fewer than five pages")
    for number, page in enumerate(pages, 1):
        expect(page.startswith(f"{number}. "), where, f"page {number} begins “{page[:12]}”")
    for answer in set(body) - set(pages):
        expect(answer.endswith("]") and len(answer) > 4, where, f"answer ends “{answer[-12:]}”")
    expect(lines[closing] == "-" or "Congratulations" in lines[closing], where, "the closing line is a page")
    return lines[closing + 1:closing + 3]


def check_section(lines, where):
    """The passages of one lesson in a verse file."""
    verses = 0
    for line in lines:
        number = re.match(r"\d+", line)
        if line and number and int(number[0]) and not line[-1].isdigit():
            verses += 1
            expect(re.match(r"\d{1,2} \S", line), where, f"a verse begins “{line[:12]}”")
        else:
            expect(line and line[-1].isdigit() and len(line) < 40, where, f"a heading reads “{line[:40]}”")
            expect(line is lines[0] or verses, where, f"nothing under the heading before “{line}”")
            verses = 0
    expect(verses, where, "the last heading has no verses")


def sections(lines):
    """The lines of each section by the number in its mark, the line before the first mark left out."""
    found = {}
    for line in lines:
        if line.startswith(">"):
            current = found.setdefault(re.match(r">(\d*)", line)[1], [])
        elif found:
            current.append(line)
    return found


def check_study(folder, path):
    lines = read(path)
    end = next(k for k, line in enumerate(lines) if k > 1 and line.startswith("-"))
    expect(":" in lines[0], path.name, "no colon in the first line")
    blocks = sections(lines[end:])
    expect(list(blocks) == [str(n) for n in range(1, end - 1)], path.name, f"blocks {list(blocks)}")
    for lesson, block in blocks.items():
        for name in check_lesson(block, f"{path.name}, lesson {lesson}"):
            where = f"V-{name}, lesson {lesson}"
            verses = sections(read(folder / f"V-{name}"))
            expect(lesson in verses, where, "no section")
            check_section(verses.get(lesson, []), where)
    return lines[2:end]


def main(folder):
    firsts = sorted(folder.glob("*-1.dat"))
    expect(firsts, folder, "no study")
    for first in firsts:
        second = folder / first.name.replace("-1.dat", "-2.dat")
        expect(check_study(folder, first) == check_study(folder, second), first.name, "the parts differ in lessons")
    expect("" in read(folder / "introduction.txt"), "introduction.txt", "no empty line")
    expect(read(folder / "conclusion.txt")[-1], "conclusion.txt", "the last line is empty")
    print("\n".join(faults) or "no fault")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
