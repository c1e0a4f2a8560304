"""Random user actions, chosen from the driver's description of the form that is shown."""

REFERENCES = (
    "Jude 1",
    "John 3:16",
    "Ruth 2:4-6",
    "Gen 1:1-2:3",
    "2 John 1",
    "Jude",
    "Ps 119",
    "Jn 3",
    "nowhere 7",
    "Jude 99999999999",
    "x",
    "",
    "Ruth  2 ",
    "Phlm 1:3,5",
)
TEXTS = (
    "a",
    "Grace and peace ",
    "two\r\nlines",
    "\r\n",
    "caf\u00e9 \u201cquoted\u201d",
    "\u05d1\u05e8\u05d0\u05e9\u05d9\u05ea",
    "\u03c7\u03ac\u03c1\u03b9\u03c2",
    "\U0001f54a",
    "  ",
    "<b>&amp;</b>",
    "'; --",
    "long " * 40,
    "\t",
)
KEYS = (13, 27, 9, 8, 46, 35, 36, 33, 34, 37, 38, 39, 40, 32, 65, 67, 86, 88, 90, 112, 115, 121)
WRITTEN_IN = ("frmSplash", "frmContents", "frmMain", "frmBible")  # and the forms on the way there


class Actions:
    def __init__(self, chance):
        self.chance = chance

    def make(self, program, form, dump):
        """A random action on the active form, as the words of a command."""
        if form not in WRITTEN_IN and self.chance.random() < 0.15:
            return ("close", form)
        if self.chance.random() < 0.01:
            return self.on_form(form)
        controls = [
            (name, control)
            for name, control in dump["controls"].items()
            if self.is_usable(name, control)
        ]
        # Boxes are chosen often and menus rarely: without text there is nothing to lose.
        boxes = [pair for pair in controls if pair[1].get("Locked") is False]
        others = [pair for pair in controls if pair[1]["kind"] != "MenuEntry"]
        controls = self.chance.choices((boxes, others, controls), (35, 45, 20))[0] or controls
        if not controls:
            return self.on_form(form)
        name, control = self.chance.choice(controls)
        return getattr(self, control["kind"])(program, form, f"{form}.{name}", control)

    def is_usable(self, name, control):
        return (
            hasattr(self, control["kind"])
            and control["Enabled"]
            and (control["Visible"] or control["kind"] == "Timer")
            and (name != "mnuFileExit" or self.chance.random() < 0.05)
        )

    def on_form(self, form):
        return self.chance.choice(
            (
                ("resize", form, self.chance.randint(0, 30000), self.chance.randint(0, 20000)),
                ("state", form, self.chance.randint(0, 2)),
                ("state", form, 2),
                ("close", form),
                ("click", form),
                ("clipboard", self.chance.choice(TEXTS)),
                ("program-ends",),
            )
        )

    def key(self, path):
        return ("press", path, self.chance.choice(KEYS), self.chance.choice((0, 0, 0, 1, 2, 3, 4)))

    def Label(self, program, form, path, control):
        return ("click", path)

    Image = PictureBox = CommandButton = Label

    def MenuEntry(self, program, form, path, control):
        if "Delete" in path and self.chance.random() < 0.7:
            return ("click", f"{form}.mnuFileSave")
        return ("click", path)

    def TextBox(self, program, form, path, control):
        if path == "frmBible.txtVerse":
            return self.chance.choice(
                (
                    ("type", path, self.chance.choice(REFERENCES)),
                    ("select", path, 0, 100),
                    ("press", path, 13),
                )
            )
        size = len(control["Text"])
        return self.chance.choice(
            (
                ("type", path, self.chance.choice(TEXTS)),
                ("type", path, self.chance.choice(TEXTS)),
                self.key(path),
                ("select", path, self.chance.randint(0, size), self.chance.randint(0, size)),
                ("focus", path),
            )
        )

    RichTextBox = TextBox

    def TreeView(self, program, form, path, control):
        nodes = program.do("tree", path)["nodes"]
        if not nodes:
            return self.key(path)
        key = self.chance.choice(nodes)["key"]
        return self.chance.choice(
            (
                ("node", path, key),
                ("node", path, key),
                ("expand", path, key, self.chance.choice(("true", "false"))),
                self.key(path),
            )
        )

    def HScrollBar(self, program, form, path, control):
        step = self.chance.choice(("less", "more", "pageless", "pagemore"))
        return self.chance.choice(
            (
                (
                    "scroll",
                    path,
                    self.chance.randint(control["Min"], max(control["Min"], control["Max"])),
                ),
                ("bar", path, step),
                ("bar", path, step),
                self.key(path),
            )
        )

    VScrollBar = HScrollBar

    def ComboBox(self, program, form, path, control):
        return self.chance.choice((("choose", path, self.chance.randint(0, 1)), self.key(path)))

    def CheckBox(self, program, form, path, control):
        return ("click", path)

    def Timer(self, program, form, path, control):
        return ("tick", path, self.chance.randint(1, 3))

    def XPContainer(self, program, form, path, control):
        return (
            "mouse",
            path,
            self.chance.choice(("down", "move", "up")),
            self.chance.randint(0, 300),
            self.chance.randint(0, 300),
        )
