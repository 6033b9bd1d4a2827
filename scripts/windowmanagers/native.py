"""A window of a Wayland client that fills the screen, and prints what it hears of the keyboard."""
import gi

gi.require_version("Gtk", "3.0")
from gi.repository import Gtk  # noqa: E402  pylint: disable=wrong-import-position


def tell(what):
    return lambda *_: print(what)


window = Gtk.Window(title="Native window")
window.add(Gtk.Label(label="A window of a Wayland client"))
window.connect("key-press-event", tell("key"))
window.connect("focus-in-event", tell("focus"))
window.connect("map-event", tell("shown"))
window.maximize()
window.show_all()
Gtk.main()
