#!/usr/bin/python3
"""A walk through the desktop program by real keys and clicks: walk.py PROGRAM DISC PICTURES SCREEN.

Controls are found by their names through the accessibility interface, which also tells what a person can read; every action goes through
the window system. Stops with an error at the first thing that isn't as it should be."""

import os
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

disc, pictures, screen = sys.argv[1:4]
user = tempfile.TemporaryDirectory()
environment = dict(os.environ, XDG_DATA_HOME=user.name, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1")
process = None


def fail(what):
    shot("failed")
    sys.exit(f"walk: {what}")


def expect(holds, what):
    if not holds:
        fail(f"not so: {what}")
    print(f"   {what}", flush=True)


def wait(get, what, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = get()
        if found:
            return found
        time.sleep(0.05)
    fail(f"waited in vain for {what}")


def run(*command):
    subprocess.run([str(word) for word in command], check=True, stdout=subprocess.DEVNULL)


def shot(name):
    time.sleep(0.3)
    run("import", "-window", "root", os.path.join(pictures, f"{screen}-{name}.png"))


def start():
    global process
    process = subprocess.Popen([os.path.join(disc, "sparrowfield")], cwd=disc, env=environment)
    wait(windows, "the program's first window")


def application():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(index)
        if child and child.get_process_id() == process.pid:
            return child
    return None


def windows():
    found = application()
    return [] if not found else [w for w in children(found) if w.get_state_set().contains(Atspi.StateType.SHOWING)]


def children(node):
    node.clear_cache()
    return [c for c in (node.get_child_at_index(i) for i in range(node.get_child_count())) if c]


def search(node, test):
    for child in children(node):
        if test(child):
            return child
        found = search(child, test)
        if found:
            return found
    return None


def control(form, name, missing_is_fine=False):
    """The control of this name on the form of that name."""
    def get():
        for window in windows():
            if window.get_description() == form:
                return search(window, lambda node: node.get_description() == name)
        return None
    return get() if missing_is_fine else wait(get, f"{form}.{name}")


def is_open(form):
    return any(window.get_description() == form for window in windows())


def text_of(form, name):
    node = control(form, name)
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def click_at(x, y):
    run("xdotool", "mousemove", "--sync", int(x), int(y))
    run("xdotool", "click", 1)
    time.sleep(0.25)


def click(node, x=None):
    box = node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
    click_at(box.x + (box.width / 2 if x is None else x), box.y + box.height / 2)


def item(form, tree, name):
    """A node of a tree, by its text; the one that is showing."""
    def get():
        return search(control(form, tree), lambda node: node.get_name() == name and showing(node))
    return wait(get, f"the node {name}")


def click_item(form, tree, name):
    click(item(form, tree, name), x=12)


def keys(*names):
    run("xdotool", "key", "--clearmodifiers", *names)
    time.sleep(0.25)


def type_text(text):
    run("xdotool", "type", "--delay", 8, text)
    time.sleep(0.25)



def answer_page(text):
    run("xdotool", "mousemove", "--sync", 5, 5)
    type_text(text)
    expect(text in text_of("frmMain", "Text3"), f"the answer box holds what was typed: {text}")


def label():
    return control("frmMain", "lblPageTitle").get_name()


def next_page():
    before = label()
    click(control("frmMain", "Command1"))
    wait(lambda: label() != before, "the next page")


def walk():
    start()
    expect(is_open("frmSplash"), "the start-up screen is the first window")
    shot("0-start")
    click(control("frmSplash", "lblRunFromCD"))
    wait(lambda: is_open("frmContents"), "the catalogue")
    expect(not is_open("frmSplash"), "Run from CD leads to the catalogue")
    shot("1-catalogue")
    study = search(control("frmContents", "TreeView1"), lambda node: showing(node) and ":" in node.get_name())
    title = study.get_name()
    click(study, x=12)
    expect(title in text_of("frmContents", "lblStudy"), f"the study's title stands beside its description: {title}")
    expect(len(text_of("frmContents", "txtDesc")) > 40, "and so does the description")
    shot("2-study")
    tree = control("frmContents", "TreeView1")
    lesson = wait(lambda: search(tree, lambda node: node.get_name().startswith("Lesson 1:") and showing(node)), "lesson 1")
    click(lesson, x=12)
    click_item("frmContents", "TreeView1", "Part One")
    wait(lambda: is_open("frmWelcome"), "the welcome dialog")
    expect(True, "the welcome dialog comes up on the way into the first lesson")
    shot("3-welcome")
    click(control("frmWelcome", "Command1"))
    wait(lambda: is_open("frmMain") and control("frmMain", "Text3", True), "the lesson")
    time.sleep(0.5)
    expect(not is_open("frmContents"), "the lesson has taken the catalogue's place")
    shot("4-lesson")
    first_label = label()
    answers = ["My first answer", "My second answer", "My third answer"]
    answer_page(answers[0])
    click(control("frmMain", "Image1"))
    wait(lambda: is_open("frmAnswer"), "the publisher's answer")
    expect(len(control("frmAnswer", "Label1").get_name()) > 10, "the publisher's answer can be read")
    shot("5-answer")
    keys("Escape")
    wait(lambda: not is_open("frmAnswer"), "the answer window to close")
    next_page()
    answer_page(answers[1])
    next_page()
    answer_page(answers[2])
    next_page()
    shot("6-page")
    passages = control("frmMain", "TreeView1")
    last = [node for node in children(passages) if node.get_name()][-1]
    click(last, x=12)
    shot("7-passage")
    bar = control("frmMain", "ctlScrollbar")
    box = bar.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
    run("xdotool", "mousemove", "--sync", int(box.x + box.width / 2), int(box.y + box.height / 2))

    def turn_back():
        run("xdotool", "click", 4)
        time.sleep(0.25)
        return label() == first_label
    wait(turn_back, "page 1 by the wheel over the scroll bar")
    expect(answers[0] in text_of("frmMain", "Text3"), "the scroll bar leads back to the first answer")
    next_page()
    second_label = label()
    expect(answers[1] in text_of("frmMain", "Text3"), "the second answer is in its place")
    keys("alt+f")
    shot("8-menu")
    keys("c")
    wait(lambda: is_open("frmContents"), "the catalogue again")
    expect(not is_open("frmMain"), "the catalogue has taken the lesson's place")
    for part, same in (("Part Two", False), ("Part One", True)):
        click_item("frmContents", "TreeView1", title)
        tree = control("frmContents", "TreeView1")
        click(wait(lambda: search(tree, lambda n: n.get_name().startswith("Lesson 1:") and showing(n)), "lesson 1"), x=12)
        click_item("frmContents", "TreeView1", part)
        wait(lambda: is_open("frmMain") and control("frmMain", "Text3", True), part)
        time.sleep(0.5)
        expect(not is_open("frmWelcome"), "no welcome dialog this time")
        if same:
            expect(label() == second_label, "Part One opens at the page that was left")
            expect(answers[1] in text_of("frmMain", "Text3"), "with its answer in place")
        else:
            expect(answers[1] not in text_of("frmMain", "Text3"), "Part Two has answers of its own")
            shot("9-part-two")
            keys("alt+f", "c")
            wait(lambda: is_open("frmContents"), "the catalogue")
    keys("ctrl+End")
    type_text(", and more")
    next_page()
    process.send_signal(signal.SIGKILL)
    process.wait()
    start()
    keys("space")
    wait(lambda: is_open("frmContents"), "the catalogue")
    expect(True, "any key leads there too")
    click_item("frmContents", "TreeView1", title)
    tree = control("frmContents", "TreeView1")
    click(wait(lambda: search(tree, lambda n: n.get_name().startswith("Lesson 1:") and showing(n)), "lesson 1"), x=12)
    click_item("frmContents", "TreeView1", "Part One")
    wait(lambda: is_open("frmWelcome"), "the welcome dialog")
    keys("Return")
    wait(lambda: is_open("frmMain") and control("frmMain", "Text3", True), "the lesson")
    time.sleep(0.5)
    expect(answers[2] in text_of("frmMain", "Text3"), "after a kill the lesson opens at the page that was gone to")
    click(control("frmMain", "Command2"))
    wait(lambda: label() == second_label, "the page before")
    expect(answers[1] + ", and more" in text_of("frmMain", "Text3"), "and the answer of the page left before the kill is there")
    keys("alt+f", "x")
    wait(lambda: process.poll() is not None, "the program's end")
    expect(process.returncode == 0, "the program ends by its menu")


try:
    walk()
finally:
    if process and process.poll() is None:
        process.kill()
