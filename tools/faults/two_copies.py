"""Two copies of the program on one user's folder answer the same lesson and write notes on the same
chapters in turns. In the end each place has the text that either copy wrote or saved there last:
leaving an untouched box never removes what the other copy wrote."""

import pathlib
import random
import tempfile

from writer import Memory, Writer
from program import FOLDERS, Fault, stored

LESSON = "mount-1.dat:1"
CHAPTERS = ("Jude 1", "Ruth 2", "2 John 1")
STEPS = 60


class Copy(Writer):
    """One of the two copies. Its box may show text that the other has replaced since, so only the
    files are compared."""

    def __init__(self, program, memory, chance, name):
        super().__init__(program, memory, strict=False)
        self.chance, self.name, self.count = chance, name, 0

    def word(self):
        self.count += 1
        return f"{self.name}{self.count}" + self.chance.choice(("", " \u05d0", "\r\n"))

    def step(self):
        if self.note:
            self.chance.choice(
                (
                    self.write_note,
                    self.write_note,
                    self.turn_chapter,
                    self.turn_chapter,
                    self.close_reader,
                )
            )()
        elif self.answer:
            self.chance.choice(
                (
                    self.write_answer,
                    self.write_answer,
                    self.turn_page,
                    self.turn_page,
                    self.save,
                    self.close_lesson,
                    self.open_reader,
                )
            )()
        else:
            self.chance.choice((lambda: self.open_lesson(LESSON), self.open_reader))()

    def write_answer(self):
        self.answer_with(self.word())

    def write_note(self):
        self.write(self.note, self.word())

    def save(self):
        """Stores the text in the box, even if the other copy has written since."""
        super().save()
        self.memory.left(self.answer.place, self.answer.text)

    def turn_page(self):
        self.go_to_page(self.chance.randint(1, 3))

    def turn_chapter(self):
        self.look_up(self.chance.choice(CHAPTERS))


def run(bench, seed):
    chance = random.Random(seed)
    with tempfile.TemporaryDirectory(dir=FOLDERS) as folder:
        user = pathlib.Path(folder).resolve()
        # Both copies share the record of what is stored; each has its own record of its boxes.
        sure = {}
        copies = []
        try:
            for name in "ab":
                memory = Memory()
                memory.sure = sure
                copies.append(Copy(bench.program(user), memory, chance, name))
                copies[-1].enter()
            for _ in range(STEPS):
                chance.choice(copies).step()
            for copy in chance.sample(copies, 2):
                if copy.note:
                    copy.close_reader()
                if copy.answer:
                    copy.close_lesson()
                copy.program.end()
        finally:
            for copy in copies:
                copy.program.kill()
        found, wanted = stored(user), {place: text for place, text in sure.items() if text}
        for place in sorted(set(found) | set(wanted)):
            if found.get(place) != wanted.get(place):
                raise Fault(
                    f"{place} holds {found.get(place)!r}, last written there was {wanted.get(place)!r}"
                )


def attempt(bench, seed):
    try:
        run(bench, seed)
    except Fault as fault:
        return f"--copies-seed {seed}: {fault}"
    return None
