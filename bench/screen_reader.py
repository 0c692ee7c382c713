#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Listens to the accessibility bus as a screen reader does, and asks for the name of whatever changes.

Says on a line that it has begun.
"""

import pyatspi
from gi.repository import GLib


def listen(event: "pyatspi.event.Event") -> None:
    try:
        event.source.name
    except GLib.Error:
        pass  # gone already, as most of what is replaced at a key press


pyatspi.Registry.registerEventListener(
    listen, "object:state-changed", "object:property-change", "object:children-changed"
)
print("listening", flush=True)
pyatspi.Registry.start()
