#!/usr/bin/env python3
"""Walks the main path through the program on the disc, with the headless driver:
drive_walk.py DRIVER DISC."""

import json
import subprocess
import sys
import tempfile

driver, disc = sys.argv[1:3]


class Run:
    """A run of the driver, one line at a time."""

    def __init__(self, user):
        self.process = subprocess.Popen(
            [driver, "--data", disc, "--user", user],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
        )

    def do(self, *words):
        line = " ".join(
            word if isinstance(word, str) and " " not in word else json.dumps(word)
            for word in words
        )
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        answer = json.loads(self.process.stdout.readline())
        if "error" in answer:
            sys.exit(f"{line}: {answer['error']}")
        return answer

    def get(self, path):
        return self.do("get", path)["value"]

    def end(self):
        self.process.stdin.close()
        return self.process.wait()


def expect(found, wanted, about):
    if found != wanted:
        sys.exit(f"{about}: {found!r} instead of {wanted!r}")


def open_forms(run):
    return [form["name"] for form in run.do("forms")["forms"]]


def answer_and_go_on(run, text):
    run.do("type", "frmMain.Text3", text)
    run.do("click", "frmMain.Command1")


with tempfile.TemporaryDirectory() as user:
    run = Run(user)
    expect(open_forms(run), ["frmSplash"], "the program's first screen")
    run.do("click", "frmSplash.lblRunFromCD")
    expect(open_forms(run), ["frmContents"], "the catalogue behind the start-up screen")
    run.do("node", "frmContents.TreeView1", "mount-1.dat")
    expect(len(run.get("frmContents.txtDesc.Text")) > 100, True, "the description of the study")
    run.do("node", "frmContents.TreeView1", "mount-1.dat:1")
    expect(
        open_forms(run),
        ["frmContents", "frmWelcome"],
        "the welcome dialog on the way into the first lesson",
    )
    run.do("click", "frmWelcome.Command1")
    expect(open_forms(run), ["frmMain"], "the lesson in the catalogue's place")
    first = run.get("frmMain.lblPageTitle.Caption")
    for answer in ("first \u201canswer\u201d \u05d0", "second\r\nwith two lines", "third"):
        answer_and_go_on(run, answer)
    run.do("click", "frmMain.Command2")
    run.do("click", "frmMain.Image1")
    expect(len(run.get("frmAnswer.Label1.Caption")) > 20, True, "the publisher's answer")
    run.do("click", "frmAnswer.OKButton")
    run.do("scroll", "frmMain.ctlScrollbar", "1")
    expect(run.get("frmMain.lblPageTitle.Caption"), first, "page 1 by the scroll bar")
    expect(run.get("frmMain.Text3.Text"), "first \u201canswer\u201d \u05d0", "the answer of page 1")
    run.do("click", "frmMain.Command1")
    expect(run.get("frmMain.Text3.Text"), "second\r\nwith two lines", "the answer of page 2")
    headings = run.do("tree", "frmMain.TreeView1")["nodes"]
    run.do("node", "frmMain.TreeView1", headings[-1]["key"])
    rich = run.do("rich", "frmMain.Text1")
    expect(str(rich["top"]), headings[-1]["tag"], "the passage in the top line")
    expect(
        rich["text"][rich["top"] :].startswith(headings[-1]["text"] + "\r\n"), True, "its heading"
    )
    run.do("click", "frmMain.mnuFileClose")
    run.do("node", "frmContents.TreeView1", "mount-2.dat:1")
    expect(open_forms(run), ["frmMain"], "no welcome dialog the second time")
    expect(run.get("frmMain.ctlScrollbar.Value"), 1, "Part Two begins at page 1")
    expect(run.get("frmMain.Text3.Text"), "", "Part Two has answers of its own")
    run.do("click", "frmMain.mnuFileClose")
    run.do("node", "frmContents.TreeView1", "mount-1.dat:1")
    expect(run.get("frmMain.ctlScrollbar.Value"), 2, "the page that was left")
    expect(run.get("frmMain.Text3.Text"), "second\r\nwith two lines", "with its answer")
    run.do("press", "frmMain.Text3", "35", "2")
    run.do("type", "frmMain.Text3", ", and more")
    run.do("click", "frmMain.Command1")
    run.do("program-ends")
    expect(run.process.wait(), 0, "the status of a run without errors")

    run = Run(user)
    run.do("setting", "Parameters", "showhelp", "false")
    run.do("click", "frmSplash.lblRunFromCD")
    run.do("node", "frmContents.TreeView1", "mount-1.dat:1")
    expect(
        run.get("frmMain.ctlScrollbar.Value"), 3, "the page that was gone to before the power cut"
    )
    expect(run.get("frmMain.Text3.Text"), "third", "its answer")
    run.do("click", "frmMain.Command2")
    expect(
        run.get("frmMain.Text3.Text"),
        "second\r\nwith two lines, and more",
        "the answer left before the power cut",
    )
    for part in (1, 2):
        for lesson in range(1, 5):
            run.do("click", "frmMain.mnuFileClose")
            run.do("node", "frmContents.TreeView1", f"mount-{part}.dat:{lesson}")
            expect(run.do("messages")["messages"], [], f"part {part}, lesson {lesson} opens")
            expect(len(run.do("tree", "frmMain.TreeView1")["nodes"]) > 0, True, "passages")
    expect(run.end(), 0, "the status at the end of the script")
print("the road is walked")
