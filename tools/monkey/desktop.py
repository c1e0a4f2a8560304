#!/usr/bin/python3
"""Performs random actions on the desktop program, on a virtual screen:
tests/walk/road.sh ../../tools/monkey/desktop 1024x768 96 DISC PICTURES

Environment variables: MONKEY_SEED (1), MONKEY_ROUNDS (3) and MONKEY_ACTIONS for each round (40).
Each round starts the program in the same user's folder, and ends by closing windows until the
program has ended. It must end by itself and without messages, and what was in its boxes then must
be stored."""

import os
import pathlib
import random
import sys
import time

here = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(here.parents[1] / "tests" / "walk"), str(here.parent)]
import person  # noqa: E402
from person import click_at, control, expect, start, text_of, user, wait  # noqa: E402
from program import stored  # noqa: E402

seed = int(os.environ.get("MONKEY_SEED", 1))
rounds = int(os.environ.get("MONKEY_ROUNDS", 3))
actions = int(os.environ.get("MONKEY_ACTIONS", 40))
chance = random.Random(seed)
# Without a printer, printing writes files to the user's documents.
person.environment["HOME"] = user.name
store = pathlib.Path(user.name, "sparrowfield")

KEYS = (
    "Tab",
    "shift+Tab",
    "Return",
    "space",
    "Escape",
    "Up",
    "Down",
    "Left",
    "Right",
    "Page_Up",
    "Page_Down",
    "Home",
    "End",
    "BackSpace",
    "Delete",
    "ctrl+a",
    "ctrl+c",
    "ctrl+x",
    "ctrl+v",
    "ctrl+z",
    "F1",
    "F10",
    "alt+Tab",
)
MENUS = "fembohfemb"
BOXES = (("frmMain", "Text3"), ("frmBible", "txtNotes"))


def keys(*names):
    """Presses keys without checking which window gets them, or whether there is one."""
    person.desk.press_keys(*names)
    time.sleep(0.25)


def type_text(text):
    person.desk.type_text(text)
    time.sleep(0.25)


def click_somewhere():
    width, height = (int(side) for side in person.screen.split("x"))
    click_at(chance.randrange(width), chance.randrange(height))


def open_menu():
    keys("alt+" + chance.choice(MENUS))
    keys(
        *chance.choices(("Down", "Down", "Up", "Right"), k=chance.randint(0, 4)),
        chance.choice(("Return", "Escape")),
    )


def answer():
    """Types into the box of a lesson or chapter, if one is shown."""
    box = next(filter(None, (control(*box, missing_is_fine=True) for box in BOXES)), None)
    if box:
        person.click(box)
    type_text(chance.choice(("grace and peace ", "two\nlines ", "<&> ", "x")))


def act():
    chance.choice(
        (
            click_somewhere,
            click_somewhere,
            open_menu,
            answer,
            lambda: keys(*chance.choices(KEYS, k=chance.randint(1, 5))),
        )
    )()


def shown():
    """The texts in the boxes that are shown."""
    return [
        text
        for form, name in BOXES
        if control(form, name, missing_is_fine=True) and (text := text_of(form, name))
    ]


def close_all():
    for _ in range(40):
        if person.process.poll() is not None:
            return
        keys("Escape")
        keys("alt+F4")
    wait(
        lambda: person.process.poll() is not None, "the program to end when its windows are closed"
    )


def plain(text):
    return text.replace("\r\n", "\n")


def to_the_lesson():
    person.keys("space")
    wait(lambda: person.is_open("frmContents"), "the catalogue")
    for is_next in (
        lambda name: ":" in name,
        lambda name: name.startswith("Lesson 1:"),
        lambda name: name == "Part One",
    ):
        tree = control("frmContents", "TreeView1")
        person.click(
            wait(
                lambda: person.search(
                    tree, lambda node: is_next(node.get_name()) and person.showing(node)
                ),
                "a way to a lesson",
            ),
            x=12,
        )
    wait(
        lambda: person.is_open("frmWelcome") or person.is_open("frmMain"),
        "the lesson or the welcome before it",
    )
    if person.is_open("frmWelcome"):
        person.keys("Return")
        wait(lambda: person.is_open("frmMain"), "the lesson")
    answer()


def one_round(number):
    start()
    to_the_lesson()
    for _ in range(actions):
        if person.process.poll() is not None:
            break
        act()
    texts = shown() if person.process.poll() is None else []
    close_all()
    expect(
        person.process.returncode == 0,
        f"round {number}: the program ended by itself, {len(texts)} boxes with text at the end",
    )
    kept = [plain(text) for text in stored(store).values()]
    for text in texts:
        expect(plain(text) in kept, f"round {number}: {plain(text)[:60]!r} is stored")
    return len(kept)


kept = [one_round(number) for number in range(1, rounds + 1)]
names = [
    file.name
    for file in store.rglob("*")
    if ".damaged-" in file.name or ".old-" in file.name or file.name.startswith(".new-")
]
expect(not names, f"nothing was set aside or left behind: {names}")
print(f"   {kept[-1]} texts are stored in the end")
