#!/usr/bin/env python3
"""Performs random actions on the program and compares its store with what was in its boxes.

    monkey.py DRIVE DISC [--seed N] [--actions N]       a seed repeats the same actions
    monkey.py DRIVE DISC --hours H                      one seed after the other, from --seed on, 2,000 actions each
    ... --show                                          prints the commands as a script for the driver

DRIVE is sparrowfield-drive. These rules must hold after each action:
 - every answer and note that isn't shown is stored unchanged;
 - for a box that was left, its last text is stored; for one that is shown, its present text or an
   earlier one;
 - a page or chapter that is newly shown has the stored text."""

import argparse
import collections
import pathlib
import random
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from actions import Actions  # noqa: E402
from program import FOLDERS, Ended, Fault, Program, stored  # noqa: E402

Shown = collections.namedtuple("Shown", "place text has_focus")
DELETE = ("click", "frmMain.mnuEditDeleteLesson")


def lesson_names(drive, disc):
    """The study keys of the lessons, by their titles on the lesson screen."""
    names = {}
    with tempfile.TemporaryDirectory(dir=FOLDERS) as user:
        program = Program(drive, disc, user)
        program.do("setting", "Parameters", "showhelp", "false")
        program.do("press", "frmSplash", 32)
        for node in program.do("tree", "frmContents.TreeView1")["nodes"]:
            program.do("node", "frmContents.TreeView1", node["key"])
            if "frmMain" in program.forms():
                names[title(program.do("dump", "frmMain"))] = node["key"]
                program.do("click", "frmMain.mnuFileClose")
        program.end()
    return names


def title(dump):
    return dump["controls"]["lblStudy"]["Caption"], dump["controls"]["XPContainer3"]["Caption"]


