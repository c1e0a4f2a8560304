#!/usr/bin/python3
"""The main path: from the start-up screen to a lesson, answers, publisher's answer, catalogue,
second part, and a restart after a power cut."""

import time

import person
from person import *  # noqa: F403


def answer_page(text):
    desk.point_at(5, 5)
    type_text(text)
    expect_soon(
        lambda: text in text_of("frmMain", "Text3"), f"the answer box holds what was typed: {text}"
    )


def label():
    return control("frmMain", "lblPageTitle").get_name()


def next_page():
    before = label()
    click(control("frmMain", "Command1"))
    wait(lambda: label() != before, "the next page")


PANES = ("Text1", "Text2", "Text3", "Text4")


def widths():
    return [letters_width("frmMain", name) for name in PANES]


def make_letters_larger(before):
    places = [desk.box_of(control("frmMain", name)) for name in PANES]
    keys("ctrl+plus", "ctrl+KP_Add", "ctrl+equal")
    expect_soon(
        lambda: all(new >= old * 1.4 for new, old in zip(widths(), before)),
        "Ctrl with plus makes the letters of all four texts larger",
    )
    expect(
        places == [desk.box_of(control("frmMain", name)) for name in PANES], "and moves no control"
    )
    shot("6-larger")
    click(control("frmMain", "Image1"))
    wait(lambda: is_active("frmAnswer"), "the publisher's answer")
    shot("6-larger-answer")
    keys("ctrl+0")
    expect_soon(lambda: widths() == before, "Ctrl and 0 makes them as they were")
    keys("Escape")
    wait(lambda: not is_open("frmAnswer"), "the answer window to close")


