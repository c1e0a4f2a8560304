#!/usr/bin/env python3
"""Exports, backs up and restores a user's work while the program is running: answers.py KIT DRIVE
DISC."""

import json
import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import tempfile

kit, drive, disc = sys.argv[1:4]


def run(*words):
    done = subprocess.run(
        [kit, "answers", *map(str, words)], capture_output=True, text=True, timeout=60
    )
    return done.returncode, done.stdout, done.stderr


def expect(found, wanted, about):
    if found != wanted:
        sys.exit(f"{about}: {found!r} instead of {wanted!r}")


class Program:
    """The running program, driven line by line."""

    def __init__(self, user):
        self.process = subprocess.Popen(
            [drive, "--app", disc, "--data", disc, "--user", user],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
        )

    def do(self, *lines):
        for line in lines:
            self.process.stdin.write(line + "\n")
            self.process.stdin.flush()
            answer = self.process.stdout.readline()
            if '"error"' in answer:
                sys.exit(f"{line}: {answer}")

    def end(self):
        self.process.stdin.close()
        self.process.wait()


def contents(folder):
    return {str(file): file.read_bytes() for file in sorted(folder.rglob("*")) if file.is_file()}


def newer(store):
    with sqlite3.connect(store) as database:
        database.execute(f"pragma application_id = {0x53504632}")


def locked(store):
    """Another process that holds a lock on the store."""
    script = f"import sqlite3\nd = sqlite3.connect({str(store)!r})\nd.execute('begin exclusive')\nprint(flush=True)\ninput()"
    holder = subprocess.Popen(
        [sys.executable, "-c", script], stdin=subprocess.PIPE, stdout=subprocess.PIPE
    )
    holder.stdout.readline()
    return holder


