#!/usr/bin/env python3
"""Attacks with hostile files on the disc and in the user's folder:
attacks.py DRIVE KIT DISC [--sanitized].

In each row something hostile replaces files, and the program is then used as usual: the test writes
an answer and a note, looks up passages, opens a map and a lesson. No step may take more than a
second of processor time or hang, the program may use 200 MB, and what was typed is there in the
end. With sanitizers the limits are higher."""

import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
from program import NOTES, Fault, Program

drive, kit, disc = sys.argv[1:4]
SANITIZED = "--sanitized" in sys.argv
SECONDS = 6 if SANITIZED else 1  # of processor time, for one step
MEGABYTES = 2000 if SANITIZED else 200
HUGE = 10 << 30  # bytes; a sparse file, which uses no disk space


def sparse(file, start=b""):
    file.unlink(missing_ok=True)
    with open(file, "wb") as out:
        out.write(start)
        out.truncate(HUGE)


def put(file, content):
    file.unlink(missing_ok=True)  # it is a hard link to the file of the disc
    file.write_bytes(content)


def pipe(file):
    file.unlink(missing_ok=True)
    os.mkfifo(file)


def link(target):
    def make(file):
        file.unlink(missing_ok=True)
        file.symlink_to(target)

    return make


def folder(file):
    file.unlink(missing_ok=True)
    file.mkdir()


def pipe_by_link(file):
    pipe(file.with_name(file.name + ".pipe"))
    link(file.with_name(file.name + ".pipe"))(file)


def many_scans(scans):
    """A progressive JPEG of 2000 by 2000 pixels with this many empty scans."""

    def segment(marker, content):
        return bytes([0xFF, marker]) + struct.pack(">H", len(content) + 2) + content

    frame = segment(0xC2, struct.pack(">BHHB", 8, 2000, 2000, 1) + b"\1\x11\0")
    return b"\xFF\xD8" + frame + segment(0xDA, b"\1\1\0\0\0\0") * scans + b"\xFF\xD9"


LESSON = b"Study: Evil\r\nA description.\r\nLesson one\r\n-\r\n>1\r\n"
NAMES = b"-\r\nmount1\r\nmount1s\r\n"
EACH = (
    "V-mount1",
    "V-mount1s",
    "introduction.txt",
    "conclusion.txt",
    "biblekjv.idx",
    "kjv/kjv43",
    "biblekjv.about",
    "bg.jpg",
    "map1.jpg",
    "sparrowfield.wmv",
    "evil-1.dat",
)


def replace_each(by):
    def spoil(place, user):
        for name in EACH:
            by(place / name)

    return spoil


def note_file(by):
    def spoil(place, user):
        folder_of_notes = user / NOTES
        folder_of_notes.mkdir(parents=True)
        by(folder_of_notes / "John3.dat")
        by(folder_of_notes / "John3.dat.utf8")

    return spoil


ROWS = {
    "nothing": lambda place, user: None,
    "files of 10 GB without a line end": replace_each(sparse),
    "a study whose second line has no end": lambda place, user: sparse(
        place / "evil-1.dat", b"Title\r\n"
    ),
    "a lesson whose introduction has no end": lambda place, user: sparse(
        place / "mount-1.dat", LESSON
    ),
    "a list of lessons without an end": lambda place, user: put(
        place / "evil-1.dat", b"Title\nDescription\n" + b"x\n" * 20_000_000
    ),
    "a lesson of millions of pages": lambda place, user: put(
        place / "mount-1.dat", LESSON + b"Intro\n" + b"abc\n" * 5_000_000 + NAMES
    ),
    "an introduction of millions of paragraphs": lambda place, user: put(
        place / "mount-1.dat", LESSON + b"a/" * 5_000_000 + b"\n1. Page\n" + NAMES
    ),
    "a passage of millions of verses": lambda place, user: put(
        place / "V-mount1", b">1\r\nMatthew 5\r\n" + b"1 And\r\n" * 3_000_000
    ),
    "an index of millions of chapters": lambda place, user: put(
        place / "biblekjv.idx",
        b"".join(b"Book %d|32767\r\n" % number for number in range(5000)) + b"John|9999999999\r\n",
    ),
    "a book of one long verse": lambda place, user: put(
        place / "kjv/kjv43", b"John\r\n003 016 " + b"x" * 8_000_000 + b"\r\n\r\n"
    ),
    "a picture of thousands of scans": lambda place, user: put(
        place / "map1.jpg", many_scans(90_000)
    ),
    "pipes": replace_each(pipe),
    "links to pipes": replace_each(pipe_by_link),
    "links to an endless device": replace_each(link("/dev/zero")),
    "links to a terminal": replace_each(link("/dev/tty")),
    "links in a circle": replace_each(lambda file: link(file.name)(file)),
    "folders": replace_each(folder),
    "a pipe for a note": note_file(pipe),
    "an endless device for a note": note_file(link("/dev/zero")),
    "a pipe for the store": lambda place, user: pipe(user / "settings.db"),
    "an endless device for the store": lambda place, user: link("/dev/zero")(user / "settings.db"),
}


