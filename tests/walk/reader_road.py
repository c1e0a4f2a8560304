#!/usr/bin/python3
"""The Bible reader: lookup by typing, buttons, tree and translation; a note that is printed and
is still there when the reader is reopened."""

import time

import person
from person import *  # noqa: F403


def page():
    return text_of("frmBible", "Text1")


def open_reader():
    keys("alt+b")
    keys("r")
    wait(lambda: is_active("frmBible"), "the Bible reader")
    wait(lambda: len(page()) > 10, "its page")


def look_up(reference):
    click(control("frmBible", "txtVerse"))
    keys("ctrl+a")
    type_text(reference)
    keys("Return")


def status_says(text):
    return search(window_of("frmBible"), lambda node: node.get_name() == text and showing(node))


def note_caption():
    return control("frmBible", "XPContainer4").get_name()


def walk():
    start()
    keys("Return")
    wait(lambda: is_active("frmContents"), "the catalogue")
    open_reader()
    shot("d-reader")
    expect("For God so loved the world" in page(), "the reader opens with John 3:16")
    type_text("Luke 2")
    keys("Return")
    wait(
        lambda: "the world should be taxed" in page(),
        "Luke 2, typed over the reference at the opening",
    )
    type_text("Mark 1")
    keys("Return")
    expect_soon(
        lambda: "The beginning of the gospel" in page(), "a reference is typed over the one before"
    )
    expect(item("frmBible", "TreeView1", "Mark"), "the tree scrolls to its book")
    shot("d-typed-over")
    click(control("frmBible", "txtNotes"))
    keys("alt+Left")
    wait(lambda: "the world should be taxed" in page(), "Luke 2 by Alt+Left")
    click(control("frmBible", "Text1"))
    keys("alt+Left")
    wait(lambda: "For God so loved the world" in page(), "John 3:16 by Alt+Left once more")
    keys("alt+Right", "alt+Right", "alt+Right")
    expect_soon(
        lambda: "The beginning of the gospel" in page() and "taxed" not in page(),
        "Alt+Left and Alt+Right go through the references, wherever the focus is",
    )
    for reference, said in (
        ("Jude 5", "Jude has 1 chapter. For the verse type Jude 1:5"),
        ("John 3:99", "John 3 has 36 verses"),
        ("John 99", "John has 21 chapters"),
    ):
        look_up(reference)
        expect_soon(lambda said=said: status_says(said), said)
    shot("d-missing")
    look_up("psalm 23")
    expect_soon(
        lambda: "The LORD is my shepherd" in page() and "Chapter 23" in page(),
        "a reference that was typed comes up",
    )
    click(control("frmBible", "cmdNext"))
    wait(lambda: "The earth is the LORD" in page(), "Psalm 24")
    click(control("frmBible", "cmdPrev"))
    wait(lambda: "The LORD is my shepherd" in page(), "Psalm 23 again")
    click(control("frmBible", "txtNotes"))
    type_text(
        "He leads me, too."
        + " The column on the paper is as wide as the box, so this note is long enough for any screen."
        * 3
    )
    shot("d-note")
    click(control("frmBible", "cmdPrint"))
    note = printed("Sparrowfield note.pdf", "d-printed")
    expect(
        "He leads me, too." in note and len(note.split("\n")) > 2,
        "without a printer the note is in a PDF file",
    )
    keys("ctrl+p")
    notes = printed("*Notes on Psalms.pdf", "d-printed-book")
    expect(
        "Psalms 23" in notes and "He leads me, too." in notes,
        "Ctrl+P prints all notes on the book under their chapters",
    )
    look_up("Jude")
    expect_soon(
        lambda: "Chapter 1" in page() and note_caption() == "Notes for Jude", "a book of its own"
    )
    expect("He leads me" not in text_of("frmBible", "txtNotes"), "its note is another")
    shot("d-book")
    look_up("Psalms 23")
    wait(lambda: note_caption() == "Notes for Psalms 23", "Psalm 23 once more")
    version = control("frmBible", "cboVersion")
    Atspi.Component.grab_focus(version)
    click(version)
    keys("Down", "Return")
    wait(lambda: "Yahweh is my shepherd" in page(), "the other translation")
    expect(
        "He leads me, too." in text_of("frmBible", "txtNotes"),
        "the note is that of the chapter in both translations",
    )
    shot("d-translation")
    look_up("Nowhere 3")
    expect_soon(
        lambda: text_of("frmBible", "txtVerse") == "" and "Yahweh is my shepherd" in page(),
        "an unknown book empties the box, no more",
    )
    keys("alt+F4")
    wait(lambda: not is_open("frmBible"), "the reader to close")
    open_reader()
    expect("Yahweh is my shepherd" in page(), "the reader opens as it was left")
    expect("He leads me, too." in text_of("frmBible", "txtNotes"), "and so does the note")
    keys("alt+f", "x")
    wait(lambda: not is_open("frmBible"), "the reader to close by its menu")
    keys("alt+f", "x")
    expect(wait_for_end() == 0, "the program ends by its menu")


try:
    walk()
finally:
    person.end_of_walk()
