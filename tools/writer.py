"""A user who writes answers and notes with one copy of the program, and knows at each moment which
texts must be stored."""

from program import Fault


class Memory:
    """What was written at each place: ("answer", lesson, page) or ("note", book and chapter)."""

    def __init__(self):
        self.sure = {}  # the text whose storing the program has confirmed; a missing one is empty
        self.maybe = {}  # texts in the box since then; each may be stored by now
        self.words = {}  # every word that was typed and not deleted

    def typed(self, place, text, words=""):
        self.maybe.setdefault(place, set()).add(text)
        self.words.setdefault(place, []).extend(words.split())

    def left(self, place, text):
        self.sure[place] = text
        self.maybe.pop(place, None)

    def latest(self, place):
        return self.sure.get(place, "")

    def may_be(self, place, text):
        return text == self.latest(place) or text in self.maybe.get(place, ())

    def places(self):
        return sorted(set(self.sure) | set(self.maybe))


class Box:
    """A box that is shown: its control, its place, and its text."""

    def __init__(self, control, place, text):
        self.control, self.place, self.text = control, place, text


class Writer:
    """`strict`: the program must show exactly what is stored. Otherwise the disk may fail, and a
    box may lack text that couldn't be read."""

    def __init__(self, program, memory, strict=True):
        self.program, self.memory, self.strict = program, memory, strict
        self.lesson = None
        self.answer = None
        self.note = None
        self.messages = []

    def do(self, *words):
        answer = self.program.do(*words)
        self.messages += [message["text"] for message in self.program.do("messages")["messages"]]
        return answer

    def leave(self, *words):
        """Runs a command that leaves the boxes; when it is answered, their texts are stored."""
        self.program.do(*words)
        for box in filter(None, (self.answer, self.note)):
            if self.memory.maybe.get(box.place):
                self.memory.left(box.place, box.text)
        self.do("running")

    def arrive(self, control, place):
        text = self.program.get(f"{control}.Text")
        if self.strict and not self.memory.may_be(place, text):
            raise Fault(f"{place} shows {text!r} instead of {self.memory.latest(place)!r}")
        return Box(control, place, text)

    def write(self, box, text):
        """Types at the end of a box."""
        self.memory.typed(box.place, box.text + text, text)
        box.text += text
        self.do("press", box.control, 35, 2)  # Ctrl+End
        self.do("type", box.control, text)

    def write_anew(self, box, text):
        """Replaces the whole text of a box."""
        self.memory.words[box.place] = []
        self.memory.typed(box.place, text, text)
        self.do("select", box.control, 0, len(box.text.encode("utf-16-le")) // 2)
        box.text = text
        self.do("type", box.control, text)

    def wait_a_second(self, box):
        """Lets the form's timer fire, which stores what was typed."""
        self.do("tick", box.control.split(".")[0] + ".tmrStore")
        self.memory.left(box.place, box.text)

    # The start, and lessons.

    def enter(self):
        self.do("press", "frmSplash", 32)

    def open_lesson(self, study):
        self.program.do("node", "frmContents.TreeView1", study)
        if "frmWelcome" in self.program.forms():
            self.program.do("click", "frmWelcome.Command1")
        self.lesson = study
        self.arrive_at_page()

    def arrive_at_page(self):
        page = self.program.get("frmMain.ctlScrollbar.Value")
        self.answer = self.arrive("frmMain.Text3", ("answer", self.lesson, page))

    def answer_with(self, text):
        self.write(self.answer, text)

    def next_page(self):
        self.leave("click", "frmMain.Command1")
        self.arrive_at_page()

    def go_to_page(self, page):
        self.leave("scroll", "frmMain.ctlScrollbar", page)
        self.arrive_at_page()

    def save(self):
        self.leave("click", "frmMain.mnuFileSave")

    def delete_answers(self):
        places = [place for place in self.memory.places() if place[:2] == ("answer", self.lesson)]
        for place in places:
            self.memory.typed(place, "")
        told = len(self.messages)
        self.do("click", "frmMain.mnuEditDeleteLesson")
        if len(self.messages) > told:
            return False
        for place in places:
            self.memory.left(place, "")
            self.memory.words[place] = []
        self.arrive_at_page()
        return True

    def close_lesson(self):
        self.leave("click", "frmMain.mnuFileClose")
        self.answer = None

    # The Bible reader.

    def open_reader(self):
        form = self.program.forms()[0]
        self.leave("click", f"{form}.mnuBibleReader")
        self.arrive_at_chapter()

    def arrive_at_chapter(self):
        chapter = self.program.get("frmBible.XPContainer4.Caption").removeprefix("Notes for ")
        book, _, number = chapter.rpartition(" ")
        self.note = self.arrive("frmBible.txtNotes", ("note", book + number))

    def look_up(self, reference):
        self.do("set", "frmBible.txtVerse.Text", reference)
        self.leave("click", "frmBible.cmdOkay")
        self.arrive_at_chapter()

    def choose_translation(self, number):
        self.leave("choose", "frmBible.cboVersion", number)
        self.arrive_at_chapter()

    def close_reader(self):
        self.leave("close", "frmBible")
        self.note = None
