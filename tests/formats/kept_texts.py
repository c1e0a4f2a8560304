#!/usr/bin/env python3
"""Compares the examples in docs/formats/answers.md, settings.md and notes.md with what the program
writes: kept_texts.py DRIVE DISC FOLDER_OF_PAGES."""

import json
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile

drive, disc, pages = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])


def examples(page):
    return re.findall(
        r"^```\w*\n(.*?)^```$", (pages / page).read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL
    )


def expect(found, wanted, about):
    if found != wanted:
        sys.exit(f"{about}: the program gives\n{found}and the page says\n{wanted}")


def run(user, *lines):
    script = "".join(line + "\n" for line in lines)
    done = subprocess.run(
        [drive, "--app", disc, "--data", disc, "--user", user],
        input=script,
        capture_output=True,
        text=True,
    )
    if done.returncode != 0:
        sys.exit(f"the script failed: {done.stdout}{done.stderr}")
    return done.stdout


with tempfile.TemporaryDirectory() as folder:
    user = pathlib.Path(folder) / "answers"
    run(
        user,
        "press frmSplash 32",
        "node frmContents.TreeView1 mount-1.dat:1",
        "click frmWelcome.Command1",
        "type frmMain.Text3 Grace",
        "click frmMain.Command1",
        'type frmMain.Text3 "Two\\r\\nlines"',
        "click frmMain.mnuFileClose",
    )
    with sqlite3.connect(user / "settings.db") as store:
        rows = store.execute(
            "select section, key, value from settings order by section, key"
        ).fetchall()
        raw = store.execute(
            "select hex(section), hex(key), hex(value) from settings where value = ?",
            ("Grace".encode("utf-16-be"),),
        ).fetchall()
        number = store.execute("pragma application_id").fetchone()[0]
    told = "".join(
        " | ".join(json.dumps(text.decode("utf-16-be")) for text in row) + "\n" for row in rows
    )
    expect(told, examples("answers.md")[0], "answers.md")
    expect(
        f"application_id 0x{number:08X}\n" + "\n".join(raw[0]) + "\n",
        examples("settings.md")[0],
        "settings.md",
    )

    user = pathlib.Path(folder) / "notes"
    short = user / "drive_c/Program Files/Sparrowfield Interactive Software/notes/2 John1.dat"
    look_up = (
        "press frmSplash 32",
        "click frmContents.mnuBibleReader",
        'set frmBible.txtVerse.Text "2 John 1"',
        "click frmBible.cmdOkay",
    )
    run(user, *look_up, 'set frmBible.txtNotes.Text "Grace and peace"', "close frmBible")
    expect(
        (short.read_bytes(), [file.name for file in short.parent.glob("2 John*")]),
        (b"Grace and peace", ["2 John1.dat"]),
        "notes.md, a note of 15 bytes",
    )
    run(user, *look_up, 'set frmBible.txtNotes.Text "χάρις, grace"', "close frmBible")
    expect(
        short.read_text(encoding="cp1252") + "\n",
        examples("notes.md")[0],
        "notes.md, the nearest form",
    )
    expect(
        short.with_name("2 John1.dat.utf8").read_text(encoding="utf-8"),
        "χάρις, grace",
        "notes.md, the text itself",
    )
print("the examples of three pages are what the program writes")
