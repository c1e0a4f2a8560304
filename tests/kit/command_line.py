#!/usr/bin/env python3
"""Runs sparrowfield-kit as its users do: command_line.py KIT DISC."""

import pathlib
import pty
import os
import subprocess
import sys
import tempfile

kit, disc = sys.argv[1:3]


def run(*words, data=b""):
    done = subprocess.run([kit, *map(str, words)], input=data, capture_output=True)
    return done.returncode, done.stdout, done.stderr.decode()


def expect(found, wanted, about):
    if found != wanted:
        sys.exit(f"{about}: {found!r} instead of {wanted!r}")


for words in (
    "",
    "bible",
    "bible import",
    "study",
    "study make",
    "study check",
    "text",
    "text make",
    "text scramble",
    "text decode",
):
    status, out, _ = run(*words.split(), "--help")
    expect((status, b"Usage" in out), (0, True), f"{words} --help")
for words in (
    "",
    "frob",
    "bible import --from x --as niv --to y",
    "bible import --from x --as kjv --to y --about " + 201 * "x",
    "study check",
    "text scramble --shift A",
    "text scramble --shift ab",
):
    expect(run(*words.split())[0], 2, f"the status of wrong arguments: {words}")

lines = bytes(range(256)) * 2 + b"\r\n\n!a\n  two  blanks // and more\r\nno end"
for letter in [None, *"abcdefghijklmnopqrstuvwxyz"]:
    status, scrambled, _ = run(
        "text", "scramble", *(["--shift", letter] if letter else []), data=lines
    )
    expect(
        run("text", "decode", data=scrambled),
        (0, lines, ""),
        f"lines scrambled by {letter} and decoded",
    )
letters = {
    line.rstrip(b"\r")[-1:] for line in run("text", "scramble", data=b"x\n" * 25)[1].splitlines()
}
expect(len(letters), 25, "shift letters in 25 lines")
with open("/dev/full", "wb") as full:
    expect(
        subprocess.run(
            [kit, "text", "decode"], input=b"x\n", stdout=full, stderr=subprocess.DEVNULL
        ).returncode,
        1,
        "a full target",
    )

with tempfile.TemporaryDirectory() as folder:
    folder = pathlib.Path(folder)
    source = folder / "s.txt"
    source.write_text(
        "study: A\ntitle: B\ndescription: C\nlesson: D\nmain: John 3:16\npart: one\nquestion: E\npart: two\nquestion: F\n"
    )
    status, out, errors = run("study", "make", source, "--bible", disc, "--to", folder / "out")
    expect((status, errors), (0, ""), "study make")
    files = sorted((folder / "out").iterdir())
    expect(
        [file.name for file in files],
        ["V-s1", "V-s1s", "V-s2", "V-s2s", "s-1.dat", "s-2.dat"],
        "the files of a study",
    )
    expect(run("study", "check", *files)[0], 0, "study check of what study make wrote")
    (folder / "out" / "s-2.dat").write_text("A\n")
    status, out, errors = run("study", "check", folder / "out" / "s-2.dat")
    expect(
        (status, errors.splitlines()[0]),
        (1, f"{folder}/out/s-2.dat:1: expected <prefix>:<title>, found no colon in “A”"),
        "a fault",
    )
    source.write_text("study: A\nfrob: B\n")
    status, out, errors = run("study", "make", source, "--bible", disc, "--to", folder / "new")
    expect(
        (status, errors.splitlines()[0], (folder / "new").exists()),
        (1, f"{source}:1: expected an entry “title”", False),
        "a bad source",
    )
    os.symlink(source, folder / "a b.txt")
    for words in (
        ["study", "make", folder / "none.txt", "--bible", disc, "--to", folder],
        ["study", "make", source, "--bible", folder, "--to", folder],
        ["study", "make", folder / "a b.txt", "--bible", disc, "--to", folder],
        ["text", "make", source, "--to", folder],
        ["bible", "import", "--from", folder, "--as", "kjv", "--to", folder],
    ):
        status, out, errors = run(*words)
        expect((status, out, bool(errors)), (1, b"", True), f"{words}")

    # Progress is shown only on a terminal.
    export = folder / "b.imp"
    export.write_text("$$$Genesis 1:1\nx\n" * 500_000)
    words = [kit, "bible", "import", "--from", str(export), "--as", "kjv", "--to", str(folder)]
    expect(
        "%" in subprocess.run(words, capture_output=True, text=True).stderr,
        False,
        "progress without a terminal",
    )
    mine, its = pty.openpty()
    process = subprocess.Popen(words, stderr=its, stdout=subprocess.DEVNULL)
    os.close(its)
    seen = b""
    while True:
        try:
            part = os.read(mine, 4096)
        except OSError:
            break
        if not part:
            break
        seen += part
    expect((process.wait(), b"%" in seen), (1, True), "progress on a terminal")
