"""What a user does with the program under any window manager, step by step."""
import json
import os
import pathlib
import signal
import time

from . import screen
from .processes import output_of, wait_for
from .screen import PlainWindow
from .sessions import desktop_count

colors = [0x803030, 0x308030, 0x303080, 0x808030]
row_height = 24
smallest_label = 500  # pixels
fade = 0.5  # seconds, of a label after a switch
priming = 0.6  # seconds until labels are ready again after a tour


class Failed(Exception):
    """What was seen in place of what a step expects."""


def expect(value, otherwise):
    if not value:
        raise Failed(otherwise() if callable(otherwise) else otherwise)
    return value


class Scenario:
    steps = ["tour", "focus", "held keys", "label", "own labels", "keys", "refuses", "row", "instant row", "rename",
             "preferences", "native window", "quit", "SIGTERM"]

    def __init__(self, session, program, picture):
        self.session = session
        self.screen = session.screen
        self.program = program
        self.picture = picture
        self.settings = pathlib.Path(os.environ["XDG_CONFIG_HOME"], "roomlattice", "settings.json")
        self.process = None
        self.windows = []
        self.labels = []
        self.typed_into = []

    def run(self):
        """The outcome of each step: nothing where it is as it should be, otherwise what was seen."""
        self.open_windows()
        outcomes = {}
        for step in self.steps:
            if step == "native window" and self.session.desktop.server == "xvfb":
                continue
            try:
                getattr(self, "try_" + step.replace(" ", "_").lower())()
                outcomes[step] = ""
            except Failed as reason:
                outcomes[step] = str(reason)
            except Exception as reason:  # pylint: disable=broad-except  # the table is to be complete
                outcomes[step] = f"{type(reason).__name__}: {reason}"
        return outcomes

    def open_windows(self):
        """One on each desktop."""
        for desktop, color in enumerate(colors):
            if self.session.desktop.name.startswith("i3"):
                output_of("i3-msg", "workspace", str(desktop + 1))
            elif self.session.desktop.dynamic:
                self.screen.switch_to(desktop)
            window = PlainWindow(desktop, color)
            self.windows.append(window)
            expect(wait_for(lambda window=window: self.screen.is_managed(window)), "an application shows no window")
            if self.screen.desktop_of(self.screen.window(window.id)) != desktop:
                output_of("wmctrl", "-i", "-r", hex(window.id), "-t", str(desktop))
        expect(wait_for(lambda: (self.screen.desktop_count() or 0) >= desktop_count), "too few desktops")
        self.activate(1)

    def activate(self, desktop):
        self.screen.switch_to(desktop)
        output_of("wmctrl", "-i", "-a", hex(self.windows[desktop].id))
        expect(wait_for(lambda: self.has_focus(desktop), 5), "an application's window does not get the keyboard")

    def has_focus(self, desktop):
        return self.screen.focused() == self.windows[desktop].id

    def start(self):
        self.process = self.session.processes.start("program", self.program)
        expect(wait_for(lambda: self.logged("tour start"), 30), "no tour")

    def logged(self, text):
        return text in self.session.processes.log("program").split("--- start ---")[-1]

    def own(self, kind):
        return self.screen.windows_of_type(kind, self.process.pid)

    def find_labels(self):
        """Those there are, seen or not. To look for them takes longer than they may be seen."""
        self.labels = [window for window in self.screen.windows(self.process.pid)
                       if self.screen.frame(window)[2] > smallest_label and not self.screen.has_type(window, "DOCK")]
        return len(self.labels)

    def labels_in_front(self):
        """Those of the labels that are to be seen now."""
        labels = [window for window in self.labels if self.screen.is_viewable(window)
                  and self.screen.is_in_front(window) and self.screen.opacity(window) > 0.05]
        if not self.session.desktop.obeys_opacity and not self.screen.shows_white():
            return []
        return labels

    def switch(self, desktop):
        expect(self.screen.switch_to(desktop), f"no switch to {desktop + 1}")

    def try_tour(self):
        self.start()
        count = self.screen.desktop_count()
        end = time.monotonic() + 30
        while not self.logged("tour end") and time.monotonic() < end:
            self.session.hands.type("abcd")
            time.sleep(0.01)
        self.typed_into = self.keys()
        expect(self.logged("tour end"), "does not end")
        expect(wait_for(lambda: self.find_labels() == self.screen.desktop_count(), 5),
               lambda: f"{len(self.labels)} labels")
        expect(wait_for(lambda: not self.labels_in_front(), 5), "a label stays")
        expect(self.screen.current_desktop() == 1, lambda: f"ends on {self.screen.current_desktop() + 1}")
        expect(self.screen.desktop_count() == count, lambda: f"{count} desktops became {self.screen.desktop_count()}")

    def try_focus(self):
        expect(wait_for(lambda: self.has_focus(1), 3), lambda: f"focus at {self.screen.focused():#x}")

    def try_held_keys(self):
        expect(not any(self.typed_into[0:1] + self.typed_into[2:]), f"keys on each desktop: {self.typed_into}")

    def try_label(self):
        """A label is seen after a switch, one, and the desktop stays in front."""
        time.sleep(priming)
        self.switch(2)
        seen = []
        end = time.monotonic() + 3
        while time.monotonic() < end:
            now = self.labels_in_front()
            seen.append(len(now))
            if len(now) == 1 and not os.path.exists(self.picture):
                time.sleep(self.session.desktop.drawing_time)
                self.session.picture(self.picture)
            if seen[-1] == 0 and max(seen) > 0:
                break
        expect(max(seen) == 1, f"{max(seen)} labels at once")
        expect(seen[-1] == 0, "the label stays")
        expect(self.screen.current_desktop() == 2, lambda: f"the user is on {self.screen.current_desktop() + 1} again")

    def try_own_labels(self):
        """Each desktop shows a label of its own, and none makes a further desktop."""
        count = self.screen.desktop_count()
        seen = {}
        for desktop in (0, 1, 2, 3, 0, 1):
            self.switch(desktop)
            label = expect(wait_for(self.labels_in_front, 3), f"none on {desktop + 1}")[0]
            expect(seen.setdefault(desktop, label.id) == label.id, f"another one on {desktop + 1}")
            expect(wait_for(lambda: not self.labels_in_front(), 3), f"it stays on {desktop + 1}")
        expect(len(set(seen.values())) == desktop_count, "desktops share labels")
        self.switch(count - 1)
        time.sleep(priming)
        self.switch(1)
        expect(self.screen.desktop_count() == count, lambda: f"{count} desktops became {self.screen.desktop_count()}")

    def try_keys(self):
        for desktop in (2, 0):
            self.switch(desktop)
            expect(wait_for(lambda desktop=desktop: self.has_focus(desktop), 3), f"nobody has them on {desktop + 1}")
            before = self.keys()
            self.session.hands.type("abc")
            expect(wait_for(lambda before=before: sum(self.keys()) == sum(before) + 3, 3), "keys are lost")
            expect(self.keys()[desktop] == before[desktop] + 3, "keys go elsewhere")

    def keys(self):
        """How many keys each window has got so far."""
        return [window.keys() for window in self.windows]

    def try_refuses(self):
        """A request to close the program's windows leaves them there."""
        for window in self.screen.windows(self.process.pid):
            if self.screen.has_type(window, "NOTIFICATION"):
                output_of("wmctrl", "-i", "-c", hex(window.id))
        self.switch(3)
        expect(wait_for(self.labels_in_front, 3), "no label any more")
        self.switch(0)
        expect(wait_for(lambda: self.own("DOCK") or self.session.panel_item(), 3), "no status item any more")

    def open_menu(self):
        """By a click; by a second one where the animation of a switch has eaten the first."""
        before = self.compositor_picture("before.png")
        self.click_item()
        if not wait_for(self.popup, 2):
            self.click_item()
        menu = expect(wait_for(self.popup, 5), "no menu")
        wait_for(lambda: self.screen.frame(menu)[3] > self.pixels(row_height) * desktop_count, 3)
        frame = self.screen.frame(menu)
        if before:
            # What a user does before the compositor shows the menu goes to what lies below.
            wait_for(lambda: screen.differ(before, self.compositor_picture("menu.png"), frame), 5)
        return frame

    def compositor_picture(self, name, frame=None):
        """Of the screen as a compositor says it is; nothing where the X server's windows are all there is to see."""
        path = os.path.join(self.session.folder, name)
        is_composited = self.session.desktop.server == "wayland"
        return path if is_composited and self.session.picture(path, frame) else None

    def pixels(self, points):
        return points * self.session.desktop.scale

    def click_item(self):
        item = next(iter(self.own("DOCK")), None)
        if item:
            left, top, width, height = self.screen.frame(item)
            self.session.hands.click(left + width - self.pixels(15), top + height // 2)
        else:
            self.session.hands.move_pointer(600, 100)
            expect(self.session.activate_panel_item(600, 100), "no status item")

    def popup(self):
        return next((window for window in self.screen.windows(self.process.pid) if self.screen.is_popup(window)), None)

    def click_row(self, row):
        left, top, _, _ = self.open_menu()
        self.session.hands.move_pointer(left + self.pixels(50), top + self.pixels(5))
        time.sleep(0.1)
        self.session.hands.click(left + self.pixels(60), top + 1 + self.pixels(row * row_height + row_height // 2))
        expect(wait_for(lambda: not self.popup(), 3), "the menu stays")
        expect(wait_for(lambda: self.screen.current_desktop() == row, 3), "no switch")
        time.sleep(fade)
        expect(self.screen.current_desktop() == row, "the user is sent back")

    def try_row(self):
        self.click_row(3)

    def try_instant_row(self):
        settings = json.loads(self.settings.read_text(encoding="utf-8"))
        self.settings.write_text(json.dumps({**settings, "InstantMenuSwitch": True}), encoding="utf-8")
        self.click_row(0)

    def try_rename(self):
        left, top, width, _ = self.open_menu()
        middle = top + 1 + self.pixels(row_height + row_height // 2)
        self.session.hands.move_pointer(left + self.pixels(60), middle)
        time.sleep(0.2)
        self.session.hands.click(left + width - self.pixels(20), middle)
        time.sleep(0.2)
        self.session.hands.type("mail")
        self.session.hands.press("\r")
        renamed = wait_for(lambda: "mail" in json.dumps(self.names()).lower(), 3)
        self.session.hands.press("\x1b")
        closed = wait_for(lambda: not self.popup(), 3)
        expect(renamed, lambda: f"names: {self.names()}")
        expect(closed, "the menu stays")

    def names(self):
        try:
            return json.loads(self.settings.read_text(encoding="utf-8")).get("SpaceNames", {})
        except (OSError, ValueError):
            return {}

    def try_preferences(self):
        left, top, _, height = self.open_menu()
        below = top + 1 + self.pixels(row_height) * (self.screen.desktop_count() or 0)
        self.session.hands.click(left + self.pixels(60), below + (top + height - below) * 3 // 10)
        window = expect(wait_for(self.preferences, 5), "no window")[0]
        expect(wait_for(lambda: self.screen.is_in_front(window), 2), "on another desktop")
        expect(wait_for(lambda: self.screen.focused() in self.own_ids(), 3), "without the keyboard")
        output_of("wmctrl", "-i", "-c", hex(window.id))
        expect(wait_for(lambda: not self.preferences(), 3), "the window stays")

    def preferences(self):
        return [window for window in self.own("NORMAL") if self.screen.is_managed(window)]

    def own_ids(self):
        return [window.id for window in self.screen.windows(self.process.pid)]

    def try_native_window(self):
        """Over a window of a Wayland client the menu has the keyboard, and a label is seen."""
        self.switch(1)
        window = self.session.native_window()

        def heard():
            return self.session.processes.log("native").split()

        def is_clicked():
            self.session.hands.click(500, 400)
            return wait_for(lambda: "focus" in heard(), 1)
        expect(wait_for(lambda: "shown" in heard(), 10), "it does not come")
        # It says so before the compositor shows it.
        expect(wait_for(is_clicked, 5), "it does not get the keyboard")
        left, _, width, _ = self.open_menu()
        expect(self.own("DOCK") or left + width in (600, 601), f"the menu is at {left}")
        expect(wait_for(lambda: self.screen.active_window() in self.own_ids(), 3), "the menu is without the keyboard")
        self.session.hands.press("3")
        expect(wait_for(lambda: self.screen.current_desktop() == 2, 3), "no switch by a digit")
        expect("key" not in heard(), "it hears what is typed in the menu")
        self.switch(1)
        label = expect(wait_for(self.labels_in_front, 2), "no label")[0]
        left, top, width, height = self.screen.frame(label)
        # Pictures of a part below the name are quick enough for a label that is seen for a moment.
        below_name = (left + width // 4, top + height * 7 // 8, width // 2, height // 16)
        expect(wait_for(lambda: self.is_dark(below_name), 2), "no label over it")
        self.session.hands.press("a")
        expect(wait_for(lambda: heard().count("key") == 1, 3), "it has lost the keyboard")
        window.terminate()

    def is_dark(self, frame):
        """By the compositor's account of the screen, where it gives one."""
        picture = self.compositor_picture("label.png", frame)
        return not picture or screen.brightness(picture) < 0.8

    def try_quit(self):
        left, top, _, height = self.open_menu()
        self.session.hands.click(left + self.pixels(60), top + height - self.pixels(row_height // 2))
        expect(wait_for(lambda: self.process.poll() is not None, 5), "still runs")
        expect(self.process.returncode == 0, f"exit status {self.process.returncode}")

    def try_sigterm(self):
        """In mid-tour: the user is where the tour began, and nothing is left."""
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.activate(1)
        log = pathlib.Path(self.session.folder, "program.log")
        log.write_text("", encoding="utf-8")
        self.start()
        expect(wait_for(lambda: self.screen.current_desktop() != 1, 5), "no tour")
        self.process.send_signal(signal.SIGTERM)
        expect(wait_for(lambda: self.process.poll() is not None, 5), "still runs")
        expect(self.process.returncode == 0, f"exit status {self.process.returncode}")
        expect(wait_for(lambda: self.screen.current_desktop() == 1, 2),
               lambda: f"the user is left on {self.screen.current_desktop() + 1}")
        time.sleep(0.3)
        expect(self.screen.current_desktop() == 1, "the user is taken on")
        expect(wait_for(lambda: self.has_focus(1), 3), "nobody has the keyboard")
        expect(not self.screen.windows(self.process.pid), "windows stay")

