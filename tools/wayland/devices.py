"""A virtual pointer and keyboard of a Wayland compositor that lets clients make them (wlroots does).
Speaks the wire format of Wayland: a message is the number of an object, its length and opcode, and
arguments of four bytes; texts have a length and are padded.

The keyboard has the American layout."""

import os
import socket
import struct
import time

DISPLAY, REGISTRY, FIRST_FREE = 1, 2, 3
KEYMAP = b"""xkb_keymap {
    xkb_keycodes { include "evdev" };
    xkb_types { include "complete" };
    xkb_compat { include "complete" };
    xkb_symbols { include "pc+us+inet(evdev)" };
};
\0"""
MODIFIERS = {"shift": (42, 1), "ctrl": (29, 4), "alt": (56, 8)}  # the key, its bit in the state

# The codes of the kernel for keys.
ROWS = (
    (2, "1234567890-=", "!@#$%^&*()_+"),
    (16, "qwertyuiop[]", "QWERTYUIOP{}"),
    (30, "asdfghjkl;'`", 'ASDFGHJKL:"~'),
    (43, "\\zxcvbnm,./", "|ZXCVBNM<>?"),
    (57, " ", ""),
    (28, "\n", ""),
)
NAMED = {
    "Escape": 1, "BackSpace": 14, "Tab": 15, "Return": 28, "space": 57, "F1": 59, "F4": 62, "F10": 68,
    "KP_Add": 78, "Home": 102, "Up": 103, "Page_Up": 104, "Left": 105, "Right": 106, "End": 107, "Down": 108,
    "Page_Down": 109, "Delete": 111,
}  # fmt: skip


def letter_codes():
    codes = {}
    for first, plain, shifted in ROWS:
        codes.update({letter: (first + at, False) for at, letter in enumerate(plain)})
        codes.update({letter: (first + at, True) for at, letter in enumerate(shifted)})
    return codes


LETTERS = letter_codes()
LETTERS.update({"plus": LETTERS["+"], "equal": LETTERS["="]})  # as X names them


def text_argument(text):
    raw = text.encode() + b"\0"
    return struct.pack("=I", len(raw)) + raw.ljust((len(raw) + 3) // 4 * 4, b"\0")


class Devices:
    """Both devices, on the display that the environment names, of a screen of this size. They go when
    the process ends."""

    def __init__(self, width, height):
        self.size = width, height
        self.next = FIRST_FREE
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(
            os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"])
        )
        self.send(DISPLAY, 1, struct.pack("=I", self.new_object()))  # get_registry
        self.offered = {}
        self.wait()
        seat = self.bind("wl_seat")
        self.pointer = self.create("zwlr_virtual_pointer_manager_v1", seat)
        self.keyboard = self.create("zwp_virtual_keyboard_manager_v1", seat)
        keymap = os.memfd_create("keymap")
        os.write(keymap, KEYMAP)
        self.send(self.keyboard, 0, struct.pack("=II", 1, len(KEYMAP)), keymap)
        os.close(keymap)
        self.wait()

    def new_object(self):
        self.next += 1
        return self.next - 2

    def send(self, target, opcode, arguments=b"", file=None):
        message = struct.pack("=IHH", target, opcode, 8 + len(arguments)) + arguments
        if file is None:
            self.socket.sendall(message)
        else:
            socket.send_fds(self.socket, [message], [file])

    def receive(self, size):
        block = b""
        while len(block) < size:
            more = self.socket.recv(size - len(block))
            if not more:
                raise ConnectionError("the compositor closed the connection")
            block += more
        return block

    def wait(self):
        """Waits until the compositor has handled all that was sent. Notes what it offers."""
        done = self.new_object()
        self.send(DISPLAY, 0, struct.pack("=I", done))  # sync
        while True:
            source, opcode, size = struct.unpack("=IHH", self.receive(8))
            body = self.receive(size - 8)
            if (source, opcode) == (DISPLAY, 0):
                raise ConnectionError(body[12:].rstrip(b"\0").decode())
            if (source, opcode) == (REGISTRY, 0):
                name, length = struct.unpack_from("=II", body)
                self.offered[body[8 : 8 + length - 1].decode()] = name
            if source == done:
                return

    def bind(self, interface):
        if interface not in self.offered:
            raise ConnectionError(f"the compositor has no {interface}")
        made = self.new_object()
        arguments = struct.pack("=I", self.offered[interface]) + text_argument(interface)
        self.send(REGISTRY, 0, arguments + struct.pack("=II", 1, made))
        return made

    def create(self, manager, seat):
        bound, made = self.bind(manager), self.new_object()
        self.send(bound, 0, struct.pack("=II", seat, made))
        return made

    def point(self, opcode, *arguments):
        self.send(self.pointer, opcode, struct.pack("=%dI" % len(arguments), *arguments))

    def now(self):
        return int(time.monotonic() * 1000) & 0xFFFFFFFF

    def end_of_frame(self):
        self.point(4)
        self.wait()

    def move(self, x, y):
        self.point(1, self.now(), int(x), int(y), *self.size)
        self.end_of_frame()

    def button(self, is_down):
        left = 0x110
        self.point(2, self.now(), left, int(is_down))
        self.end_of_frame()

    def turn_wheel_up(self):
        notch = 15 * 256  # as wheels report it, in 256ths
        wheel, vertical = 0, 0
        self.point(5, wheel)
        self.point(7, self.now(), vertical, -notch & 0xFFFFFFFF, -1 & 0xFFFFFFFF)
        self.end_of_frame()

    def key(self, code, is_down):
        self.send(self.keyboard, 1, struct.pack("=III", self.now(), code, int(is_down)))

    def hold(self, state):
        self.send(self.keyboard, 2, struct.pack("=IIII", state, 0, 0, 0))

    def stroke(self, code, modifiers=()):
        """Presses and releases a key while modifier keys are down."""
        state = 0
        for name in modifiers:
            state |= MODIFIERS[name][1]
            self.key(MODIFIERS[name][0], True)
            self.hold(state)
        self.key(code, True)
        self.key(code, False)
        for name in reversed(modifiers):
            state &= ~MODIFIERS[name][1]
            self.key(MODIFIERS[name][0], False)
            self.hold(state)
        self.wait()

    def letter(self, letter, modifiers=()):
        code, is_shifted = LETTERS[letter]
        self.stroke(code, (*modifiers, "shift") if is_shifted else modifiers)
