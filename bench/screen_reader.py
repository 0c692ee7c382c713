#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Simulates a screen reader on the accessibility bus: receives events and queries the name of each changed object.

Prints one line when it is registered.
"""

import pyatspi
from gi.repository import GLib


def on_event(event: "pyatspi.event.Event") -> None:
    try:
        event.source.name
    except GLib.Error:
        pass  # the object is destroyed already, as are most objects that a key press replaces


pyatspi.Registry.registerEventListener(
    on_event, "object:state-changed", "object:property-change", "object:children-changed"
)
print("registered", flush=True)
pyatspi.Registry.start()
