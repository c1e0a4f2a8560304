#!/usr/bin/python3
"""All windows: the start-up screen's choices, then every menu entry of both main screens, twice in
one run of the program."""

import os
import time

import person
from person import *  # noqa: F403

hasVideo = os.path.exists(os.path.join(disc, "sparrowfield.wmv"))
helpWindows = {  # the letters of the menus, the window, and how it is closed
    "getting-started": ("alt+h", "g", "frmGettingStarted", "Command1"),
    "welcome": ("alt+h", "w", "frmWelcome", "Command1"),
    "about": ("alt+h", "a", "frmAbout", "cmdOK"),
    "final-exam": ("alt+o", "f", "frmFinalExam", "Command1"),
}


def expect_owner(owner, form):
    expect(
        desk.is_above(desk.active_window(), owner),
        f"{form} can't be lost behind the window that called it",
    )


def open_by_menu(menu, letter, form):
    keys(menu)
    keys(letter)
    wait(lambda: is_active(form), form)


def close_active(form):
    keys("alt+F4")
    wait(lambda: not is_open(form), f"{form} to close")


def through_the_menus(screen_name, picture):
    for name, (menu, letter, form, button) in helpWindows.items():
        open_by_menu(menu, letter, form)
        if picture:
            shot(f"{picture}-{name}")
        expect(is_open(screen_name), f"{form} stands beside {screen_name}")
        click(control(form, button))
        wait(lambda: not is_open(form), f"{form} to close")
    if screen_name == "frmContents" and hasVideo:
        open_by_menu("alt+h", "v", "frmVideo")
        time.sleep(3)
        if picture:
            shot(f"{picture}-video")
        close_active("frmVideo")


def open_lesson():
    tree = control("frmContents", "TreeView1")
    if not search(tree, lambda n: n.get_name() == "Part One" and showing(n)):
        click(search(tree, lambda n: showing(n) and ":" in n.get_name()), x=12)
        lesson = wait(
            lambda: search(tree, lambda n: n.get_name().startswith("Lesson 1:") and showing(n)),
            "lesson 1",
        )
        click(lesson, x=12)
    catalogue = desk.active_window()
    click_item("frmContents", "TreeView1", "Part One")
    wait(lambda: is_active("frmMain") or is_active("frmWelcome"), "the way into the lesson")
    if is_open("frmWelcome"):
        if not is_open("frmMain"):
            expect_owner(catalogue, "frmWelcome")
        keys("Return")
    wait(lambda: is_active("frmMain") and control("frmMain", "Text3", True), "the lesson")
    time.sleep(0.5)


def walk():
    start()
    splash = desk.active_window()
    if desk.TELLS_HINTS:
        expect(not desk.is_in_task_bar(splash), "the start-up screen isn't in the task bar")
    shot("a-start")
    if hasVideo:
        click(control("frmSplash", "lblWelcomeVideo"))
        wait(lambda: is_active("frmVideo"), "the welcome video")
        time.sleep(4)
        shot("a-video")
        expect_owner(splash, "frmVideo")
        for what in ("RESIZE", "MINIMIZE", "MAXIMIZE_VERT", "CLOSE") if desk.TELLS_HINTS else ():
            expect(desk.lets_user(desk.active_window(), what), f"the video's window has {what}")
        close_active("frmVideo")
        expect(is_open("frmSplash"), "the start-up screen stays behind the video")
    keys("Return")
    wait(lambda: is_active("frmContents"), "the catalogue")
    for turn in (1, 2):
        through_the_menus("frmContents", "b" if turn == 1 else None)
        open_lesson()
        through_the_menus("frmMain", "c" if turn == 1 else None)
        keys("alt+f", "c")
        wait(lambda: is_active("frmContents"), "the catalogue again")
        expect(True, f"every menu entry, turn {turn}")
    open_by_menu("alt+h", "a", "frmAbout")
    keys("Escape")
    wait(lambda: not is_open("frmAbout"), "frmAbout to close by Escape")
    keys("alt+f", "x")
    expect(wait_for_end() == 0, "the program ends by its menu")


try:
    walk()
finally:
    person.end_of_walk()
