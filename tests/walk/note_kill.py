"""Kills the program at random moments while it writes notes: note_kill.py DRIVER DISC [TIMES].

Each time, a run that writes one note after another is killed. In the next run, the note of each
chapter must be one of those written there, and whole. Half of the notes contain characters that
need the file with the exact text."""

import json
import random
import subprocess
import sys
import tempfile
import time

driver, disc = sys.argv[1:3]
times = int(sys.argv[3]) if len(sys.argv) > 3 else 40
chapters = ["Jude 1", "Ruth 2"]


def note(chapter, turn):
    tail = " \u05d1\u05e8\u05d0\u05e9\u05d9\u05ea \u03b1" if turn % 2 else ""
    return (
        f"{chapter}, note {turn}"
        + tail
        + "".join(f"\r\nline {line} of {turn}" for line in range(turn % 60))
    )


def command(*words):
    return (
        " ".join(word if word.replace(".", "").isalnum() else json.dumps(word) for word in words)
        + "\n"
    )


def look_up(chapter):
    return command("set", "frmBible.txtVerse.Text", chapter) + command("click", "frmBible.cmdOkay")


def start(user):
    run = subprocess.Popen(
        [driver, "--app", disc, "--data", disc, "--user", user],
        stdin=subprocess.PIPE,
        stdout=subprocess.PIPE,
        text=True,
    )
    run.stdin.write(
        command("press", "frmSplash", "13") + command("click", "frmContents.mnuBibleReader")
    )
    run.stdin.flush()
    run.stdout.readline()
    run.stdout.readline()
    return run


def stored(user):
    run = start(user)
    found = []
    for chapter in chapters:
        run.stdin.write(look_up(chapter) + command("get", "frmBible.txtNotes.Text"))
        run.stdin.flush()
        run.stdout.readline()
        run.stdout.readline()
        found.append(json.loads(run.stdout.readline())["value"])
    run.kill()
    run.wait()
    return found


chance = random.Random(11)
kept = 0
with tempfile.TemporaryDirectory() as user:
    turn = 0
    possible = {chapter: {""} for chapter in chapters}
    for attempt in range(times):
        run = start(user)
        script = ""
        for _ in range(60):
            turn += 1
            chapter = chapters[turn // 2 % len(chapters)]
            possible[chapter].add(note(chapter, turn))
            script += look_up(chapter) + command(
                "set", "frmBible.txtNotes.Text", note(chapter, turn)
            )
        try:
            run.stdin.write(script)
            run.stdin.flush()
            time.sleep(chance.uniform(0, 0.25))
        finally:
            run.kill()
            run.wait()
        for chapter, text in zip(chapters, stored(user)):
            if text not in possible[chapter]:
                sys.exit(
                    f"note_kill: after kill {attempt + 1} the note of {chapter} is {text[:200]!r}"
                )
            kept += text != "" and text != note(chapter, 1)
            possible[chapter] = {text}
print(f"{times} kills, every note whole; {kept} times one was there")
if kept < times:
    sys.exit("note_kill: too few notes had been written for this to mean anything")
