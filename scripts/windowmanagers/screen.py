"""What other programs see of an X screen."""
import os
import subprocess
import threading

from Xlib import X, Xatom, display, error

from .processes import output_of, wait_for

all_desktops = 0xFFFFFFFF
largest_corner = 4  # pixels; a point is several where the session is scaled


class Screen:
    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root

    def atom(self, name):
        return self.display.intern_atom(name)

    def numbers(self, window, name):
        try:
            value = window.get_full_property(self.atom(name), X.AnyPropertyType)
        except error.XError:
            return []
        return list(value.value) if value and value.format == 32 else []

    def number(self, window, name):
        return next(iter(self.numbers(window, name)), None)

    def desktop_count(self):
        return self.number(self.root, "_NET_NUMBER_OF_DESKTOPS")

    def current_desktop(self):
        return self.number(self.root, "_NET_CURRENT_DESKTOP") or 0

    def active_window(self):
        return self.number(self.root, "_NET_ACTIVE_WINDOW")

    def desktop_of(self, window):
        return self.number(window, "_NET_WM_DESKTOP")

    def is_composited(self):
        return self.has_owner("_NET_WM_CM_S")

    def has_settings(self):
        return self.has_owner("_XSETTINGS_S")

    def has_owner(self, selection):
        """Of one that each screen has."""
        atom = self.atom(f"{selection}{self.display.get_default_screen()}")
        return self.display.get_selection_owner(atom) != X.NONE

    def windows(self, process=None):
        """All that bear a process's number, or that of one process, at whatever depth."""
        found = []

        def collect(parent, depth):
            try:
                children = parent.query_tree().children
            except error.XError:
                return
            for child in children:
                number = self.number(child, "_NET_WM_PID")
                if number is not None and process in (None, number):
                    found.append(child)
                if depth < 4:
                    collect(child, depth + 1)
        collect(self.root, 1)
        return found

    def has_type(self, window, name):
        return self.atom("_NET_WM_WINDOW_TYPE_" + name) in self.numbers(window, "_NET_WM_WINDOW_TYPE")

    def windows_of_type(self, name, process=None):
        return [window for window in self.windows(process) if self.has_type(window, name) and self.is_viewable(window)]

    def is_viewable(self, window):
        try:
            return window.get_attributes().map_state == X.IsViewable
        except error.XError:
            return False

    def is_popup(self, window):
        """A menu, and not one of the points in the corners that a program may watch."""
        try:
            attributes = window.get_attributes()
            return attributes.override_redirect and self.is_viewable(window) and self.frame(window)[2] > largest_corner
        except error.XError:
            return False

    def frame(self, window):
        """Left, top, width and height on the screen."""
        try:
            geometry = window.get_geometry()
            place = self.root.translate_coords(window, 0, 0)
        except error.XError:
            return (0, 0, 0, 0)
        return (place.x, place.y, geometry.width, geometry.height)

    def opacity(self, window):
        value = self.number(window, "_NET_WM_WINDOW_OPACITY")
        return 1.0 if value is None else value / 0xFFFFFFFF

    def window(self, number):
        return self.display.create_resource_object("window", number)

    def is_managed(self, window):
        return window.id in self.numbers(self.root, "_NET_CLIENT_LIST")

    def shows_white(self):
        """Whether there is white text in the middle of the screen, as on a label, and on nothing else there."""
        geometry = self.root.get_geometry()
        left, top = geometry.width // 2 - 150, geometry.height // 2 - 40
        pixels = self.root.get_image(left, top, 300, 80, X.ZPixmap, 0xFFFFFF).data
        return any(min(pixels[place:place + 3]) > 70 for place in range(0, len(pixels), 4))

    def is_in_front(self, window):
        """Whether it is on the desktop in front; one that nobody manages is on all."""
        desktop = self.desktop_of(window)
        return not self.is_managed(window) or desktop in (None, all_desktops, self.current_desktop())

    def focused(self):
        focus = self.display.get_input_focus().focus
        return focus.id if hasattr(focus, "id") else focus

    def switch_to(self, desktop):
        """As a pager does."""
        output_of("wmctrl", "-s", str(desktop))
        return wait_for(lambda: self.current_desktop() == desktop, 5)


