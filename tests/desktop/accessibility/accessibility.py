#!/usr/bin/env python3
"""What a screen reader is told: the real program on a screen and an accessibility bus of its own.

    accessibility.py STRATIVO

Run it under tools/on-own-screen and dbus-run-session.
"""
import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 40  # seconds for one step on a slow machine

LIBRARY = "12'FACE BRICK' 0.84 1700 800\n20'BLOCK' 0.19 600 1000\n"
PROJECT = """!MATERIALS FILE = 'stdmat.lby'

!CONSTRUCTION 'Wall'
!TYPE OPAQUE
!PARTS
_ 1 =       12      0.105      0            * FACE BRICK
_ 2 =       20      0.100      0            * BLOCK
!END

!WINDOW = 'CLEAR'
!TRANSMISSION =
0.7, 0.75, 0.75, 0.75, 0.75, 0.74, 0.72, 0.67, 0.56, 0.34, 0.0
!ABSORPTION =
0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.0
!END
"""


def wait_for(what, condition):
    """Returns what the condition gives as soon as that is true."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            found = condition()
        except GLib.Error:  # a window went away while it was looked at
            found = None
        if found:
            return found
        time.sleep(0.05)
    raise SystemExit(f"never came: {what}\n" + "\n".join(described()))


def application():
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(i)
        if child is not None and child.get_name() == "strativo":
            child.clear_cache()
            return child
    return None


def below(node):
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield from below(child)


def nodes():
    return below(application()) if application() else iter(())


def described():
    return [f"{node.get_role_name()}: {node.get_name()}" for node in nodes()]


def named(name, role=None):
    """The node of exactly that name."""
    return next((node for node in nodes()
                 if node.get_name() == name and role in (None, node.get_role_name())), None)


def wait_for_name(name, role=None):
    return wait_for(f"{role or 'node'} {name!r}", lambda: named(name, role))


def key(*names):
    subprocess.run(["xdotool", "key", "--delay", "20", *names], check=True)


def active_window_is(title):
    shown = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True,
                           text=True)
    return shown.stdout.strip() == title


def names_follow_values():
    wait_for_name("Construction index: 1")
    wait_for_name("Current layer: FACE BRICK")
    wait_for_name("Indicative U-value: 1.20")
    wait_for_name("Layers: name, resistance in m2C/W, thickness in mm", "list")
    wait_for_name("Materials: name, conductivity in W/m C, density in kg/m3, "
                  "specific heat in J/kg C", "list")
    key("2", "1", "0", "Return")
    wait_for_name("Indicative U-value: 1.05")
    wait_for_name("Current layer: BLOCK")
    wait_for("the old names to go", lambda: not named("Indicative U-value: 1.20")
             and not named("Current layer: FACE BRICK"))


def graph_has_a_value():
    wait_for_name("Glass types", "list")
    key("alt+g", "Down", "alt+e")  # the list, its line, the button Edit
    wait_for("the glass editor", lambda: active_window_is("Glass Properties"))
    wait_for_name("Profile graph", "slider")
    key("Home", "Right", "Right")
    graph = wait_for_name("Profile graph: Transmission at 10 degrees, 0.750", "slider")
    assert abs(Atspi.Value.get_current_value(graph) - 0.75) < 1e-6
    key("Next")
    wait_for_name("Profile graph: Transmission at 10 degrees, 0.650", "slider")
    assert Atspi.Value.set_current_value(graph, 0.25)
    wait_for_name("Profile graph: Transmission at 10 degrees, 0.250", "slider")


def main():
    program = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as folder:
        (Path(folder) / "stdmat.lby").write_text(LIBRARY)
        (Path(folder) / "wall.con").write_text(PROJECT)
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                           XDG_STATE_HOME=folder, XDG_CONFIG_HOME=folder)
        process = subprocess.Popen([program, "wall.con"], cwd=folder, env=environment)
        try:
            wait_for("the program on the bus", application)
            wait_for("the main window", lambda: active_window_is("Brevan Strativo V2.1"))
            names_follow_values()
            key("alt+e", "g")
            graph_has_a_value()
        finally:
            process.kill()
            process.wait()


main()
