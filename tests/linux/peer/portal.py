# SPDX-License-Identifier: MIT
# A desktop portal that grants every shortcut, once a session, and activates it at once; prints the triggers that it was
# asked for.
import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
PATH = "/org/freedesktop/portal/desktop"
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"
bound = set()  # sessions


class Request(dbus.service.Object):
    @dbus.service.signal("org.freedesktop.portal.Request", signature="ua{sv}")
    def Response(self, response, results):
        pass


class Portal(dbus.service.Object):
    def answer(self, sender, options, results, after=None):
        path = f"{PATH}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        request = Request(bus, path)

        def respond():
            request.Response(dbus.UInt32(0), results)
            request.remove_from_connection()
            if after:
                after()

        GLib.idle_add(respond)
        return dbus.ObjectPath(path)

    @dbus.service.method(SHORTCUTS, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender=None):
        session = f"{PATH}/session/" + options["session_handle_token"]
        return self.answer(sender, options, dbus.Dictionary({"session_handle": session}, signature="sv"))

    @dbus.service.method(SHORTCUTS, in_signature="oa(sa{sv})sa{sv}", out_signature="o", sender_keyword="sender")
    def BindShortcuts(self, session, shortcuts, parent, options, sender=None):
        if session in bound:
            raise dbus.DBusException("shortcuts are bound once a session")
        bound.add(session)
        for name, properties in shortcuts:
            print(properties["preferred_trigger"], flush=True)

        def press():
            for name, properties in shortcuts:
                self.Activated(session, name, dbus.UInt64(1), dbus.Dictionary({}, signature="sv"))

        return self.answer(sender, options, dbus.Dictionary({}, signature="sv"), press)

    @dbus.service.signal(SHORTCUTS, signature="osta{sv}")
    def Activated(self, session, name, time, options):
        pass


portal = Portal(dbus.service.BusName("org.freedesktop.portal.Desktop", bus), PATH)
print("ready", flush=True)
GLib.MainLoop().run()
