#!/usr/bin/env python3
"""Makes the disc: the folder in which the program runs, with every file that it opens by bare name.

    packaging/make_disc.py [--out FOLDER] [--programs FOLDER]

The texts come from data/, the words of the Bible from the program `bible` (Debian package bible-kjv).
Only files whose content changes are written, so a second run costs next to nothing. Study and verse
files that have no source any more are removed; nothing else in the folder is touched.
"""

import argparse
import pathlib
import re
import shutil
import subprocess
import sys
import zlib

root = pathlib.Path(__file__).resolve().parent.parent
programs = ("sparrowfield", "sparrowfield-drive", "sparrowfield-kit")


class BadSource(Exception):
    """A source that can't become a file of the disc; the text says which and why."""


def read_records(path):
    """The lines of a readable source: an indented line belongs to the one before it.

    It is joined by a blank, or by nothing where it opens a paragraph with "/".
    """
    records = []
    for line in path.read_text(encoding="utf-8").splitlines():
        text = line.strip()
        if not line.startswith(" ") or not text:
            records.append(text)
        elif not records:
            raise BadSource(f"{path}: the first line is indented")
        else:
            records[-1] += text if text.startswith("/") else " " + text
    return records


def scramble(text):
    """A scrambled line; the shift depends on the text alone, so every run gives the same."""
    shift = zlib.crc32(text.encode("utf-8")) % 26
    moved = (chr((ord(c) - 97 + shift) % 26 + 97) if "a" <= c <= "z" else c for c in text)
    return "!" + "".join(moved) + chr(97 + shift)


def disc_file(lines):
    """The bytes of a text file of the disc: every third line plain, the others scrambled."""
    result = []
    for number, line in enumerate(lines):
        if line.startswith("!"):
            raise BadSource(f"a plain line would pass for a scrambled one: {line[:60]}")
        result.append(scramble(line) if number % 3 and line else line)
    return "".join(line + "\r\n" for line in result).encode("cp1252")


def look_up(passage):
    """The verses of a passage ("John 3:16", "1 John 3:2-3", "Psalms 1") as (number, text)."""
    asked = re.fullmatch(r"(.+?) (\d+)(?::(\d+)(?:-(\d+))?)?", passage)
    if not asked:
        raise BadSource(f"not a passage: {passage}")
    book, chapter, first, last = asked.groups()
    # A chapter by itself gives only its first verse; a range past the end stops at the last one.
    reference = passage.replace(" ", "") + ("" if first else ":1-200")
    answer = subprocess.run(["bible", "-f", reference], cwd="/", check=True,
                            stdin=subprocess.DEVNULL, capture_output=True, text=True).stdout
    verses = []
    for line in answer.splitlines():
        found = re.match(r"(\w+?)(\d+):(\d+) (.*)", line)
        # `bible` answers what it doesn't understand with some other place.
        if not found or found[1][:2] != book.replace(" ", "")[:2] or found[2] != chapter:
            raise BadSource(f"no answer to {passage}: {line[:60]}")
        verses.append((int(found[3]), found[4].strip()))
    wanted = range(int(first or 1), int(last or first or len(verses)) + 1)
    if not verses or [number for number, _ in verses] != list(wanted):
        raise BadSource(f"verses missing in {passage}")
    return verses


def verse_files(path):
    """The verse files that a list of passages describes, by name."""
    files = {}
    lesson_before = {}
    for record in read_records(path):
        if not record or record.startswith("#"):
            continue
        columns = [column.strip() for column in record.split("|")]
        if len(columns) != 4:
            raise BadSource(f"{path}: not four columns: {record}")
        name, lesson, heading, passage = columns
        lines = files.setdefault("V-" + name, [])
        if lesson_before.get(name) != lesson:
            lines.append(">" + lesson)
            lesson_before[name] = lesson
        lines.append(heading)
        lines += [f"{number} {text}" for number, text in look_up(passage)]
    return {name: disc_file(lines) for name, lines in files.items()}


def make_files():
    """All texts of the disc, by file name."""
    data = root / "data"
    files = {}
    for study in sorted((data / "studies").iterdir()):
        for part in sorted(study.glob("*-[12].txt")):
            files[part.stem + ".dat"] = disc_file(filter(None, read_records(part)))
        files |= verse_files(study / "passages.txt")
    for name in ("introduction.txt", "conclusion.txt"):
        files[name] = disc_file(read_records(data / name))
    return files


def write_changes(files, out):
    """Brings the folder to these files; returns the names that were written or removed."""
    out.mkdir(parents=True, exist_ok=True)
    changed = []
    for name, content in files.items():
        if not (out / name).is_file() or (out / name).read_bytes() != content:
            (out / name).write_bytes(content)
            changed.append(name)
    for stale in [*out.glob("*-[12].dat"), *out.glob("V-*")]:
        if stale.name not in files:
            stale.unlink()
            changed.append(stale.name)
    return changed


def copy_programs(source, out):
    """Copies those of the programs that are built and newer than the copy; returns their names."""
    copied = []
    for name in programs:
        built, copy = source / name, out / name
        if built.is_file() and not (copy.is_file() and copy.stat().st_mtime >= built.stat().st_mtime):
            shutil.copy2(built, copy)
            copied.append(name)
    return copied


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", type=pathlib.Path, default=root / "build" / "disc")
    parser.add_argument("--programs", type=pathlib.Path, help="a folder to copy the programs from")
    options = parser.parse_args()
    if not shutil.which("bible"):
        raise BadSource("the program `bible` is missing (Debian package bible-kjv)")
    changed = write_changes(make_files(), options.out)
    if options.programs:
        changed += copy_programs(options.programs, options.out)
    print(f"{options.out}: " + (", ".join(changed) if changed else "nothing to change"))


if __name__ == "__main__":
    try:
        main()
    except (BadSource, OSError, UnicodeError, subprocess.CalledProcessError) as failure:
        sys.exit(f"make_disc.py: {failure}")
