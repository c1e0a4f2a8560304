#!/usr/bin/python3
"""Kills the desktop program at random moments while a user types an answer. Text typed more than a
second (plus the time of a flush) before the kill must be stored, and the stored text must be what
was typed. A walk for tests/walk/road.sh; the environment variable KILLS sets the number of
kills."""

import os
import random
import sqlite3
import sys
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../tests/walk"))

import person  # noqa: E402
from person import *  # noqa: E402, F403

SECOND, FLUSH = (
    1.0,
    0.5,
)  # the timer's second, and time for a key, a tick and a flush on a busy machine
WORDS = "in the beginning was the word and the word was with god "
chance = random.Random(int(os.environ.get("SEED", "0")) or None)
database = os.path.join(user.name, "sparrowfield", "settings.db")


def stored():
    """The only answer in the store."""
    with sqlite3.connect(f"file:{database}?mode=ro", uri=True) as store:
        rows = store.execute("select key, value from settings").fetchall()
    answers = [
        value.decode("utf-16-be") for key, value in rows if key.decode("utf-16-be") == "Page1"
    ]
    return answers[0] if answers else ""


def open_lesson():
    start()
    keys("Return")
    wait(lambda: is_open("frmContents"), "the catalogue")
    tree = control("frmContents", "TreeView1")
    click(wait(lambda: search(tree, lambda n: showing(n) and ":" in n.get_name()), "a study"), x=12)
    click(
        wait(
            lambda: search(tree, lambda n: n.get_name().startswith("Lesson 1:") and showing(n)),
            "lesson 1",
        ),
        x=12,
    )
    click_item("frmContents", "TreeView1", "Part One")
    wait(lambda: is_open("frmMain") or is_open("frmWelcome"), "the way into the lesson")
    if is_open("frmWelcome"):
        keys("Return")
    wait(lambda: is_open("frmMain") and control("frmMain", "Text3", True), "the lesson")


def type_until_killed(typed):
    """Types a few letters at a time and records when each group was sent."""
    text = ""
    while person.process.poll() is None:
        lot = (WORDS * 20)[len(text) : len(text) + chance.randint(1, 6)]
        desk.run("xdotool", "type", "--delay", "15", lot)
        text += lot
        typed.append((time.monotonic(), text))


def one_kill():
    open_lesson()
    before = stored()
    if len(before) > 400:
        keys("ctrl+a", "Delete")
        wait(lambda: stored() == "", "an emptied box to be stored", 2 * (SECOND + FLUSH))
        before = ""
    typed = []
    typing = threading.Thread(target=type_until_killed, args=(typed,))
    typing.start()
    time.sleep(chance.uniform(0.2, 4))
    end = time.monotonic()
    kill()
    typing.join()
    found = stored()
    due = [text for when, text in typed if when < end - SECOND - FLUSH]
    whole = before + typed[-1][1] if typed else before
    if not whole.startswith(found) or len(found) < len(before) + len(due[-1] if due else ""):
        fail(f"stored is {found!r}, due was {before + (due[-1] if due else '')!r}, typed {whole!r}")
    return len(whole) - len(found)


try:
    lost = [one_kill() for _ in range(int(os.environ.get("KILLS", "5")))]
    print(f"   {len(lost)} kills: at most {max(lost)} letters of the last second lost")
finally:
    person.end_of_walk()
