"""What the walks do under the compositor sway, with the functions of tests/walk/x11.py.

A client of Wayland doesn't know where its windows are; sway does. What a window tells of itself
beyond that, such as its owner, is read from the log of Qt's messages to the compositor."""

import json
import os
import re
import subprocess
import time

from devices import NAMED, Devices
from gi.repository import Atspi

TELLS_HINTS = False
log = os.environ["WALK_LOG"]  # the requests that the program sends
size = tuple(int(side) for side in os.environ["WALK_SIZE"].split("x"))
devices = Devices(*size)


def start(program, **options):
    options["env"] = dict(options["env"], WAYLAND_DEBUG="client")
    with open(log, "ab") as errors:
        return subprocess.Popen([program], stderr=errors, **options)


def said_by_sway(kind):
    return json.loads(
        subprocess.run(["swaymsg", "-t", kind], check=True, capture_output=True, text=True).stdout
    )


def window_nodes(node=None):
    """The windows in sway's tree."""
    node = node or said_by_sway("get_tree")
    inner = node["nodes"] + node["floating_nodes"]
    return [node] if node.get("pid") else [found for each in inner for found in window_nodes(each)]


def corner_of(title):
    """Where the inside of a window begins."""
    found = [window for window in window_nodes() if (window["name"] or "").strip() == title]
    for window in sorted(found, key=lambda each: each["focused"], reverse=True):
        outer, inner, drawn = window["rect"], window["window_rect"], window["geometry"]
        return tuple(outer[side] + inner[side] - drawn[side] for side in "xy")
    return 0, 0  # it is just closing


def box_of(node):
    window = node
    while window.get_parent().get_role_name() != "application":
        window = window.get_parent()
    left, top = corner_of(window.get_name().strip())
    box = Atspi.Component.get_extents(node, Atspi.CoordType.WINDOW)
    return left + box.x, top + box.y, box.width, box.height


def point_at(x, y):
    devices.move(x, y)


def press():
    devices.button(True)


def release():
    devices.button(False)


def turn_wheel_up():
    devices.turn_wheel_up()


def press_keys(*names):
    for name in names:
        *modifiers, key = name.split("+")
        if key in NAMED:
            devices.stroke(NAMED[key], modifiers)
        else:
            devices.letter(key, modifiers)


def type_text(text):
    for letter in text:
        devices.letter(letter)
        time.sleep(0.008)


def save_picture(file, box=None):
    """As x11.py does, but with the pointer, which is drawn into the screen without a screen."""
    part = ("-g", "{},{} {}x{}".format(*box)) if box else ()
    kind = os.path.splitext(file)[1][1:]
    subprocess.run(["grim", "-t", kind, *part, file], check=True)


def active_window():
    """Sway's entry of the window that gets the keys, or None."""
    return next((window for window in window_nodes() if window["focused"]), None)


def requests():
    """What the program has told the compositor of its windows so far: object, request, arguments."""
    with open(log, encoding="utf-8", errors="replace") as lines:
        return re.findall(r" -> xdg_toplevel@(\d+)\.(\w+)\((.*)\)", lines.read())


def object_of(window):
    """The number of the object that was last given the window's title."""
    title = f'"{window["name"]}"'
    return [number for number, name, told in requests() if (name, told) == ("set_title", title)][-1]


def is_above(window, owner):
    wanted = f"xdg_toplevel@{object_of(owner)}"
    parents = [
        told
        for number, name, told in requests()
        if (number, name) == (object_of(window), "set_parent")
    ]
    return parents and parents[-1] == wanted
