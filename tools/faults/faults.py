#!/usr/bin/env python3
"""Makes the k-th call that changes a file fail, or kills the program there, and checks that no text
is lost.

    faults.py PROGRAMS DISC               a sample: one to three runs of each kind, and two copies at once
    faults.py PROGRAMS DISC --all         each call in each mode, some 10,000 runs, and 300 runs of two copies
    faults.py PROGRAMS DISC --all --mode MODE         the same in one mode
    faults.py PROGRAMS DISC --mode MODE --at K --start fresh|used [--show]      repeats one run, as printed by a failure

PROGRAMS is the folder with sparrowfield-drive and faults.so (build/dev/bin), DISC that of the disc
(build/dev/disc). The modes are listed in fault.h. The session whose calls are counted is in
walk.py; it runs in a fresh folder, and in one that an earlier session has used."""

import argparse
import concurrent.futures
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
import two_copies  # noqa: E402
import walk  # noqa: E402
from writer import Memory, Writer  # noqa: E402
from program import FOLDERS, NOTES, Ended, Fault, Program, note_forms, stored_answers  # noqa: E402

ERRORS = ("enospc", "eio", "erofs", "short", "full")
KILLS = ("kill-before", "kill-half", "kill-after")
WRITES = ("write", "pwrite", "pwrite64", "writev", "sendfile")
FULL_FOR = 30  # the number of calls that fail in mode "full"


class Bench:
    def __init__(self, programs, disc):
        self.drive = str(pathlib.Path(programs, "sparrowfield-drive").resolve())
        self.preload = str(pathlib.Path(programs, "faults.so").resolve())
        self.disc = disc
        # The address sanitizer must be loaded before all other libraries.
        needed = subprocess.run(
            ["ldd", self.drive], capture_output=True, text=True, check=True
        ).stdout
        self.before = [line.split()[2] for line in needed.splitlines() if "libasan" in line]

    def environment(self, user, log, mode, at):
        return dict(
            os.environ,
            LD_PRELOAD=":".join(self.before + [self.preload]),
            FAULTS_FOLDER=str(user),
            FAULTS_LOG=str(log),
            FAULTS_MODE=mode,
            FAULTS_AT=str(at),
        )

    def program(self, user, environment=None):
        return Program(self.drive, self.disc, user, environment)


def calls_in(log):
    """The calls that the library counted: number, name, path, and whether a fault was injected."""
    calls = []
    for line in log.read_text(encoding="utf-8").splitlines():
        number, name, path = line.removesuffix(" !").split(" ", 2)
        calls.append((int(number), name, path, line.endswith(" !")))
    return calls


def begin(bench, folder, start):
    """A user's folder, and the record of what was written there."""
    user, memory = folder / "user", Memory()
    user.mkdir()
    if start == "used":
        program = bench.program(user)
        walk.earlier(Writer(program, memory))
        expect_end(program, 0)
    return user, memory


def expect_end(program, status):
    ended, said = program.end()
    if ended != status:
        raise Fault(f"the program ended with status {ended}: {said}")


def check(bench, user, memory, after_kill):
    """Starts again without faults: all text must be there, on the screen and in the files."""
    program = bench.program(user)
    try:
        person = Writer(program, Memory(), strict=False)  # its record is not used
        person.enter()
        if person.messages or (messages := program.do("messages")["messages"]):
            raise Fault(f"the next start says {messages}")
        shown = walk.visit(person, memory.places())
        expect_end(program, 0)
    finally:
        program.kill()
    for place, text in shown.items():
        if not memory.may_be(place, text) and (after_kill or not holds_words(memory, place, text)):
            raise Fault(
                f"{place} shows {text!r} instead of {memory.latest(place)!r} or {memory.maybe.get(place, ())}"
            )
    answers = stored_answers(user)
    if answers != {place: text for place, text in shown.items() if text and place[0] == "answer"}:
        raise Fault(f"the store holds {answers}, the screen shows {shown}")
    for place, text in shown.items():
        # After a kill the exact text may still be in another file than usual.
        if place[0] == "note" and text not in (
            forms := note_forms(user / NOTES / f"{place[1]}.dat")
        ):
            raise Fault(f"the files of {place} hold {forms}, the screen shows {text!r}")
    names = [file.name for file in user.rglob("*")]
    if any(".damaged-" in name or ".old-" in name for name in names):
        raise Fault(f"something was set aside: {names}")
    litter = [name for name in names if name.startswith(".new-") or name.endswith("-journal")]
    if litter and not after_kill:
        raise Fault(f"left behind: {litter}")


