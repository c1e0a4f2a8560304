#!/usr/bin/python3
"""The maps: all nine from both screens, moved by dragging, keys and bars; closed during a drag."""

import os
import subprocess
import time

import person
from person import *  # noqa: F403


def open_map(number):
    keys("alt+m")
    keys(str(number))
    wait(lambda: is_active("frmMap"), f"map {number}")
    time.sleep(0.4)


def box(name):
    return desk.box_of(control("frmMap", name))


def map_place():
    """The position of the map's corner in the viewport."""
    view, shown = box("Picture1"), box("Picture2")
    return shown[0] - view[0], shown[1] - view[1]


def go_to(x, y):
    desk.point_at(x, y)
    time.sleep(0.15)


def patch(x, y):
    """A picture of the area beside a point of the screen, where no pointer hides it."""
    file = os.path.join(user.name, f"patch-{time.monotonic_ns()}.png")
    desk.save_picture(file, (int(x) + 40, int(y) - 30, 60, 60))
    return file


def are_alike(one, other):
    return (
        subprocess.run(
            ["compare", "-metric", "AE", one, other, "null:"], capture_output=True, text=True
        ).stderr.strip()
        == "0"
    )


def drag_by_hand():
    left, top, _, _ = box("Picture1")
    x, y = left + scale * 500, top + scale * 450
    go_to(x, y)
    before = patch(x, y)
    desk.press()
    for dx, dy in ((-100, -60), (-230, -140), (-300, -200)):
        go_to(x + dx, y + dy)
    expect_soon(
        lambda: are_alike(before, patch(x - 300, y - 200)),
        "what was grabbed stays under the pointer",
    )
    shot("e-dragged")
    expect_soon(lambda: map_place() == (-300, -200), "the map rests with the pointer")
    go_to(x + 450, y - 250)
    expect_soon(lambda: map_place() == (0, -250), "an edge stops one axis and leaves the other")
    desk.point_at(2, 2)
    desk.release()
    time.sleep(0.2)
    rests = map_place()
    go_to(x, y)
    expect(map_place() == rests, "a release outside the map ends the drag")


def by_keys_and_bars():
    for _ in range(12):
        keys("Right", "Down")
    view, shown = box("Picture1"), box("Picture2")

    def is_at_corner():
        left, top = map_place()
        return abs(view[2] - 1 - shown[2] - left) <= 1 and abs(view[3] - 1 - shown[3] - top) <= 1

    expect_soon(is_at_corner, "arrow keys lead to the far corner")
    last = map_place()
    shot("e-corner")
    bar = box("VScroll1")
    click_at(bar[0] + bar[2] / 2, bar[1] + scale * 8)
    expect_soon(lambda: map_place()[1] == last[1] + 20, "a bar's arrow moves the map by 20 pixels")
    keys("Up")
    expect_soon(lambda: map_place()[1] > last[1] + 21, "and the keyboard still works")


def walk():
    start()
    keys("Return")
    wait(lambda: is_active("frmContents"), "the catalogue")
    for number in range(1, 10):
        open_map(number)
        shot(f"e-map{number}")
        expect(control("frmMap", "Picture2"), f"map {number} comes up")
        if number < 9:
            keys("Escape")
            wait(lambda: not is_open("frmMap"), "the viewer to close")
    drag_by_hand()
    by_keys_and_bars()
    view = box("Picture1")
    go_to(view[0] + 300, view[1] + 300)
    desk.press()
    go_to(view[0] + 350, view[1] + 350)
    keys("Escape")
    desk.release()
    wait(lambda: not is_open("frmMap"), "Escape to close the viewer during a drag")
    open_map(3)
    keys("alt+F4")
    wait(lambda: not is_open("frmMap"), "the close box to close the viewer")
    keys("alt+f", "x")
    expect(wait_for_end() == 0, "the program ends by its menu")


try:
    walk()
finally:
    person.end_of_walk()