class Monkey:
    def __init__(self, drive, disc, user, chance, lessons):
        self.drive, self.disc, self.user, self.chance, self.lessons = (
            drive,
            disc,
            user,
            chance,
            lessons,
        )
        self.actions = Actions(chance)
        self.kept = {}  # what is stored
        self.stores = 0  # how often it has changed
        self.lines = []  # of all runs
        self.start()

    def start(self):
        self.program = Program(self.drive, self.disc, self.user)
        self.program.lines = self.lines
        self.boxes = {}  # by form
        self.held = {}  # for each box that is shown, its texts since it was filled
        self.look()

    def look(self, forms=None):
        """Reads what is shown: the active form and the boxes."""
        forms = self.program.do("forms")["forms"] if forms is None else forms
        self.form = next((form["name"] for form in forms if form["active"]), None)
        wanted = [
            form["name"]
            for form in forms
            if form["name"] == self.form
            or (form["visible"] and form["name"] in ("frmMain", "frmBible"))
        ]
        dumps = dict(zip(wanted, self.program.attempt_all(*(("dump", name) for name in wanted))))
        self.dump = dumps.get(self.form)
        self.boxes = {}
        for name, dump in dumps.items():
            box = (
                self.answer_box(dump)
                if name == "frmMain"
                else self.note_box(dump)
                if name == "frmBible"
                else None
            )
            if box:
                self.boxes[name] = box._replace(has_focus=box.has_focus and name == self.form)

    def answer_box(self, dump):
        text = dump["controls"]["Text3"]
        if not text["Visible"]:
            return None
        place = ("answer", self.lessons[title(dump)], dump["controls"]["ctlScrollbar"]["Value"])
        # In a minimised window the host decides what has the focus.
        return Shown(
            place, text["Text"], dump["focus"] == "Text3" or dump["form"]["WindowState"] == 1
        )

    def note_box(self, dump):
        """The box of the note. A note is stored when the chapter or the form is left; until then
        its box counts as focused."""
        name = dump["controls"]["XPContainer4"]["Caption"].removeprefix("Notes for ")
        if dump["controls"]["txtNotes"]["Locked"]:
            return None
        book, _, chapter = name.rpartition(" ")
        return Shown(
            ("note", book + chapter if chapter[0].isdigit() else name),
            dump["controls"]["txtNotes"]["Text"],
            True,
        )

    def step(self):
        action = (
            self.actions.make(self.program, self.form, self.dump)
            if self.form
            else ("close", "frmSplash")
        )
        in_turn = self.chance.random() < 0.05 and action != DELETE and action[0] != "program-ends"
        if in_turn:
            self.program.do("turn", self.chance.randint(1, 3000), *action)
            action = self.actions.make(self.program, self.form, self.dump)
        before = self.boxes
        try:
            _, running, messages, forms = self.program.attempt_all(
                action, ("running",), ("messages",), ("forms",)
            )
            runs = running["running"]
        except Ended:
            runs = False
            if action[0] != "program-ends":
                raise Fault(f"the program is gone: {self.program.end()[1]}") from None
        if runs:
            self.expect_quiet(messages["messages"])
            self.look(forms["forms"])
        else:
            self.boxes = {}
            status, said = self.program.end()
            if status not in (0, 1) or said:  # 1: a command was refused
                raise Fault(f"the program ended with status {status}: {said}")
        self.verify(before, action, in_turn)
        if not runs:
            self.start()

    def expect_quiet(self, messages):
        for message in messages:
            if "settings.db" in message["text"] or "can't be" in message["text"]:
                raise Fault(message["text"])

    def verify(self, before, action, in_turn):
        now = stored(self.user)
        self.held = {
            place: held
            for place, held in self.held.items()
            if any(box.place == place for box in before.values())
        }
        for box in list(before.values()) + list(self.boxes.values()):
            self.held.setdefault(box.place, set()).add(box.text)
        for place in set(now) | set(self.kept):
            text = now.get(place, "")
            deleted = action == DELETE and text == "" and place[:2] == before["frmMain"].place[:2]
            if (
                text != self.kept.get(place, "")
                and text not in self.held.get(place, ())
                and not deleted
            ):
                raise Fault(f"{place} holds {text!r}, stored there was {self.kept.get(place)!r}")
        for form, box in before.items():
            after = self.boxes.get(form)
            is_left = after is None or after.place != box.place or not after.has_focus
            if (
                is_left
                and action not in (DELETE, ("program-ends",))
                and now.get(box.place, "") != box.text
            ):
                raise Fault(
                    f"{box.place} was left with {box.text!r}, stored is {now.get(box.place)!r}"
                )
            if after and after.place != box.place:
                del self.held[box.place]
        for form, box in self.boxes.items():
            is_new = form not in before or before[form].place != box.place
            if is_new and not in_turn and box.text != now.get(box.place, ""):
                raise Fault(f"{box.place} shows {box.text!r}, stored is {now.get(box.place)!r}")
        self.stores += now != self.kept
        self.kept = now


def run(drive, disc, seed, count, lessons, show):
    with tempfile.TemporaryDirectory(dir=FOLDERS) as user:
        monkey = Monkey(drive, disc, pathlib.Path(user), random.Random(seed), lessons)
        number = 0
        try:
            for number in range(1, count + 1):
                monkey.step()
            return monkey.stores
        except Fault as fault:
            last = [
                line
                for line in monkey.lines
                if not line.startswith(("forms", "dump", "messages", "running", "tree"))
            ][-12:]
            sys.exit(
                f"--seed {seed} --actions {number}: {fault}\nthe last it was told:\n   "
                + "\n   ".join(last)
            )
        finally:
            monkey.program.kill()
            if show:
                print("\n".join(monkey.lines))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("drive")
    parser.add_argument("disc")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--actions", type=int, default=2000)
    parser.add_argument("--hours", type=float, default=0)
    parser.add_argument("--show", action="store_true")
    options = parser.parse_args()
    lessons = lesson_names(options.drive, options.disc)
    end = time.monotonic() + options.hours * 3600
    seed, stores = options.seed, 0
    while True:
        stores += run(options.drive, options.disc, seed, options.actions, lessons, options.show)
        seed += 1
        if time.monotonic() > end:
            break
    runs = seed - options.seed
    print(
        f"{runs * options.actions} actions in {runs} runs, {stores} times something was stored, and nothing lost"
    )
    if stores < runs * options.actions / 100:
        sys.exit("too little was stored for this to mean anything")


if __name__ == "__main__":
    main()
