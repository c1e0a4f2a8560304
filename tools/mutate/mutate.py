#!/usr/bin/env python3
"""Changes one line of src/ at a time and looks whether any test notices.

    mutate.py [--count N] [--seed N] [PATH...]

Makes random changes of src/, or of the files and folders named, in a copy of the tree under
build/mutate/, never in the tree itself. For each change the test programs are built and run, that of
the file's folder first, then the scripts among the tests, until one fails. Left out are the walks,
the monkey and what reads whole Bibles. A change that doesn't compile, or that leaves all programs as
they are, doesn't count. The same seed gives the same changes. The changes that no test noticed are
told again at the end."""

import argparse
import hashlib
import os
import pathlib
import random
import resource
import shutil
import signal
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from changes import changes_of  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
PLACE = ROOT / "build/mutate"
TREE, BUILD = PLACE / "tree", PLACE / "build"
SCRIPTS = "drive.first_try|formats|kit|kills.typing|setup.install_walk|faults.sample|walk.drive"
# A changed program may remove what it shouldn't: root runs the tests as nobody.
AS_NOBODY = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"]
MEMORY = 6 << 30  # bytes that a change which has run wild may take
environment = dict(
    os.environ, HOME=str(PLACE / "home"), TMPDIR=str(PLACE / "tmp"), QT_QPA_PLATFORM="offscreen"
)
environment["CCACHE_DIR"] = os.environ.get("CCACHE_DIR", str(pathlib.Path.home() / ".cache/ccache"))


def limit():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(*words, folder=BUILD, seconds=None, is_test=False):
    """The exit status and what was said; None for a status if it took longer."""
    words = list(map(str, words))
    if is_test and os.geteuid() == 0:
        words = AS_NOBODY + words
    process = subprocess.Popen(
        words,
        cwd=folder,
        env=environment,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        start_new_session=True,
        preexec_fn=limit if is_test else None,
    )
    try:
        said = process.communicate(timeout=seconds)[0].decode(errors="replace")
        return process.returncode, said
    except subprocess.TimeoutExpired:
        return None, ""
    finally:
        try:  # what it has left behind
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass


def need(*words, **options):
    status, said = run(*words, **options)
    if status != 0:
        sys.exit(f"mutate: without a change, {words[0]} fails:\n{said}")
    return said


def copy_tree():
    """Files that are the same stay as they are, so that little has to be built anew."""
    listed = need("git", "ls-files", "--cached", "--others", "--exclude-standard", folder=ROOT)
    names = {name for name in listed.splitlines() if (ROOT / name).is_file()}
    for name in names:
        source, target = ROOT / name, TREE / name
        if not target.is_file() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    for file in [file for file in TREE.rglob("*") if file.is_file()]:
        if str(file.relative_to(TREE)) not in names:
            file.unlink()
    return sorted(name for name in names if name.startswith("src/"))


def digests():
    """Of all programs as they are now."""
    return {
        file.name: hashlib.sha1(file.read_bytes()).digest() for file in (BUILD / "bin").iterdir()
    }


class Tests:
    def __init__(self):
        self.seconds = {}
        for program in sorted((BUILD / "bin").glob("*_test")):
            begin = time.monotonic()
            if not self.passes(program.name, 300):
                sys.exit(f"mutate: {program.name} fails without a change:\n{self.said}")
            self.seconds[program.name] = time.monotonic() - begin
        need("ctest", "-R", "^disc.make$")
        for place, _, files in os.walk(BUILD / "Testing"):
            for each in (place, *(os.path.join(place, file) for file in files)):
                os.chmod(each, 0o777)
        self.scripts = ["ctest", "-FA", "disc", "--output-on-failure", "-R", f"^({SCRIPTS})"]
        begin = time.monotonic()
        need(*self.scripts, is_test=True)
        self.script_seconds = time.monotonic() - begin
        self.unchanged = digests()

    def passes(self, name, seconds):
        words = [BUILD / "bin" / name, "--gtest_brief=1", "--gtest_fail_fast"]
        status, self.said = run(*words, folder=BUILD / "tests", seconds=seconds, is_test=True)
        return status == 0

    def near(self, path):
        """The test program of a file's folder first, the quick ones before the slow."""
        own = "_".join(path.split("/")[1:-1])
        return sorted(
            self.seconds,
            key=lambda name: (not f"{own}_".startswith(name[: -len("test")]), self.seconds[name]),
        )

    def judge(self, path):
        """What becomes of the change that has been made in a file."""
        for name in self.near(path):
            if run("ninja", f"bin/{name}")[0] != 0:
                return "doesn't count: it doesn't compile"
            program = (BUILD / "bin" / name).read_bytes()
            if hashlib.sha1(program).digest() != self.unchanged[name]:
                if not self.passes(name, 20 + 8 * self.seconds[name]):
                    return f"noticed: {name}"
        if run("ninja")[0] != 0:
            return "doesn't count: it doesn't compile"
        if digests() == self.unchanged:
            return "doesn't count: the same programs"
        # The disc's own programs are those before the change; the scripts run the changed ones.
        if run(*self.scripts, seconds=20 + 4 * self.script_seconds, is_test=True)[0] != 0:
            return "noticed: a script"
        return "not noticed"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--count", type=int, default=100, help="how many changes; 100")
    parser.add_argument("--seed", type=int, default=1, help="the same seed changes the same lines")
    parser.add_argument("paths", nargs="*", help="files or folders of src/; all")
    wanted = parser.parse_args()
    for folder in ("home", "tmp"):
        shutil.rmtree(PLACE / folder, ignore_errors=True)
        (PLACE / folder).mkdir(parents=True)
        (PLACE / folder).chmod(0o777)
    names = copy_tree()
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    # A Python in the home folder of root is closed to nobody.
    flags = [
        "-DPython3_EXECUTABLE=/usr/bin/python3",
        "-DCMAKE_BUILD_TYPE=Debug",
        "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0",
    ]
    need("cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", *flags, *launcher, folder=PLACE)
    need("ninja")
    tests = Tests()
    chosen = [os.path.relpath(path, ROOT) for path in wanted.paths] or ["src"]
    lines = [
        line
        for name in names
        if name.endswith((".cpp", ".h"))
        and any(name == each or name.startswith(each + "/") for each in chosen)
        for line in changes_of(name, (TREE / name).read_text(encoding="utf-8"))
    ]
    chance = random.Random(wanted.seed)
    counts, missed = {}, []
    for number, line in enumerate(chance.sample(lines, min(wanted.count, len(lines))), 1):
        change = chance.choice(line)
        file = TREE / change.path
        before = file.read_bytes()
        changed = before.decode().split("\n")
        changed[change.number - 1] = change.new
        file.write_text("\n".join(changed), encoding="utf-8")
        result = tests.judge(change.path)
        file.write_bytes(before)
        told = f"{change.path}:{change.number}\n-{change.old}\n+{change.new}"
        print(f"{number} {result}\n{told}", flush=True)
        kind = result.partition(":")[0]
        counts[kind] = counts.get(kind, 0) + 1
        if kind == "not noticed":
            missed.append(told)
    print("", *missed, ", ".join(f"{count} {kind}" for kind, count in counts.items()), sep="\n")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
