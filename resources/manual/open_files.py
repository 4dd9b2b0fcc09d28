#!/usr/bin/python3
"""Opens files in windows of Quillon XML Editor: open_files.py FILE..."""
import os
import sys

from gi.repository import Gio, GLib

NAME = "org.quillon.XmlEditor"


def call(path, interface, method, arguments=None):
    """Calls a method of the editor, which the session bus starts if need be."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    return bus.call_sync(NAME, path, interface, method, arguments, None,
                         Gio.DBusCallFlags.NONE, -1, None).unpack()


for file in sys.argv[1:]:
    (window,) = call("/org/quillon/XmlEditor", NAME + ".Factory", "CreateWindow")
    call(window, NAME + ".Window", "OpenFile",
         GLib.Variant("(s)", (os.path.abspath(file),)))
    call(window, "org.freedesktop.DBus.Properties", "Set",
         GLib.Variant("(ssv)", (NAME + ".Window", "Visible", GLib.Variant("b", True))))