def holds_words(memory, place, text):
    """Whether the text has all words typed at this place. If a stored text couldn't be read, new
    text is appended to it as a separate paragraph."""
    left = text.split()
    return all(word in left for word in memory.words.get(place, ()))


def one_run(bench, mode, at, start, show=False):
    """Returns the calls that were counted. Raises a Fault if text is lost."""
    with tempfile.TemporaryDirectory(dir=FOLDERS) as folder:
        folder = pathlib.Path(folder).resolve()
        user, memory = begin(bench, folder, start)
        log = folder / "log"
        program = bench.program(user, bench.environment(user, log, mode, at))
        person = Writer(program, memory, strict=at == 0 or mode in KILLS)
        try:
            walk.walk(person)
            status, said = program.end()
        except Ended:
            status, said = program.end()
        finally:
            program.kill()
            if show:
                print("\n".join(program.lines), *person.messages, sep="\n")
        calls = calls_in(log)
        if show:
            print("\n".join(" ".join(map(str, call)) for call in calls))
        hit = any(call[3] for call in calls)
        wanted = -signal.SIGKILL if hit and mode in KILLS else 0
        if status != wanted:
            raise Fault(f"the program ended with status {status}: {said}")
        # If the disk is full until the program ends, the last text may be lost.
        if mode != "full" or len(calls) > at + 2 * FULL_FOR:
            check(bench, user, memory, mode in KILLS)
        return calls


def plan(bench, start):
    """All possible runs as mode, call and start, with their kinds. Only writes can be done in
    part."""
    calls = one_run(bench, "", 0, start)
    for mode in ERRORS + KILLS:
        for number, name, path, _ in calls:
            if name in WRITES or mode not in ("short", "kill-half"):
                yield (mode, number, start), kind(mode, name.removesuffix("64"), path)


def kind(mode, name, path):
    """The kind of a run; runs of one kind are equivalent. All errors are the same to the program,
    and after one call is before the next. A full disk spans many calls."""
    ways = {"eio": "enospc", "erofs": "enospc", "kill-after": "kill-before"}
    return ways.get(mode, mode), mode == "full" or name, NOTES in path, "settings.db" in path


def sample(runs):
    """One run of each kind, always the same. Three if the program is killed while it writes a note,
    because notes aren't protected by a database."""
    kinds = {}
    for run, its in runs:
        kinds.setdefault(its, []).append(run)
    chance = random.Random(3)
    return [
        run
        for its, found in kinds.items()
        for run in chance.sample(found, min(len(found), 3 if its[0] in KILLS and its[2] else 1))
    ]


def attempt(bench, run):
    try:
        one_run(bench, *run)
    except Fault as fault:
        mode, at, start = run
        return f"--mode {mode} --at {at} --start {start}: {fault}"
    return None


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("programs")
    parser.add_argument("disc")
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--mode", choices=ERRORS + KILLS, default="")
    parser.add_argument("--at", type=int, default=0)
    parser.add_argument("--start", choices=("fresh", "used"), default="fresh")
    parser.add_argument(
        "--show", action="store_true", help="what the program was told and said, and the calls"
    )
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--copies-seed", type=int, help="one run of two copies again")
    options = parser.parse_args()
    bench = Bench(options.programs, options.disc)
    if options.copies_seed is not None:
        two_copies.run(bench, options.copies_seed)
        return
    if options.mode and not options.all:
        one_run(bench, options.mode, options.at, options.start, options.show)
        print("no word is lost")
        return

    runs = [run for start in ("fresh", "used") for run in plan(bench, start)]
    runs = [run for run, _ in runs if options.mode in ("", run[0])] if options.all else sample(runs)
    faults = []
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for fault in pool.map(lambda run: attempt(bench, run), runs):
            if fault:
                faults.append(fault)
                print(fault, flush=True)
        for fault in pool.map(
            lambda seed: two_copies.attempt(bench, seed), range(300 if options.all else 6)
        ):
            if fault:
                faults.append(fault)
                print(fault, flush=True)
    print(f"{len(runs)} runs with a fault in each, {len(faults)} with a loss")
    sys.exit(bool(faults))


if __name__ == "__main__":
    main()
