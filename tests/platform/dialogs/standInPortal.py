"""A stand-in for the desktop's portal. Arguments: the file to log each call to, then any of these words:

    scheme=N        the preferred colour scheme
    plain           the scheme is wrapped once instead of twice
    silent          settings and properties are never answered
    no-chooser      there is no file chooser
    choose=URI      the panel ends with this file
    end=N           the panel ends with this code and no file
    old-handle      the request has a different path than the caller expects
"""

import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
CHOOSER = "org.freedesktop.portal.FileChooser"
REQUEST = "org.freedesktop.portal.Request"

calls_file = sys.argv[1]
words = dict((word.split("=", 1) + [""])[:2] for word in sys.argv[2:])


def write_down(line):
    with open(calls_file, "a", encoding="utf-8") as file:
        file.write(line + "\n")


class Request(dbus.service.Object):
    @dbus.service.method(REQUEST)
    def Close(self):
        write_down("Close")

    @dbus.service.signal(REQUEST, signature="ua{sv}")
    def Response(self, response, results):
        pass


class Portal(dbus.service.Object):
    @dbus.service.method("org.freedesktop.portal.Settings", in_signature="ss", out_signature="v",
                         async_callbacks=("answer", "fail"))
    def Read(self, namespace, key, answer, fail):
        write_down(f"Read {namespace} {key}")
        if "silent" in words:
            return
        value = dbus.UInt32(int(words["scheme"]), variant_level=0 if "plain" in words else 1)
        answer(value)

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v",
                         async_callbacks=("answer", "fail"))
    def Get(self, interface, name, answer, fail):
        write_down(f"Get {interface} {name}")
        if "silent" in words:
            return
        if "no-chooser" in words:
            fail(dbus.exceptions.DBusException("none", name="org.freedesktop.DBus.Error.InvalidArgs"))
        else:
            answer(dbus.UInt32(3))

    @dbus.service.method(CHOOSER, in_signature="ssa{sv}", out_signature="o", sender_keyword="sender",
                         byte_arrays=True)
    def SaveFile(self, parent, title, options, sender):
        write_down(f"SaveFile parent={parent} title={title}")
        for key in sorted(options):
            write_down(f"  {key}={plain(options[key])}")
        token = "elsewhere" if "old-handle" in words else options["handle_token"]
        handle = f"{PATH}/request/{sender[1:].replace('.', '_')}/{token}"
        request = Request(dbus.SessionBus(), handle)
        GLib.timeout_add(50 if "old-handle" in words else 0, self.respond, request)
        return dbus.ObjectPath(handle)

    def respond(self, request):
        if "choose" in words:
            request.Response(0, {"uris": dbus.Array([words["choose"]], signature="s")})
        elif "end" in words:
            request.Response(int(words["end"]), dbus.Dictionary({}, signature="sv"))
        return False


def plain(value):
    if isinstance(value, (bytes, dbus.ByteArray)):
        return bytes(value)
    if isinstance(value, (dbus.Array, dbus.Struct, tuple, list)):
        return [plain(item) for item in value]
    if isinstance(value, dbus.Boolean):
        return bool(value)
    if isinstance(value, str):
        return str(value)
    return int(value)


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
portal = Portal(bus, PATH)
name = dbus.service.BusName(NAME, bus)
GLib.MainLoop().run()
