"""Desktops without a screen: a server or compositor, a message bus and a window manager, all of the run's own."""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
from dataclasses import dataclass, field

from . import hands, screen
from .processes import Processes, is_installed, output_of, wait_for

size = "1366x768"
desktop_count = 4

openbox_settings = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <desktops><number>4</number><popupTime>0</popupTime></desktops>
</openbox_config>
"""
kwin_settings = "[Desktops]\nNumber=4\nRows=1\n" + "".join(f"Id_{n}=matrix-{n}\n" for n in range(1, 5))
bspwm_settings = "#!/bin/sh\nbspc monitor -d 1 2 3 4\n"
polybar_settings = """[bar/matrix]
width = 100%
height = 24
modules-right = date
[module/date]
type = internal/date
date = %H:%M
"""


@dataclass
class Desktop:
    """A row of the table: how to start a window manager and what belongs to it."""
    name: str
    command: list
    server: str = "xvfb"  # or "wayland": the window manager is the compositor and starts Xwayland
    files: dict = field(default_factory=dict)  # below the home folder
    environment: dict = field(default_factory=dict)
    companions: list = field(default_factory=list)  # started after it
    makes_desktops: bool = True  # obeys _NET_NUMBER_OF_DESKTOPS
    dynamic: bool = False  # makes and drops desktops by itself
    obeys_opacity: bool = True
    scale: int = 1  # pixels of an X client for each point of the program's
    drawing_time: float = 0.0  # seconds until what is mapped is on the screen

    def programs(self):
        server = ["Xvfb"] if self.server == "xvfb" else ["Xwayland"]
        return server + [self.command[0]] + [companion[0] for companion in self.companions]

    def is_installed(self):
        return is_installed(*self.programs())


gnome_environment = {"XDG_CURRENT_DESKTOP": "GNOME", "LIBGL_ALWAYS_SOFTWARE": "1", "GSETTINGS_BACKEND": "keyfile"}
gnome_file = ".config/glib-2.0/settings/keyfile"
gnome_settings = {gnome_file: "[org/gnome/desktop/notifications]\nshow-banners=false\n"
                              "[org/gnome/shell]\nwelcome-dialog-last-shown-version='9999'\n"}
indicator_settings = {gnome_file: gnome_settings[gnome_file] + "enabled-extensions=['ubuntu-appindicators@ubuntu.com']\n"}
# Plasma's panel shows no items where this is another version's.
plasma_version = "6" if is_installed("kded6") else "5"
plasma_environment = {"LIBGL_ALWAYS_SOFTWARE": "1", "XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true",
                      "KDE_SESSION_VERSION": plasma_version}
kwin_wayland_environment = {"LIBGL_ALWAYS_SOFTWARE": "1", "XDG_SESSION_TYPE": "wayland",
                            "KWIN_SCREENSHOT_NO_PERMISSION_CHECKS": "1", "KWIN_WAYLAND_NO_PERMISSION_CHECKS": "1"}
memory_settings = {"GSETTINGS_BACKEND": "memory"}
openbox_files = {".config/openbox/rc.xml": openbox_settings}
openbox = ["openbox", "--sm-disable"]
plasma = ["plasmashell", "--no-respawn"]
settings_daemon = ["/usr/libexec/gsd-xsettings"]
picom = ["picom", "--config", "/dev/null", "--backend", "xrender"]


def plain(name, command, **rest):
    """A window manager without and with a compositor beside it."""
    return [Desktop(name, command, **rest), Desktop(name + "+picom", command, companions=[picom], **rest)]


def on_kwin_wayland(name, *options, environment=None, **rest):
    return Desktop(name, ["kwin_wayland", "--virtual", "--width", "1366", "--height", "768", "--xwayland", *options],
                   server="wayland", files={".config/kwinrc": kwin_settings}, makes_desktops=False,
                   environment={**kwin_wayland_environment, **(environment or {})}, **rest)


def on_gnome_wayland(name, *options, monitor=size, settings="", **rest):
    files = {gnome_file: gnome_settings[gnome_file] + settings}
    return Desktop(name, ["gnome-shell", "--wayland", "--headless", "--unsafe-mode", "--virtual-monitor", monitor, *options],
                   server="wayland", files=files, makes_desktops=False, dynamic=True,
                   environment={**gnome_environment, "XDG_SESSION_TYPE": "wayland"}, **rest)


def beside_panel(panel, *command, files=None):
    return Desktop(f"openbox+{panel}", openbox, files={**openbox_files, **(files or {})},
                   environment=memory_settings, companions=[list(command or [panel])])


desktops = [
    *plain("openbox", openbox, files=openbox_files),
    Desktop("xfwm4", ["xfwm4", "--compositor=off"]),
    Desktop("xfwm4 composited", ["xfwm4", "--compositor=on"]),
    Desktop("kwin_x11", ["kwin_x11"], files={".config/kwinrc": kwin_settings}, makes_desktops=False),
    Desktop("kwin_x11+plasma", ["kwin_x11"], files={".config/kwinrc": kwin_settings}, makes_desktops=False,
            environment={**plasma_environment, "XDG_SESSION_TYPE": "x11"}, companions=[plasma]),
    *plain("metacity", ["metacity", "--sm-disable", "--no-composite"], environment=memory_settings),
    *plain("marco", ["marco", "--sm-disable", "--no-composite"], environment=memory_settings),
    Desktop("marco composited", ["marco", "--sm-disable", "--composite"], environment=memory_settings),
    *plain("icewm", ["icewm"]),
    *plain("fluxbox", ["fluxbox"], files={".fluxbox/overlay": "background: none\n"}, obeys_opacity=False),
    *plain("i3", ["i3"], files={".config/i3/config": "font pango:DejaVu Sans 8\n"}, makes_desktops=False, dynamic=True),
    *plain("awesome", ["awesome"], makes_desktops=False),
    *plain("bspwm", ["bspwm"], files={".config/bspwm/bspwmrc": bspwm_settings}, makes_desktops=False),
    Desktop("gnome-shell", ["gnome-shell", "--x11", "--sm-disable", "--unsafe-mode"], files=gnome_settings,
            environment={**gnome_environment, "XDG_SESSION_TYPE": "x11"}, makes_desktops=False, dynamic=True,
            drawing_time=0.2),
    Desktop("gnome-shell+indicators", ["gnome-shell", "--x11", "--sm-disable", "--unsafe-mode"],
            files=indicator_settings, environment={**gnome_environment, "XDG_SESSION_TYPE": "x11"},
            makes_desktops=False, dynamic=True, drawing_time=0.2),
    Desktop("cinnamon", ["cinnamon"], makes_desktops=False, drawing_time=0.2,
            environment={"LIBGL_ALWAYS_SOFTWARE": "1", "XDG_SESSION_TYPE": "x11", **memory_settings}),
    on_kwin_wayland("kwin_wayland"),
    on_kwin_wayland("kwin_wayland two outputs", "--output-count", "2"),
    on_kwin_wayland("kwin_wayland scale 2", "--scale", "2"),
    on_kwin_wayland("kwin_wayland two outputs scale 2", "--output-count", "2", "--scale", "2"),
    on_kwin_wayland("kwin_wayland+plasma", environment=plasma_environment, companions=[plasma]),
    on_gnome_wayland("gnome-shell wayland"),
    on_gnome_wayland("gnome-shell wayland two outputs", "--virtual-monitor", "1280x1024"),
    # Its settings daemon tells X clients of the scale.
    on_gnome_wayland("gnome-shell wayland scale 2", monitor="2732x1536",
                     settings="[org/gnome/desktop/interface]\nscaling-factor=uint32 2\n",
                     companions=[settings_daemon], scale=2),
    beside_panel("xfce4-panel"),
    beside_panel("mate-panel"),
    beside_panel("lxqt-panel"),
    beside_panel("tint2"),
    beside_panel("polybar", "polybar", "matrix", files={".config/polybar/config.ini": polybar_settings}),
]


class Session:
    """One desktop, ready to use, to which the environment of this process points. One in the life of a process."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.folder = tempfile.mkdtemp(prefix="roomlattice-wm.")
        self.processes = Processes(self.folder)
        self.prepare_environment()
        self.start_buses()
        self.start_server()
        self.screen = screen.Screen()
        self.hands = self.find_hands()
        self.start_companions()
        self.set_desktops()

    def prepare_environment(self):
        # For a program that was built with sanitizers.
        suppressions = pathlib.Path(__file__).parents[2] / "tests" / "leak-suppressions.txt"
        os.environ["LSAN_OPTIONS"] = f"suppressions={suppressions}:print_suppressions=0"
        for name in list(os.environ):
            if name.startswith(("XDG_", "QT_", "GTK_", "KDE_", "DBUS_", "WAYLAND_", "GNOME_")):
                del os.environ[name]
        for name in ("XAUTHORITY", "SESSION_MANAGER", "DISPLAY"):
            os.environ.pop(name, None)
        home = pathlib.Path(self.folder, "home")
        runtime = pathlib.Path(self.folder, "run")
        runtime.mkdir(mode=0o700)
        home.mkdir()
        os.environ.update(HOME=str(home), XDG_RUNTIME_DIR=str(runtime), XDG_CONFIG_HOME=str(home / ".config"),
                          XDG_DATA_HOME=str(home / ".local/share"), XDG_STATE_HOME=str(home / ".local/state"),
                          XDG_CACHE_HOME=str(home / ".cache"), **self.desktop.environment)
        for name, text in self.desktop.files.items():
            path = home / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
            path.chmod(0o755)
        os.chdir(home)

    def start_buses(self):
        """What asks the system's bus gets an empty one of the run's own."""
        for name, variable in (("session", "DBUS_SESSION_BUS_ADDRESS"), ("system", "DBUS_SYSTEM_BUS_ADDRESS")):
            path = os.path.join(os.environ["XDG_RUNTIME_DIR"], name + "-bus")
            os.environ[variable] = "unix:path=" + path
            self.processes.start(name + "-bus", "dbus-daemon", "--session", "--nofork", "--nopidfile",
                                 "--address=unix:path=" + path)
            self.require(wait_for(lambda path=path: os.path.exists(path)), "the message bus")

    def start_server(self):
        if self.desktop.server == "wayland":
            self.start_window_manager()
            os.environ.update(self.require(wait_for(self.xwayland, 60), "Xwayland"))
        else:
            os.environ["DISPLAY"] = self.start_xvfb()
            output_of("hsetroot", "-solid", "#204060")
            self.start_window_manager()
        # For services that the bus starts.
        output_of("dbus-update-activation-environment", "DISPLAY")
        self.require(wait_for(lambda: output_of("wmctrl", "-m"), 60), "the window manager")

    def start_xvfb(self):
        reader, writer = os.pipe()
        self.processes.start("xvfb", "Xvfb", "-r", "-displayfd", str(writer), "-screen", "0", size + "x24", "-nolisten",
                             "tcp", "-noreset", "+extension", "GLX", "+iglx", keep_descriptors=(writer,))
        os.close(writer)
        with os.fdopen(reader) as announcement:
            return ":" + self.require(announcement.readline().strip(), "the X server")

    def start_window_manager(self):
        command = list(self.desktop.command)
        if command[0] == "kwin_wayland":
            command = [self.executable(command[0]), *command[1:], self.announcer()]
        self.window_manager = self.processes.start("window-manager", *command)

    def executable(self, name):
        """The installed program, or a copy where a container refuses to execute what has capabilities."""
        path = shutil.which(name)
        try:
            subprocess.run([path, "--version"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
            return path
        except PermissionError:
            return shutil.copy(path, self.folder)

    def announcer(self):
        """A program for the compositor to start, which writes down how it reaches Xwayland."""
        program = pathlib.Path(self.folder, "announcer")
        program.write_text(f'#!/bin/sh\nenv -0 >"{self.folder}/environment.new"\n'
                           f'mv "{self.folder}/environment.new" "{self.folder}/environment"\n', encoding="utf-8")
        program.chmod(0o755)
        return str(program)

    def xwayland(self):
        """The environment of its clients, once it can be told."""
        if self.desktop.command[0] == "kwin_wayland":
            return self.announced_xwayland()
        display = self.xwayland_display()
        authority = next(pathlib.Path(os.environ["XDG_RUNTIME_DIR"]).glob("*[xX]wayland*auth*"), None)
        return display and {"DISPLAY": display, **({"XAUTHORITY": str(authority)} if authority else {})}

    def announced_xwayland(self):
        try:
            words = pathlib.Path(self.folder, "environment").read_text(encoding="utf-8").split("\0")
        except FileNotFoundError:
            return None
        return {name: value for name, _, value in (word.partition("=") for word in words)
                if name in ("DISPLAY", "XAUTHORITY") and value}

    def xwayland_display(self):
        """Of the Xwayland that the compositor has started; its number is the first argument."""
        children = output_of("pgrep", "--full", "--parent", str(self.window_manager.pid), "Xwayland").split()
        for child in children:
            with open(f"/proc/{child}/cmdline", encoding="utf-8") as file:
                number = next((word for word in file.read().split("\0") if word.startswith(":")), None)
            if number:
                return number
        return None

    def start_companions(self):
        for command in self.desktop.companions:
            self.processes.start(command[0], *command)
            if command is picom:
                self.require(wait_for(self.screen.is_composited), "the compositor")
            elif command is settings_daemon:
                self.require(wait_for(self.screen.has_settings, 60), "the settings daemon")
            elif command is plasma:
                self.require(wait_for(self.has_tray, 60), "the panel")
            else:
                self.require(wait_for(lambda: self.screen.windows_of_type("DOCK"), 60), command[0])

    def find_hands(self):
        if self.desktop.server == "xvfb":
            return hands.XHands(self.screen.display)
        os.environ["WAYLAND_DISPLAY"] = "wayland-0"
        return hands.KWinHands() if self.desktop.command[0] == "kwin_wayland" else hands.MutterHands(self.screen.root)

    def set_desktops(self):
        if self.desktop.dynamic:
            if "gnome" in self.desktop.name:
                screen.leave_overview()
            return

        def has_desktops():
            if self.desktop.makes_desktops and self.screen.desktop_count() != desktop_count:
                output_of("wmctrl", "-n", str(desktop_count))
            return (self.screen.desktop_count() or 0) >= desktop_count
        self.require(wait_for(has_desktops, 30), "the desktops")

    def require(self, value, what):
        if not value:
            raise RuntimeError(f"{what} did not start (logs in {self.folder})")
        return value

    def picture(self, path, frame=None):
        """Of the whole screen or of a part, by the means of the session; false where it has none."""
        geometry = self.screen.root.get_geometry()
        left, top, width, height = frame or (0, 0, geometry.width, geometry.height)
        crop = ("-crop", f"{width}x{height}+{left}+{top}", "+repage")
        if self.desktop.server == "xvfb":
            output_of("import", "-silent", "-window", "root", *crop, path)
        elif self.desktop.command[0] == "kwin_wayland":
            return screen.kwin_picture(path, geometry.width, geometry.height, crop)
        else:
            area = [str(side // self.desktop.scale) for side in (left, top, width, height)]
            output_of("gdbus", "call", "--session", "--dest", "org.gnome.Shell.Screenshot", "--object-path",
                      "/org/gnome/Shell/Screenshot", "--method", "org.gnome.Shell.Screenshot.ScreenshotArea", *area,
                      "false", path)
        return True

    def ask_tray(self, property_name):
        return output_of("gdbus", "call", "--session", "--dest", "org.kde.StatusNotifierWatcher", "--object-path",
                         "/StatusNotifierWatcher", "--method", "org.freedesktop.DBus.Properties.Get",
                         "org.kde.StatusNotifierWatcher", property_name)

    def has_tray(self):
        return "true" in self.ask_tray("IsStatusNotifierHostRegistered")

    def panel_item(self):
        """The bus name and the path of the StatusNotifierItem in a panel of the session; nothing without one."""
        found = re.search(r"'([^'/]+)(/[^']*)?'", self.ask_tray("RegisteredStatusNotifierItems"))
        return (found[1], found[2] or "/StatusNotifierItem") if found else None

    def activate_panel_item(self, x, y):
        """As a panel does for a click at that place."""
        item = self.panel_item()
        if item:
            output_of("gdbus", "call", "--session", "--dest", item[0], "--object-path", item[1], "--method",
                      "org.kde.StatusNotifierItem.Activate", str(x), str(y))
        return item is not None

    def native_window(self):
        """A window of a Wayland client that fills the screen: the process, which prints what the window hears."""
        return self.processes.start("native", "env", "GDK_BACKEND=wayland", "/usr/bin/python3", "-u",
                                    str(pathlib.Path(__file__).with_name("native.py")))

    def end(self):
        self.processes.end_all()
        shutil.rmtree(self.folder, ignore_errors=True)
