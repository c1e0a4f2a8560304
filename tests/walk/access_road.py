#!/usr/bin/python3
"""Checks every window against docs/accessibility.md, and answers a lesson by keys alone."""

import os
import time

import person
from access import check, check_all, check_contrast, check_names, lowest
from person import *  # noqa: F403


def open_and_check(menu, letter, form, ends_at=None):
    keys(menu)
    keys(letter)
    check_all(form, check(form, ends_at))
    keys("alt+F4")
    wait(lambda: not is_open(form), f"{form} to close")


def reader():
    keys("alt+b", "r")
    seen = check("frmBible")
    keys("Tab", "Tab", "Tab", "Tab")
    type_text("A note, so that Print is enabled.")
    check_all("frmBible", seen | check("frmBible", begins_at="txtNotes"))
    keys("alt+F4")
    wait(lambda: not is_open("frmBible"), "frmBible to close")


def lesson_and_answer():
    seen = check("frmMain")
    type_text("Written by keys alone")
    seen |= check("frmMain")  # with "Next >" enabled
    keys("Tab", "Return")
    check_all("frmAnswer", check("frmAnswer"))
    keys("Escape")
    wait(lambda: not is_open("frmAnswer"), "the answer window to close")
    keys("Tab", "Tab", "Return")  # from the lamp past the page bar to "Next >"
    wait(lambda: control("frmMain", "lblPageTitle").get_name() == "2.", "page 2 by keys alone")
    seen |= check("frmMain")  # with "< Prev" enabled
    check_all("frmMain", seen)


def walk():
    start()
    check_all("frmSplash", check("frmSplash"))
    keys("Tab")  # any key will do
    seen = check("frmContents")
    keys("Down", "Return")
    time.sleep(0.5)
    check_all("frmContents", seen | check_names("frmContents"))
    check_contrast("frmContents")
    open_and_check("alt+h", "g", "frmGettingStarted")
    open_and_check("alt+h", "w", "frmWelcome")
    open_and_check("alt+h", "a", "frmAbout")
    open_and_check("alt+o", "f", "frmFinalExam")
    reader()
    open_and_check("alt+m", "1", "frmMap", ends_at="Picture2")
    if os.path.exists(os.path.join(disc, "sparrowfield.wmv")):
        open_and_check("alt+h", "v", "frmVideo")
    keys("Right", "Down", "Right", "Down", "Return")  # to the first lesson and its first part
    wait(lambda: is_active("frmWelcome"), "the welcome dialog")
    keys("Return")
    wait(lambda: is_active("frmMain") and control("frmMain", "Text3", True), "the lesson")
    lesson_and_answer()
    keys("alt+f", "x")
    expect(wait_for_end() == 0, "the program ends by its menu")
    print(
        "   lowest contrast:",
        "; ".join(f"{ratio:.1f} {what}" for ratio, what in sorted(set(lowest))[:4]),
        flush=True,
    )


try:
    walk()
finally:
    person.end_of_walk()
