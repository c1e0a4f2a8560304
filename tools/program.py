"""Runs the program without a screen for the tools in this folder: one copy, driven line by line,
and the content of its user's folder."""

import json
import os
import pathlib
import re
import select
import sqlite3
import subprocess

NOTES = "drive_c/Program Files/Sparrowfield Interactive Software/notes"
# The place for the users' folders: in memory if possible, because each store is flushed.
FOLDERS = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
PATIENCE = 60  # seconds; the slowest command takes a few under the sanitizers


class Ended(Exception):
    """The program ended before it answered."""


class Fault(Exception):
    """The program broke a rule."""


class Program:
    """A running copy. `environment` is that of its process; the other arguments are described in
    docs/drive.md."""

    def __init__(self, drive, disc, user, environment=None):
        self.lines = []  # the commands sent
        self.said = b""  # output that wasn't read yet
        self.process = subprocess.Popen(
            [drive, "--app", disc, "--data", disc, "--user", str(user)],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env=environment,
        )

    def ask(self, *words):
        """Sends a command without waiting for its answer."""
        line = " ".join(
            word if re.fullmatch(r"[A-Za-z0-9._:-]+", word) else json.dumps(word)
            for word in map(str, words)
        )
        self.lines.append(line)
        try:
            self.process.stdin.write(line.encode() + b"\n")
            self.process.stdin.flush()
        except BrokenPipeError as error:
            raise Ended from error

    def answer(self):
        while b"\n" not in self.said:
            if not select.select([self.process.stdout], [], [], PATIENCE)[0]:
                raise Fault(f"{self.lines[-1]}: no answer in {PATIENCE} seconds")
            block = os.read(self.process.stdout.fileno(), 1 << 20)
            if not block:
                raise Ended
            self.said += block
        line, _, self.said = self.said.partition(b"\n")
        return json.loads(line)

    def attempt(self, *words):
        """The answer, which may be an error."""
        self.ask(*words)
        return self.answer()

    def attempt_all(self, *commands):
        """The answers to several commands sent at once, which is faster on a busy machine."""
        for command in commands:
            self.ask(*command)
        return [self.answer() for _ in commands]

    def do(self, *words):
        answer = self.attempt(*words)
        if "error" in answer:
            raise Fault(f"{self.lines[-1]}: {answer['error']}")
        return answer

    def get(self, path):
        return self.do("get", path)["value"]

    def forms(self):
        return [form["name"] for form in self.do("forms")["forms"] if form["visible"]]

    def end(self):
        """Ends the script, which closes the forms; returns the exit status and the error output."""
        try:
            self.process.stdin.close()
        except BrokenPipeError:
            pass
        try:
            said = self.process.stderr.read().decode(errors="replace")
            self.process.stdout.read()
            return self.process.wait(60), said
        finally:
            self.kill()

    def kill(self):
        self.process.kill()
        self.process.wait()


def plain(raw, encoding):
    """A text as the driver prints it: an unpaired surrogate is shown as three U+FFFD."""
    try:
        return re.sub("[\ud800-\udfff]", "\ufffd" * 3, raw.decode(encoding, "surrogatepass"))
    except UnicodeDecodeError as error:
        raise Fault(f"half of a text is stored: {error}") from error


def stored_answers(user):
    """The non-empty answers in the settings store, by lesson and page; none if there is no
    store."""
    store = pathlib.Path(user) / "settings.db"
    if not store.exists() or store.stat().st_size == 0:
        return {}
    with sqlite3.connect(f"file:{store}?mode=ro", uri=True) as database:
        faults = [row[0] for row in database.execute("pragma quick_check")]
        rows = database.execute("select section, key, value from settings").fetchall()
    database.close()
    if faults != ["ok"]:
        raise Fault(f"{store}: {faults}")
    found = {}
    for section, key, value in rows:
        section, key, value = (plain(part, "utf-16-be") for part in (section, key, value))
        if (page := re.fullmatch(r"Page(\d+)", key)) and value:
            found["answer", section, int(page[1])] = value
    return found


def note_forms(file):
    """The texts in the files of a note: exact ones, if any, then the one in the code page."""
    exact = [file.with_name(file.name + ending) for ending in (".utf8", ".utf8-next")]
    return [plain(beside.read_bytes(), "utf-8") for beside in exact if beside.exists()] + [
        file.read_bytes().decode("cp1252", "replace")
    ]


def stored_notes(user):
    """The non-empty notes, by file name without extension."""
    found = {
        ("note", file.stem): note_forms(file)[0]
        for file in (pathlib.Path(user) / NOTES).glob("*.dat")
    }
    return {place: text for place, text in found.items() if text}


def stored(user):
    return stored_answers(user) | stored_notes(user)