def refused(folder, user):
    """Such a store is not read, and nothing in the user's folder changes."""
    store = user / "settings.db"
    whole = store.read_bytes()
    damaged = "it is damaged or not a settings file"
    for about, spoil, reason in (
        ("text", lambda: store.write_bytes(b"no store any more"), damaged),
        ("cut", lambda: store.write_bytes(whole[: len(whole) // 2]), damaged),
        ("newer", lambda: newer(store), "it was made by a newer version of this program"),
        ("locked", lambda: locked(store), "it is in use by another program"),
    ):
        store.write_bytes(whole)
        holder = spoil()
        before = contents(user)
        for words in (
            ("export", "--to", folder / "refused"),
            ("backup", folder / "refused"),
            ("restore", folder / "one.backup"),
        ):
            status, out, errors = run(*words, "--user", user)
            expect(
                (status, out, errors),
                (1, "", f"{store}: {reason}.\n"),
                f"{words[0]} with a store that is {about}",
            )
        expect(
            (contents(user) == before, (folder / "refused").exists()),
            (True, False),
            f"nothing changed: {about}",
        )
        if isinstance(holder, subprocess.Popen):
            holder.communicate(b"\n")


def hostile(folder, user):
    """Text of a foreign backup must not leave the folder of documents or control the terminal."""

    def texts(*words):
        return [word.encode("utf-16-be") for word in words]

    with sqlite3.connect(user / "settings.db") as database:
        for section in (
            f"{folder}/stolen/mount-1.dat:1",
            "Mount-1.dat:1",
            "a\x1b[31m\u202e-1.dat:1",
        ):
            database.execute("insert into settings values (?, ?, ?)", texts(section, "Page1", "x"))
        database.execute("insert into settings values (?, ?, ?)", texts("Parameters", "Page9", "x"))
    (folder / "stolen").mkdir()
    shutil.copy(f"{disc}/mount-1.dat", folder / "stolen")
    status, out, errors = run(
        "export", "--to", folder / "safe", "--disc", disc, "--user", user, "--format", "json"
    )
    expect(
        (status, errors, len(list((folder / "stolen").iterdir()))),
        (0, "", 1),
        "an export of foreign sections",
    )
    documents = [
        json.loads(file.read_text(encoding="utf-8")) for file in (folder / "safe").iterdir()
    ]
    notes = sum(len(d["lessons"]) for d in documents if d["title"].startswith("Notes"))
    answers = sum(len(lesson["questions"]) for d in documents for lesson in d["lessons"]) - notes
    expect(
        out,
        f"{folder}/safe: {len(documents)} documents with {answers} answers and {notes} note.\n",
        "what is counted is written",
    )
    run("backup", folder / "hostile.backup", "--user", user)
    with sqlite3.connect(user / "settings.db") as database:
        database.execute("update settings set value = x'0079' where value = x'0078'")
    status, out, errors = run("restore", folder / "hostile.backup", "--user", user)
    expect(
        (status, "it has a different text now" in errors, [c for c in errors if c in "\x1b\u202e"]),
        (1, True, []),
        "control characters",
    )


with tempfile.TemporaryDirectory() as folder:
    folder = pathlib.Path(folder)
    user = folder / "user"
    program = Program(user)
    program.do(
        "setting Parameters showhelp false",
        "press frmSplash 32",
        "click frmContents.mnuBibleReader",
        'type frmBible.txtNotes "A note on this chapter."',
        "close frmBible",
        "node frmContents.TreeView1 mount-1.dat:1",
    )
    program.do('type frmMain.Text3 "My first answer <b>."', "click frmMain.Command1")
    status, out, errors = run("backup", folder / "one.backup", "--user", user)
    expect((status, errors), (0, ""), "a backup while the program runs")
    status, out, errors = run(
        "export", "--to", folder / "documents", "--disc", disc, "--user", user, "--with-publisher"
    )
    expect((status, errors), (0, ""), "an export while the program runs")
    page = (folder / "documents" / "mount.html").read_text(encoding="utf-8")
    expect(
        "My first answer &lt;b&gt;." in page and "A crowd has followed him" in page,
        True,
        "the document of the study",
    )
    expect(
        "A note on this chapter."
        in (folder / "documents" / "chapter-notes.html").read_text(encoding="utf-8"),
        True,
        "the notes",
    )
    program.do(
        "click frmMain.Command2", 'type frmMain.Text3 "Another answer."', "click frmMain.Command1"
    )
    status, out, errors = run("restore", folder / "one.backup", "--user", user)
    expect(
        (status, out, errors.splitlines()[0]),
        (1, "", "the answer mount-1.dat:1, Page1: it has a different text now"),
        "newer work",
    )
    program.end()
    status, out, errors = run("restore", folder / "one.backup", "--user", folder / "other")
    expect((status, errors), (0, ""), "a restore into an empty folder")
    run("backup", folder / "two.backup", "--user", folder / "other")
    for format in ("json", "markdown"):
        expect(
            run(
                "export",
                "--to",
                folder / "again",
                "--disc",
                disc,
                "--user",
                folder / "other",
                "--format",
                format,
            )[0],
            0,
            format,
        )
    expect(
        sorted(f.name for f in (folder / "again").iterdir()),
        ["chapter-notes.json", "chapter-notes.md", "mount.json", "mount.md"],
        "files",
    )
    status, out, errors = run("restore", folder / "one.backup", "--user", user, "--replace")
    expect((status, errors, "saved in" in out), (0, "", True), "a restore that was told to replace")
    kept = user / "before-restore-1.backup"
    status, out, errors = run("restore", kept, "--user", user)
    expect(
        (status, "it has a different text now" in errors),
        (1, True),
        "the text that went is in the backup that was kept",
    )
    expect(run("backup", folder / "one.backup", "--user", user)[0], 1, "a backup over another")
    os.mkfifo(folder / "pipe")
    os.symlink(folder / "one.backup", folder / "link")
    for bad in (folder, folder / "pipe", folder / "link", "/dev/null"):
        status, out, errors = run("backup", bad, "--replace", "--user", user)
        expect(
            (status, out, errors),
            (1, "", f"{bad}: it is not a regular file.\n"),
            f"a backup that would replace {bad}",
        )
    os.chmod(folder / "two.backup", 0o644)
    expect(
        run("backup", folder / "two.backup", "--replace", "--user", user)[0],
        0,
        "a backup over another, as told",
    )
    for file in (folder / "two.backup", *(folder / "documents").iterdir()):
        expect(oct(file.stat().st_mode & 0o777), "0o600", f"the rights of {file}")
    for bad in (folder / "none", folder, folder / "pipe", "/dev/null", "/dev/full/x"):
        status, out, errors = run("restore", bad, "--user", user)
        expect((status, out, bool(errors)), (1, "", True), f"restore from {bad}")
    for bad in ("/dev/full/x", folder / "none" / "x", "/proc/x"):
        status, out, errors = run("backup", bad, "--user", user)
        expect((status, out, bool(errors)), (1, "", True), f"backup to {bad}")
    refused(folder, user)
    hostile(folder, user)
print("answers: export, backup and restore as told")