def walk():
    start()
    expect(is_open("frmSplash"), "the start-up screen is the first window")
    shot("0-start")
    click(control("frmSplash", "lblRunFromCD"))
    wait(lambda: is_active("frmContents"), "the catalogue")
    expect(not is_open("frmSplash"), "Run from CD leads to the catalogue")
    shot("1-catalogue")
    study = search(
        control("frmContents", "TreeView1"), lambda node: showing(node) and ":" in node.get_name()
    )
    title = study.get_name()
    click(study, x=12)
    expect_soon(
        lambda: title in text_of("frmContents", "lblStudy"),
        f"the study's title stands beside its description: {title}",
    )
    expect(len(text_of("frmContents", "txtDesc")) > 40, "and so does the description")
    shot("2-study")
    tree = control("frmContents", "TreeView1")
    lesson = wait(
        lambda: search(
            tree, lambda node: node.get_name().startswith("Lesson 1:") and showing(node)
        ),
        "lesson 1",
    )
    click(lesson, x=12)
    click_item("frmContents", "TreeView1", "Part One")
    wait(lambda: is_active("frmWelcome"), "the welcome dialog")
    expect(True, "the welcome dialog comes up on the way into the first lesson")
    shot("3-welcome")
    click(control("frmWelcome", "Command1"))
    wait(lambda: is_active("frmMain") and control("frmMain", "Text3", True), "the lesson")
    time.sleep(0.5)
    expect(not is_open("frmContents"), "the lesson has taken the catalogue's place")
    shot("4-lesson")
    first_label = label()
    answers = ["My first answer", "My second answer", "My third answer"]
    answer_page(answers[0])
    keys("ctrl+a", "ctrl+x")
    expect_soon(lambda: text_of("frmMain", "Text3") == "", "Cut takes the answer away")
    keys("ctrl+z")
    expect_soon(lambda: text_of("frmMain", "Text3") == answers[0], "and Ctrl+Z brings it back")
    keys("End")
    click(control("frmMain", "Image1"))
    wait(lambda: is_active("frmAnswer"), "the publisher's answer")
    expect(
        len(control("frmAnswer", "Label1").get_name()) > 10, "the publisher's answer can be read"
    )
    shot("5-answer")
    keys("Escape")
    wait(lambda: not is_open("frmAnswer"), "the answer window to close")
    next_page()
    answer_page(answers[1])
    next_page()
    answer_page(answers[2])
    next_page()
    keys("ctrl+p")
    plain = printed("*[!2].pdf", "6-printed")
    keys("ctrl+shift+p")
    full = printed("* 2.pdf", "6-printed-all")
    expect(
        all(answer in plain and answer in full for answer in answers),
        "Ctrl+P and Ctrl+Shift+P print the answers of the lesson",
    )
    expect(
        "Answer from Sparrowfield:" in full and "Answer from Sparrowfield:" not in plain,
        "the publisher's with Shift alone",
    )
    click(control("frmMain", "Command2"))
    wait(lambda: text_of("frmMain", "Text3") == answers[2], "the third answer")
    designed = widths()
    make_letters_larger(designed)
    next_page()
    bar = control("frmMain", "ctlScrollbar")
    rest_on(bar, x=60)
    shot("6-page")
    expect(bar.get_description().startswith("Page 4 of "), "the tip of the page bar tells the page")
    passages = control("frmMain", "TreeView1")
    last = [node for node in children(passages) if node.get_name()][-1]
    click(last, x=12)
    shot("7-passage")
    left, top, width, height = desk.box_of(bar)
    desk.point_at(left + width / 2, top + height / 2)

    def turn_back():
        desk.turn_wheel_up()
        time.sleep(0.25)
        return label() == first_label

    wait(turn_back, "page 1 by the wheel over the scroll bar")
    expect(
        answers[0] in text_of("frmMain", "Text3"), "the scroll bar leads back to the first answer"
    )
    next_page()
    second_label = label()
    expect(answers[1] in text_of("frmMain", "Text3"), "the second answer is in its place")
    keys("alt+f")
    shot("8-menu")
    keys("c")
    wait(lambda: is_active("frmContents"), "the catalogue again")
    expect(not is_open("frmMain"), "the catalogue has taken the lesson's place")
    for part, same in (("Part Two", False), ("Part One", True)):
        click_item("frmContents", "TreeView1", title)
        tree = control("frmContents", "TreeView1")
        lesson = wait(
            lambda: search(tree, lambda n: n.get_name().startswith("Lesson 1:") and showing(n)),
            "lesson 1",
        )
        if not same:
            rest_on(lesson, x=12)
            shot("8-done")
            expect(
                lesson.get_description() == "Part One: 3 pages answered, last at page 2",
                "the tip of the lesson tells what is done in it",
            )
        click(lesson, x=12)
        click_item("frmContents", "TreeView1", part)
        wait(lambda: is_active("frmMain") and control("frmMain", "Text3", True), part)
        time.sleep(0.5)
        expect(not is_open("frmWelcome"), "no welcome dialog this time")
        if same:
            expect(label() == second_label, "Part One opens at the page that was left")
            expect(answers[1] in text_of("frmMain", "Text3"), "with its answer in place")
        else:
            expect(answers[1] not in text_of("frmMain", "Text3"), "Part Two has answers of its own")
            shot("9-part-two")
            keys("alt+f", "c")
            wait(lambda: is_active("frmContents"), "the catalogue")
    keys("ctrl+End")
    type_text(", and more")
    next_page()
    keys("ctrl+plus")
    wait(lambda: letters_width("frmMain", "Text2") > designed[1], "larger letters")
    kill()
    start()
    keys("space")
    wait(lambda: is_active("frmContents"), "the catalogue")
    expect(True, "any key leads there too")
    click_item("frmContents", "TreeView1", title)
    tree = control("frmContents", "TreeView1")
    click(
        wait(
            lambda: search(tree, lambda n: n.get_name().startswith("Lesson 1:") and showing(n)),
            "lesson 1",
        ),
        x=12,
    )
    click_item("frmContents", "TreeView1", "Part One")
    wait(lambda: is_active("frmWelcome"), "the welcome dialog")
    keys("Return")
    wait(lambda: is_active("frmMain") and control("frmMain", "Text3", True), "the lesson")
    time.sleep(0.5)
    expect(
        answers[2] in text_of("frmMain", "Text3"),
        "after a kill the lesson opens at the page that was gone to",
    )
    click(control("frmMain", "Command2"))
    wait(lambda: label() == second_label, "the page before")
    expect(
        answers[1] + ", and more" in text_of("frmMain", "Text3"),
        "and the answer of the page left before the kill is there",
    )
    expect(
        letters_width("frmMain", "Text2") > designed[1], "and the letters are as large as they were"
    )
    keys("alt+f", "x")
    expect(wait_for_end() == 0, "the program ends by its menu")


try:
    walk()
finally:
    person.end_of_walk()