class Watched(Program):
    """A Program that limits the processor time of each step."""

    def answer(self):
        before = self.used()
        answer = super().answer()
        spent = self.used() - before
        if spent > SECONDS:
            raise Fault(f"{self.lines[-1]} took {spent:.1f} s of the processor's time")
        return answer

    def used(self):
        fields = (
            pathlib.Path(f"/proc/{self.process.pid}/stat").read_text().rpartition(")")[2].split()
        )
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def most_memory(self):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(status.partition("VmHWM:")[2].split()[0]) >> 10


def open_lesson(program, key):
    program.do("node", "frmContents.TreeView1", key)
    if "frmWelcome" in program.forms():
        program.do("click", "frmWelcome.Command1")
    return "frmMain" in program.forms()


def work(program):
    """Uses all files of the disc; True if the text typed last is there in the end."""
    program.do("press", "frmSplash", 32)
    assert open_lesson(program, "joseph-1.dat:1")
    program.do("type", "frmMain.Text3", "kept words")
    program.do("click", "frmMain.mnuBibleReader")
    for reference in ("John 3", "Genesis 1:1"):
        program.do("set", "frmBible.txtVerse.Text", reference)
        program.do("click", "frmBible.cmdOkay")
    if not program.get("frmBible.txtNotes.Locked"):  # no book was found
        program.do("type", "frmBible.txtNotes", "a note")
    program.do("close", "frmBible")
    program.do("click", "frmMain.mnuOptionsMapOne")
    program.do("close", "frmMap")
    program.do("click", "frmMain.mnuFileClose")
    if open_lesson(program, "mount-1.dat:1"):
        program.do("click", "frmMain.mnuFileClose")
    assert open_lesson(program, "joseph-1.dat:1")
    return program.get("frmMain.Text3.Text") == "kept words"


def attack(row, spoil):
    with tempfile.TemporaryDirectory(dir=os.environ.get("TMPDIR", ".")) as scratch:
        place, user = pathlib.Path(scratch, "disc"), pathlib.Path(scratch, "user")
        shutil.copytree(disc, place, copy_function=os.link)
        user.mkdir()
        spoil(place, user)
        program = Watched(drive, str(place), user)
        try:
            if not work(program):
                return "what was typed is gone"
            memory = program.most_memory()
            status, said = program.end()
            if memory > MEGABYTES:
                return f"it took {memory} MB"
            return f"it ended with {status}: {said}" if status != 0 else None
        except (Fault, AssertionError, EOFError) as fault:
            return f"{program.lines[-1]}: {fault!r}"
        finally:
            program.kill()


def kit_reads(about, make, *words):
    """Runs the kit on such a file; it must report what is wrong."""
    with tempfile.TemporaryDirectory() as scratch:
        file = pathlib.Path(scratch, "V-file")
        make(file)
        started = time.monotonic()
        try:
            done = subprocess.run(
                [kit, *(word.format(file=file, folder=scratch) for word in words)],
                capture_output=True,
                timeout=20,
                preexec_fn=None if SANITIZED else limit_memory,
            )
        except subprocess.TimeoutExpired:
            return "it waits"
        told = (
            f"{file}:1: a line is longer than 16 MB"
            if words[:2] == ("study", "check") and about == "10 GB"
            else str(file)
        )
        if done.returncode in (1, 2) and told in done.stderr.decode():
            return None
        return (
            f"{time.monotonic() - started:.1f} s, status {done.returncode}: {done.stderr.decode()}"
        )


def limit_memory():
    import resource

    resource.setrlimit(resource.RLIMIT_DATA, (400 << 20, 400 << 20))


KIT_WORDS = [
    ("study", "check", "{file}"),
    ("study", "make", "{file}", "--bible", disc, "--to", "{folder}"),
    ("bible", "import", "--from", "{file}", "--as", "kjv", "--to", "{folder}/to"),
    ("answers", "restore", "{file}", "--user", "{folder}/user"),
]

faults = 0
only = os.environ.get("ATTACK", "")
for about, spoil in ROWS.items():
    if only in about:
        fault = attack(about, spoil)
        faults += fault is not None
        print(f"{about}: {fault or 'nothing happened'}", flush=True)
for about, make in {
    "10 GB": sparse,
    "a pipe": pipe,
    "an endless device": link("/dev/zero"),
    "a folder": folder,
}.items():
    for words in KIT_WORDS:
        if only in about:
            fault = kit_reads(about, make, *words)
            faults += fault is not None
            print(f"kit {' '.join(words)}, {about}: {fault or 'refused'}", flush=True)
sys.exit(1 if faults else 0)
