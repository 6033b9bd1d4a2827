"""A user's hands on the pointer and the keyboard of a session.

Wayland compositors are told by their own means, and X clients there hear only what the compositor tells them. Places are
in its logical coordinates then, keys and buttons those of linux/input-event-codes.h.
"""
import json
import os
import socket
import struct
import time

from Xlib import X
from Xlib.ext import xtest

from .processes import wait_for

left_button = 0x110
escape_symbol, return_symbol = 0xFF1B, 0xFF0D
escape, enter = 1, 28
key_codes = {letter: first + place for first, row in ((2, "1234567890"), (16, "qwertyuiop"), (30, "asdfghjkl"),
                                                      (44, "zxcvbnm")) for place, letter in enumerate(row)}
key_codes.update({"\x1b": escape, "\r": enter})


def words(*values):
    return b"".join(struct.pack("=I", value & 0xFFFFFFFF) for value in values)


def string(value):
    data = value.encode() + b"\0"
    return words(len(data)) + data + b"\0" * (-len(data) % 4)


class WaylandGlobal:
    """One global of the compositor, as much of the wire format as it takes to send requests to it."""
    display, registry, callback, bound = 1, 2, 3, 4

    def __init__(self, interface, version):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"]))
        self.send(1, words(self.registry), target=self.display)
        self.send(0, words(self.callback), target=self.display)
        name = self.find(interface)
        if name is None:
            raise RuntimeError(f"the compositor has no {interface}")
        self.send(0, words(name) + string(interface) + words(version, self.bound), target=self.registry)

    def send(self, request, arguments, target=bound):
        self.socket.sendall(words(target, (8 + len(arguments)) << 16 | request) + arguments)

    def find(self, interface):
        """Its number, from the list that ends with the callback."""
        name = None
        while True:
            sender, rest = struct.unpack("=II", self.socket.recv(8, socket.MSG_WAITALL))
            body = self.socket.recv((rest >> 16) - 8, socket.MSG_WAITALL)
            if sender == self.callback:
                return name
            if sender == self.registry:
                number, length = struct.unpack_from("=II", body)
                if body[8:8 + length - 1] == interface.encode():
                    name = number


class Hands:
    """What all have in common."""

    def click(self, x, y):
        self.move_pointer(x, y)
        time.sleep(0.05)
        for pressed in (True, False):
            self.button(pressed)
            time.sleep(0.02)

    def press(self, character):
        """A letter or a digit, or one of the characters that Return and Escape stand for."""
        for pressed in (True, False):
            self.key(key_codes[character], pressed)

    def type(self, text):
        for character in text:
            self.press(character)


class XHands(Hands):
    """Through the XTEST extension of an X server that has the screen to itself."""

    def __init__(self, display):
        self.display = display
        self.root = display.screen().root

    def move_pointer(self, x, y):
        place = (int(x), int(y))
        self.fake(X.MotionNotify, x=place[0], y=place[1])
        wait_for(lambda: self.pointer() == place, 2)

    def pointer(self):
        answer = self.root.query_pointer()
        return (answer.root_x, answer.root_y)

    def button(self, pressed):
        self.fake(X.ButtonPress if pressed else X.ButtonRelease, 1)

    def key(self, code, pressed):
        self.fake(X.KeyPress if pressed else X.KeyRelease, code)

    def press(self, character):
        symbol = {"\x1b": escape_symbol, "\r": return_symbol}.get(character, ord(character))
        code = self.display.keysym_to_keycode(symbol)
        for pressed in (True, False):
            self.key(code, pressed)

    def fake(self, *event, **place):
        xtest.fake_input(self.display, *event, **place)
        self.display.sync()


class KWinHands(Hands):
    """Through fake-input.xml of plasma-wayland-protocols, which KWin offers to all where it was told to."""

    def __init__(self):
        self.input = WaylandGlobal("org_kde_kwin_fake_input", 4)
        self.input.send(0, string("window-managers") + string("trial"))

    def move_pointer(self, x, y):
        self.input.send(9, words(int(x * 256), int(y * 256)))

    def button(self, pressed):
        self.input.send(2, words(left_button, pressed))

    def key(self, code, pressed):
        self.input.send(10, words(code, pressed))


class MutterHands(Hands):
    """Through org.gnome.Mutter.RemoteDesktop, and the shell's console, which its unsafe mode opens."""

    def __init__(self, root):
        import dbus  # pylint: disable=import-outside-toplevel  # only where a compositor is tried
        self.root = root
        self.bus = dbus.SessionBus()
        name = "org.gnome.Mutter.RemoteDesktop"
        desktop = dbus.Interface(self.bus.get_object(name, "/org/gnome/Mutter/RemoteDesktop"), name)
        self.session = dbus.Interface(self.bus.get_object(name, desktop.CreateSession()), name + ".Session")
        self.session.Start()
        self.shell = dbus.Interface(self.bus.get_object("org.gnome.Shell", "/org/gnome/Shell"), "org.gnome.Shell")

    def move_pointer(self, x, y):
        """By a step from where it is, as only steps can be told without a stream of pictures."""
        left, top, width, scale = self.ask("[...global.get_pointer().slice(0, 2), global.screen_width,"
                                           " global.display.get_monitor_scale(0)]")
        # Where the monitor is scaled, X clients count its pixels, steps do not, and the shell did so up to GNOME 43.
        per_pixel = width / self.root.get_geometry().width
        per_step = per_pixel * scale
        self.session.NotifyPointerMotionRelative((x * per_pixel - left) / per_step, (y * per_pixel - top) / per_step)

    def ask(self, expression):
        return json.loads(self.shell.Eval(expression)[1])

    def button(self, pressed):
        self.session.NotifyPointerButton(left_button, pressed)

    def key(self, code, pressed):
        self.session.NotifyKeyboardKeycode(code, pressed)
