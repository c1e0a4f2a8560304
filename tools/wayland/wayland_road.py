#!/usr/bin/python3
"""What only a compositor can show: windows that fill the screen, a dialog that keeps its owner from
the user, the shapes of the pointer. Ends with what the program and the compositor said."""

import time

import person
from person import *  # noqa: F403
from pixels import picture_of


def pointer_on(name, node, drags=False):
    """The pointer on the middle of it, as a picture in which all else is black. Saves the screen."""
    left, top, width, height = desk.box_of(node)
    x, y = left + width / 2, top + height / 2
    box = (int(x) - 24, int(y) - 24, 48, 48)
    desk.point_at(5, 5)
    time.sleep(0.3)
    before = picture_of(user.name, *box)
    desk.point_at(x, y)
    if drags:
        desk.press()
    time.sleep(0.3)
    after = picture_of(user.name, *box)
    shot(f"w-{name}")
    if drags:
        desk.release()
    return bytes(0 if one == other else one for one, other in zip(after, before))


def fills_the_screen():
    """Whether the active window has the whole screen but its title bar."""
    at = desk.active_window()["rect"]
    width, height = desk.size
    return at["width"] == width and at["y"] + at["height"] == height and at["y"] <= 60


def tree_item(start_of_name):
    tree = control("frmContents", "TreeView1")
    return wait(
        lambda: search(tree, lambda n: n.get_name().startswith(start_of_name) and showing(n)),
        start_of_name,
    )


def walk():
    start()
    shapes = {"link": pointer_on("link", control("frmSplash", "lblRunFromCD"))}
    keys("Return")
    wait(lambda: is_active("frmContents"), "the catalogue")
    expect(fills_the_screen(), "the catalogue fills the screen")
    click(search(control("frmContents", "TreeView1"), lambda n: showing(n) and ":" in n.get_name()))
    shapes["tree"] = pointer_on("tree", control("frmContents", "TreeView1"))
    click(tree_item("Lesson 1:"), x=12)
    click(tree_item("Part One"), x=12)
    wait(lambda: is_active("frmWelcome"), "the welcome dialog")
    shot("w-modal")
    click(tree_item("Lesson 1:"), x=12)
    desk.press_keys("Down", "Return")
    expect(is_open("frmWelcome") and not is_open("frmMain"), "the dialog's owner takes no clicks")
    click(control("frmWelcome", "Command1"))
    wait(lambda: is_active("frmMain") and control("frmMain", "Text3", True), "the lesson")
    expect(fills_the_screen(), "the lesson fills the screen")
    shapes["text"] = pointer_on("text", control("frmMain", "Text3"))
    keys("alt+m")
    shot("w-menu")
    keys("3")
    wait(lambda: is_active("frmMap"), "a map")
    shapes["map"] = pointer_on("map", control("frmMap", "Picture1"), drags=True)
    expect(
        len(set(shapes.values())) == len(shapes) and all(map(any, shapes.values())),
        f"the pointer has a shape of its own on each of these: {', '.join(shapes)}",
    )
    keys("Escape")
    wait(lambda: is_active("frmMain"), "the lesson again")
    keys("alt+f", "x")
    expect(wait_for_end() == 0, "the program ends by its menu")
    with open(desk.log, encoding="utf-8", errors="replace") as lines:
        complaints = [line for line in lines if ".error(" in line or "qt.qpa" in line]
    expect(not complaints, f"the compositor had nothing to object to {''.join(complaints)}")


try:
    walk()
finally:
    person.end_of_walk()