def shell_property(method, *value):
    """What GNOME Shell says of its overview, in which it starts."""
    return output_of("gdbus", "call", "--session", "--dest", "org.gnome.Shell", "--object-path", "/org/gnome/Shell",
                     "--method", "org.freedesktop.DBus.Properties." + method, "org.gnome.Shell", "OverviewActive",
                     *value)


def leave_overview():
    wait_for(lambda: "true" in shell_property("Get"), 20)
    shell_property("Set", "<false>")
    wait_for(lambda: "false" in shell_property("Get"), 5)


class PlainWindow:
    """A window of another application, on a connection of its own, that counts the keys it gets."""

    def __init__(self, desktop, color):
        self.display = display.Display()
        screen = self.display.screen()
        self.window = screen.root.create_window(40 + 30 * desktop, 140 + 40 * desktop, 300, 260, 0, screen.root_depth,
                                                X.InputOutput, X.CopyFromParent, background_pixel=color,
                                                event_mask=X.KeyPressMask | X.ButtonPressMask)
        self.window.set_wm_name(f"Window of desktop {desktop + 1}")
        self.window.set_wm_hints(flags=1, input=1)
        self.window.set_wm_normal_hints(flags=3)
        atom = self.display.intern_atom("_NET_WM_DESKTOP")
        self.window.change_property(atom, Xatom.CARDINAL, 32, [desktop])
        self.window.map()
        self.display.sync()
        self.count = 0

    @property
    def id(self):
        return self.window.id

    def keys(self):
        """So far."""
        self.display.sync()
        while self.display.pending_events():
            self.count += self.display.next_event().type == X.KeyPress
        return self.count


def kwin_picture(path, width, height, crop):
    """KWin writes the pixels of its screens into a pipe; newer ones only where they have a graphics card: false."""
    import dbus  # pylint: disable=import-outside-toplevel  # only where KWin is tried
    kwin = dbus.SessionBus().get_object("org.kde.KWin", "/org/kde/KWin/ScreenShot2")
    reader, writer = os.pipe()
    pixels = bytearray()

    def collect():
        while chunk := os.read(reader, 1 << 20):
            pixels.extend(chunk)
    collector = threading.Thread(target=collect)
    collector.start()
    capture = dbus.Interface(kwin, "org.kde.KWin.ScreenShot2").CaptureArea
    try:
        answer = capture(0, 0, width, height, dbus.Dictionary(signature="sv"), dbus.types.UnixFd(writer))
    except dbus.exceptions.DBusException as reason:
        if reason.get_dbus_name() == "org.freedesktop.DBus.Error.UnknownObject":
            return False
        raise
    finally:
        os.close(writer)
        collector.join(20)
    columns, lines, stride = (int(answer[key]) for key in ("width", "height", "stride"))
    rows = b"".join(pixels[y * stride:y * stride + columns * 4] for y in range(lines))
    subprocess.run(["convert", "-size", f"{columns}x{lines}", "-depth", "8", "bgra:-", "-alpha", "off", *crop, path],
                   input=rows, check=True)
    return True


def brightness(path):
    """The mean of a picture, from 0 to 1."""
    return float(output_of("convert", path, "-colorspace", "gray", "-format", "%[fx:mean]", "info:"))


def differ(path, other, frame):
    """Whether that part of two pictures is not the same."""
    return of_part(path, frame, "-format", "%#") != of_part(other, frame, "-format", "%#")


def of_part(path, frame, *options):
    left, top, width, height = frame
    return output_of("convert", path, "-crop", f"{width}x{height}+{left}+{top}", *options, "info:")
