"""A display of its own with a window manager: what is in front, keys and closing as a person gives them, a picture."""

import os
import re
import struct
import subprocess
import time
import zlib

from Xlib import X, XK, display, error, protocol
from Xlib.ext import xtest

PATIENCE = 30  # seconds until something that must happen counts as never happening; a loaded machine is slow
SIZE = (1366, 768)

NAMED_KEYS = {
    "ENTER": "Return", "TAB": "Tab", "ESC": "Escape", "UP": "Up", "DOWN": "Down", "LEFT": "Left", "RIGHT": "Right",
    "HOME": "Home", "END": "End", "PGUP": "Page_Up", "PGDN": "Page_Down", "DELETE": "Delete", "BACKSPACE": "BackSpace",
    "SPACE": "space", "F1": "F1",
}
MODIFIERS = {"ALT": "Alt_L", "CTRL": "Control_L", "SHIFT": "Shift_L"}


class NeverHappened(Exception):
    pass


def wait_for(what, condition):
    """Gives back what `condition` gave once that is anything but None; `what` tells what was waited for."""
    deadline = time.monotonic() + PATIENCE
    while True:
        found = condition()
        if found is not None:
            return found
        if time.monotonic() > deadline:
            raise NeverHappened(f"waited {PATIENCE} s for {what()}")
        time.sleep(0.005)


def strokes(text):
    """Reads "12{ENTER}{ALT+S}" as pairs of modifiers and a keysym name."""
    for brace, character in re.findall(r"\{([^{}]+)\}|(.)", text.replace("{{", "{braceleft}")):
        *modifiers, key = brace.split("+") if brace else [character]
        name = NAMED_KEYS.get(key.upper(), key)
        yield [MODIFIERS[each.upper()] for each in modifiers], name.lower() if modifiers and len(name) == 1 else name


class VirtualDisplay:
    """Runs while it is entered. The server chooses a number that is free, so that any number can run side by side."""

    def __init__(self, environment, log):
        self.environment = {**environment, "QT_QPA_PLATFORM": "xcb", "QT_SCALE_FACTOR": "1"}
        self.log = log

    def __enter__(self):
        number_read, number_written = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(number_written), "-screen", "0", "{}x{}x24".format(*SIZE), "-nolisten", "tcp"],
            pass_fds=[number_written], stdout=self.log, stderr=self.log)
        os.close(number_written)
        with os.fdopen(number_read) as told:
            number = told.readline().strip()
        if not number:
            raise NeverHappened("Xvfb did not start; its words are in programs.log")
        self.environment["DISPLAY"] = f":{number}"
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment, stdout=self.log,
                                        stderr=self.log)
        self.connection = display.Display(f":{number}")
        self.root = self.connection.screen().root
        self.clipboard = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        wait_for(lambda: "the window manager", lambda: self.property(self.root, "_NET_SUPPORTING_WM_CHECK"))
        return self

    def __exit__(self, *_):
        self.connection.close()
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def atom(self, name):
        return self.connection.intern_atom(name)

    def property(self, window, name):
        try:
            found = window.get_full_property(self.atom(name), X.AnyPropertyType)
        except error.XError:  # the window went meanwhile
            return None
        return found.value if found else None

    def in_front(self):
        """The window that the window manager has made active and that has the keyboard; None between two windows."""
        active = self.property(self.root, "_NET_ACTIVE_WINDOW")
        focus = self.connection.get_input_focus().focus
        if not active or not active[0] or getattr(focus, "id", focus) != active[0]:
            return None
        return self.connection.create_resource_object("window", active[0])

    def title_in_front(self):
        window = self.in_front()
        title = window and self.property(window, "_NET_WM_NAME")
        return title.decode() if title else None

    def wait_for_front(self, title):
        wait_for(lambda: f'the window "{title}" in front; there is "{self.title_in_front()}"',
                 lambda: self.title_in_front() == title or None)

    def key_code(self, name):
        """The key and whether it wants Shift."""
        keysym = XK.string_to_keysym(name) or ord(name)
        codes = sorted(self.connection.keysym_to_keycodes(keysym), key=lambda found: found[1])
        if not codes or codes[0][1] > 1:
            raise ValueError(f"there is no key {name}")
        return codes[0]

    def press(self, text):
        for modifiers, name in strokes(text):
            code, shifted = self.key_code(name)
            held = [self.key_code(each)[0] for each in modifiers + (["Shift_L"] if shifted else [])]
            for each in held + [code]:
                xtest.fake_input(self.connection, X.KeyPress, each)
            for each in [code] + held[::-1]:
                xtest.fake_input(self.connection, X.KeyRelease, each)
        self.connection.sync()

    def close_front(self):
        """What the window manager does for the cross of the window in front."""
        window = wait_for(lambda: "a window in front", self.in_front)
        message = protocol.event.ClientMessage(window=window, client_type=self.atom("_NET_CLOSE_WINDOW"),
                                               data=(32, [X.CurrentTime, 2, 0, 0, 0]))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.connection.sync()

    def copied(self):
        """The text that a program put on the clipboard; None when none did since it was taken."""
        if self.connection.get_selection_owner(self.atom("CLIPBOARD")) == self.clipboard:
            return None
        self.clipboard.convert_selection(self.atom("CLIPBOARD"), self.atom("UTF8_STRING"), self.atom("COPIED"),
                                         X.CurrentTime)

        def answered():
            while self.connection.pending_events():
                event = self.connection.next_event()
                if event.type == X.SelectionNotify:
                    return [event.property]
            return None

        if wait_for(lambda: "an answer of the clipboard", answered) == [X.NONE]:
            return None
        text = self.clipboard.get_full_property(self.atom("COPIED"), X.AnyPropertyType)
        self.clipboard.delete_property(self.atom("COPIED"))
        return text.value.decode() if text else None

    def take_clipboard(self):
        """So that what is copied next can be told from what was copied before."""
        self.clipboard.set_selection_owner(self.atom("CLIPBOARD"), X.CurrentTime)
        self.connection.sync()

    def picture(self, path):
        """The whole screen, as a PNG file."""
        width, height = SIZE
        image = self.root.get_image(0, 0, width, height, X.ZPixmap, 0xFFFFFFFF).data  # blue, green, red, nothing
        colours = bytearray(3 * width * height)
        for place in range(3):
            colours[place::3] = image[2 - place::4]
        lines = b"".join(b"\0" + colours[3 * width * y:3 * width * (y + 1)] for y in range(height))

        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                         chunk(b"IDAT", zlib.compress(lines)) + chunk(b"IEND", b""))
