# SPDX-License-Identifier: MIT
"""A notification server that is as it is told: right, slow, or answers nonsense. Prints what it is asked."""
import sys

import dbus
import dbus.lowlevel
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

KIND = sys.argv[1]
NAME = "org.freedesktop.Notifications"
SLOW = 3  # seconds until the answer
DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()


class Server(dbus.service.Object):
    shown = 0

    @dbus.service.method(NAME, out_signature="v" if KIND == "nonsense" else "as")
    def GetCapabilities(self):
        return 42 if KIND == "nonsense" else ["body", "actions"]

    @dbus.service.method(NAME, in_signature="susssasa{sv}i", out_signature="s" if KIND == "nonsense" else "u",
                         async_callbacks=("answer", "fail"))
    def Notify(self, name, replaces, icon, title, body, actions, hints, limit, answer, fail):
        Server.shown += 1
        print("Notify", Server.shown, body, flush=True)
        if KIND == "nonsense":
            answer("pineapple")
            self.ActionInvoked("pineapple", "")
            self.Closed()
            return
        GLib.timeout_add(SLOW * 1000 if KIND == "slow" else 0, lambda number: answer(number), dbus.UInt32(Server.shown))

    @dbus.service.method(NAME, in_signature="u")
    def CloseNotification(self, number):
        print("Close", number, flush=True)

    @dbus.service.signal(NAME, signature="ss")
    def ActionInvoked(self, number, action):
        pass

    def Closed(self):
        message = dbus.lowlevel.SignalMessage("/org/freedesktop/Notifications", NAME, "NotificationClosed")
        bus.send_message(message)


server = Server(bus, "/org/freedesktop/Notifications")
owned = dbus.service.BusName(NAME, bus)
print("ready", flush=True)
GLib.MainLoop().run()
