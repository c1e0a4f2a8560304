#!/usr/bin/python3
"""The installer's window, by keys alone: from "Install to Disk" on the start-up screen to the
installed program, a repair, and the removal. A package has no installer; there this walk does
nothing."""

import filecmp
import os
import time

import person
from access import check, check_all, has
from person import *  # noqa: F403

copy = os.path.join(
    user.name,
    "sparrowfield/drive_c/Program Files/Sparrowfield House/Sparrowfield Interactive Software",
)


def says(text):
    return search(
        window_of("Setup"),
        lambda node: showing(node)
        and node.get_role_name() == "label"
        and node.get_name().startswith(text),
    )


def install():
    start()
    time.sleep(0.5)  # sway drops a click in the first moments of a window
    click(control("frmSplash", "lblInstallToDisk"))
    expect(wait_for_end() == 0, "Install to Disk ends the program")
    use_scale(person.asked_scale)
    seen = check("Setup")
    shot("f-setup")
    keys("Return")
    wait(lambda: says("Sparrowfield is installed."), "the end of the installation")
    expect(os.path.exists(os.path.join(copy, "sparrowfield.exe")), "the copy is installed")
    seen |= check("Setup")
    shot("f-installed")
    keys("Return")
    wait(lambda: is_active("frmSplash"), "the installed program")
    expect(not is_open("Setup"), "Setup gives way to the program that it starts")
    expect(
        not has(control("frmSplash", "lblInstallToDisk"), Atspi.StateType.ENABLED),
        "the installed copy doesn't offer to be installed",
    )
    use_scale(scale)  # as it was for the program
    shot("f-copy")
    click(control("frmSplash", "lblExit"))
    wait(lambda: not windows(), "the installed program's end")
    return seen


def repair():
    use_scale(person.asked_scale)
    damaged_file = os.path.join(copy, "biblekjv.idx")
    with open(damaged_file, "w", encoding="ascii") as damaged:
        damaged.write("damaged")
    start("Setup.exe")
    seen = check("Setup", begins_at="Repair")
    shot("f-repair")
    keys("Return")
    wait(lambda: says("Sparrowfield is installed."), "the end of the repair")
    expect(
        filecmp.cmp(damaged_file, os.path.join(disc, "biblekjv.idx"), shallow=False),
        "the repair put the damaged file right",
    )
    keys("alt+c")
    expect(wait_for_end() == 0, "Close ends Setup")
    return seen


def remove():
    start("Setup.exe")
    wait(lambda: is_active("Setup"), "Setup")
    keys("alt+u")
    check_all("SetupQuestion", check("SetupQuestion", begins_at="Keep"))
    shot("f-question")
    keys("Escape")
    wait(lambda: not is_open("SetupQuestion"), "the question to close")
    expect(os.path.exists(copy), "Escape keeps the copy")
    keys("alt+u")
    wait(lambda: is_active("SetupQuestion"), "the question again")
    keys("alt+u")
    wait(lambda: says("The copy was removed."), "the end of the removal")
    expect(not os.path.exists(copy), "the copy is gone")
    expect(control("Setup", "Install"), "and can be installed again")
    shot("f-removed")
    keys("Escape")
    expect(wait_for_end() == 0, "Escape ends Setup")


def walk():
    if not os.path.exists(os.path.join(disc, "Setup.exe")):
        return
    seen = install() | repair()
    # Copying the demonstration disc is too fast for these to be seen.
    check_all("Setup", seen | {"Cancel", "Progress"})
    remove()


try:
    walk()
finally:
    person.end_of_walk()
