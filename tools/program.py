"""The program without a screen, run for the tools beside this file: one copy of it, asked a line at a time, and what its user's folder holds."""

import json
import os
import pathlib
import re
import select
import sqlite3
import subprocess

NOTES = "drive_c/Program Files/Sparrowfield Interactive Software/notes"
# Where the folders of the runs lie: in memory if that can be, since each storing is flushed.
FOLDERS = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
PATIENCE = 60  # seconds; the slowest command takes a few under the sanitizers


class Ended(Exception):
    """The program went while it was asked."""


class Fault(Exception):
    """The program did something that it must not do."""


class Program:
    """A running copy. `environment` is what its process gets; the rest is as in docs/drive.md."""

    def __init__(self, drive, disc, user, environment=None):
        self.lines = []  # what it was told
        self.said = b""  # what it has said and nobody read yet
        self.process = subprocess.Popen(
            [drive, "--app", disc, "--data", disc, "--user", str(user)],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env=environment,
        )

    def ask(self, *words):
        """Gives a command without waiting for its answer."""
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
        """The answer, which may be a refusal."""
        self.ask(*words)
        return self.answer()

    def attempt_all(self, *commands):
        """The answers to several commands given at once, which spares waiting where other programs keep the machine busy."""
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
        """Lets it end, which closes its forms; its exit status and what it said of errors."""
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
    """A text as the driver tells it: half of a character that takes two 16-bit ones is shown as three U+FFFD."""
    try:
        return re.sub("[\ud800-\udfff]", "\ufffd" * 3, raw.decode(encoding, "surrogatepass"))
    except UnicodeDecodeError as error:
        raise Fault(f"half of a text is stored: {error}") from error


def stored_answers(user):
    """The answers in the settings store, by lesson and page; empty ones left out. None if there is no store yet."""
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
    """The texts that stand in the files of a note: the exact ones, if there are any beside, then the code page's."""
    exact = [file.with_name(file.name + ending) for ending in (".utf8", ".utf8-next")]
    return [plain(beside.read_bytes(), "utf-8") for beside in exact if beside.exists()] + [
        file.read_bytes().decode("cp1252", "replace")
    ]


def stored_notes(user):
    """The notes that aren't empty, by the names of their files without the ending."""
    found = {
        ("note", file.stem): note_forms(file)[0]
        for file in (pathlib.Path(user) / NOTES).glob("*.dat")
    }
    return {place: text for place, text in found.items() if text}


def stored(user):
    return stored_answers(user) | stored_notes(user)
