#!/usr/bin/env python3
"""Kills the program at random moments while a user types an answer and a note:
typing_kill.py DRIVER DISC [TIMES [SEED]].

The script types, undoes, lets the timers store, turns pages, saves and deletes without waiting for
answers. After each kill, the store and the notes must contain the text of the last store that was
answered, or of one that was under way: never less, and never part of a text."""

import pathlib
import random
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent))
from program import NOTES, Ended, Program  # noqa: E402

LESSON, PAGES, BOX, NOTE = "mount-1.dat:1", 4, "frmMain.Text3", "frmBible.txtNotes"


class Script:
    """Commands, and for each command what is stored in each place after it."""

    def __init__(self, stored, chance):
        self.stored, self.chance, self.page, self.chapter = dict(stored), chance, 1, "John3"
        self.box = {key: stored.get(key, "") for key in [*range(1, PAGES + 1), "John3", "John4"]}
        self.commands, self.after = [], []

    def add(self, *words):
        self.commands.append(words)
        self.after.append(dict(self.stored))

    def store(self, place, *words):
        self.stored[place] = self.box[place]
        self.add(*words)

    def go_to(self, page):
        if page != self.page:
            self.stored[self.page] = self.box[self.page]
            self.page = page
            self.add("scroll", "frmMain.ctlScrollbar", page)

    def type(self, place, control, timer):
        word = self.chance.choice(
            ["grace ", "peace ", "\u03c7\u03ac\u03c1\u03b9\u03c2 ", "two\r\nlines "]
        )
        if len(self.box[place]) > 300:
            self.add("select", control, 0, len(self.box[place]))
            self.box[place] = ""
        else:
            self.add("select", control, len(self.box[place]), 0)
        self.box[place] += word
        self.add("type", control, word)
        if self.chance.random() < 0.3:
            self.add("press", control, 8)
            self.box[place] = self.box[place][:-1]
        if self.chance.random() < 0.5:
            self.store(place, "tick", timer)

    def step(self):
        kind = self.chance.randrange(10)
        if kind < 5:
            self.stored[self.chapter] = self.stored.get(self.chapter, "")
            self.type(self.page, BOX, "frmMain.tmrStore")
        elif kind < 7:
            self.leave_answer()
            self.type(self.chapter, NOTE, "frmBible.tmrStore")
            self.add("focus", BOX)
        elif kind == 7:
            other = "John4" if self.chapter == "John3" else "John3"
            self.add("set", "frmBible.txtVerse.Text", other[:4] + " " + other[4:])
            self.leave_answer()
            self.stored[self.chapter], self.chapter = self.box[self.chapter], other
            self.add("click", "frmBible.cmdOkay")
            self.add("focus", BOX)
        elif kind == 8:
            self.go_to(self.chance.randint(1, PAGES))
        else:
            self.store(self.page, "click", "frmMain.mnuFileSave")

    def leave_answer(self):
        """Records that the next command leaves the box of the answer."""
        self.stored[self.page] = self.box[self.page]


def begin(drive, disc, user):
    program = Program(drive, disc, user)
    program.do("setting", "Parameters", "showhelp", "false")
    program.do("setting", "biblereader", "search", "John 3")
    program.do("setting", LESSON, "currentindex", "1")
    program.do("press", "frmSplash", 32)
    program.do("click", "frmContents.mnuBibleReader")
    program.do("node", "frmContents.TreeView1", LESSON)
    program.do("focus", BOX)
    return program


def stored_now(drive, disc, user):
    """The answers and notes that the next start of the program finds."""
    program = Program(drive, disc, user)
    found = {}
    for entry in program.do("settings")["settings"]:
        if entry["section"] == LESSON and entry["key"].startswith("Page"):
            found[int(entry["key"][4:])] = entry["value"]
    program.do("setting", "biblereader", "search", "John 3")
    program.do("press", "frmSplash", 32)
    program.do("click", "frmContents.mnuBibleReader")
    for chapter in ("John3", "John4"):
        program.do("set", "frmBible.txtVerse.Text", chapter[:4] + " " + chapter[4:])
        program.do("click", "frmBible.cmdOkay")
        found[chapter] = program.get(NOTE + ".Text")
    program.kill()
    return found


def one_kill(drive, disc, user, stored, chance):
    script = Script(stored, chance)
    while len(script.commands) < 400:
        script.step()
    program = begin(drive, disc, user)
    for words in script.commands:
        try:
            program.ask(*words)
        except Ended:
            break
    time.sleep(chance.uniform(0, 0.15))
    program.process.kill()
    answers = program.process.stdout.read().split(b"\n")[:-1]  # without a last, incomplete one
    program.process.wait()
    for answer in answers:
        if b"error" in answer:
            sys.exit(f"typing_kill: {answer}")
    done = len(answers)
    at_least = script.after[done - 1] if done else stored
    possible = [at_least] + script.after[done : done + 2]
    found = stored_now(drive, disc, user)
    for place, text in found.items():
        if text not in [each.get(place, "") for each in possible]:
            sys.exit(
                f"typing_kill: after {done} answers {place} holds {text!r}, not {at_least.get(place, '')!r}; "
                f"last {script.commands[max(0, done - 3):done + 2]}"
            )
    for place, text in at_least.items():
        if text and place not in found:
            sys.exit(
                f"typing_kill: after {done} answers nothing is stored for {place}, not {text!r}"
            )
    return found, done


def main():
    drive, disc = sys.argv[1:3]
    times = int(sys.argv[3]) if len(sys.argv) > 3 else 25
    seed = int(sys.argv[4]) if len(sys.argv) > 4 else random.randrange(10**6)
    chance = random.Random(seed)
    answered = 0
    with tempfile.TemporaryDirectory() as user:
        stored = {}
        for _ in range(times):
            stored, done = one_kill(drive, disc, user, stored, chance)
            answered += 0 < done < 400
        if not (pathlib.Path(user) / NOTES).is_dir():
            sys.exit("typing_kill: no note was written, so this means nothing")
    print(f"{times} kills, {answered} in the middle of typing, seed {seed}: nothing lost")
    if answered * 3 < times:
        sys.exit("typing_kill: too few came in the middle for this to mean anything")


main()
