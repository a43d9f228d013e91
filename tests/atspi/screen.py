"""The program on a screen in memory, heard and operated through the accessibility tree alone.

A screen, a session bus and the accessibility bus are started for it and end with it.
"""

import contextlib
import os
import pathlib
import signal
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LONGEST_WAIT = 30  # seconds; what is waited for comes within one on an idle machine
TREE_ROW = "table cell"  # as which Qt 6.4 tells the row of a tree


class Missing(AssertionError):
    """What was waited for did not come."""


def wait_for(what, condition):
    """The first answer of `condition` that is true. A tool that vanishes meanwhile is no answer."""
    deadline = time.monotonic() + LONGEST_WAIT
    while True:
        with contextlib.suppress(GLib.Error):
            answer = condition()
            if answer:
                return answer
        if time.monotonic() > deadline:
            raise Missing(f"waited {LONGEST_WAIT} s in vain for {what}")
        time.sleep(0.02)


def start_logged(arguments, log, **options):
    """A process in a group of its own, so that it ends with all that it starts itself."""
    with log.open("wb") as errors:
        return subprocess.Popen([str(argument) for argument in arguments], start_new_session=True,
                                stdout=subprocess.DEVNULL, stderr=errors, **options)


def end(process):
    for ending in (signal.SIGTERM, signal.SIGKILL):
        if process.poll() is None:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, ending)
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(10)


@contextlib.contextmanager
def screen(folder):
    """Starts a screen and the accessibility bus; `folder` holds what they leave."""
    running = []
    try:
        read, write = os.pipe()
        # Without -noreset it starts afresh, and refuses everyone meanwhile, as soon as its last client has left: here
        # that is the launcher below.
        running.append(start_logged(
            ["Xvfb", "-noreset", "-displayfd", write, "-screen", "0", "1600x1000x24", "-nolisten", "tcp"],
            folder / "Xvfb.log", pass_fds=[write]))
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise Missing("Xvfb did not start: " + (folder / "Xvfb.log").read_text())
        os.environ["DISPLAY"] = ":" + number
        running.append(start_logged(
            ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"], folder / "launcher.log"))
        yield
    finally:
        for process in reversed(running):
            end(process)


def inside_a_session():
    """Whether this process has a session bus of its own. If not, runs itself again within one."""
    if os.environ.get("VANTRY_OWN_SESSION") == "1":
        return True
    environment = dict(os.environ, VANTRY_OWN_SESSION="1")
    for name in ("DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY"):
        environment.pop(name, None)
    sys.exit(subprocess.run(
        ["dbus-run-session", "--", sys.executable, *sys.argv], env=environment, check=False).returncode)


class Program:
    """Vantry in English over its own folder."""

    def __init__(self, vantry, folder):
        self.folder = pathlib.Path(folder)
        settings = self.folder / "config" / "Vantry"
        settings.mkdir(parents=True, exist_ok=True)
        (settings / "Vantry.conf").write_text("[General]\nVantryLanguage=en\nVantryAppearance=light\n")
        environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(self.folder),
            "LANG": "C.UTF-8",
            "DISPLAY": os.environ["DISPLAY"],
            "DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"],
            "XDG_RUNTIME_DIR": os.environ["XDG_RUNTIME_DIR"],
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "VANTRY_DATA_DIR": str(self.folder / "data"),
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        }
        self.log = self.folder / "vantry.log"
        self.process = start_logged([vantry], self.log, env=environment)
        self.tree = wait_for("the program in the accessibility tree", self.find_program)

    def find_program(self):
        if self.process.poll() is not None:
            raise Missing(f"the program ended with {self.process.returncode}: {self.log.read_text()}")
        desktop = Atspi.get_desktop(0)
        for at in range(desktop.get_child_count()):
            candidate = desktop.get_child_at_index(at)
            if candidate and candidate.get_process_id() == self.process.pid and candidate.get_child_count():
                return candidate
        return None

    def end(self):
        end(self.process)

    def walk(self, node=None):
        """All that is on show, from the top."""
        for at in range((node or self.tree).get_child_count()):
            child = (node or self.tree).get_child_at_index(at)
            if child is not None:
                yield child
                yield from self.walk(child)

    def find(self, name, role=None):
        """What is called so, or None."""
        for node in self.walk():
            with contextlib.suppress(GLib.Error):
                if node.get_name() == name and (role is None or node.get_role_name() == role) and \
                        has(node, Atspi.StateType.SHOWING):
                    return node
        return None

    def get(self, name, role=None):
        """What is called so, as soon as it is there."""
        try:
            return wait_for(f"{role or 'something'} called {name!r}", lambda: self.find(name, role))
        except Missing as failure:
            raise Missing(f"{failure}; on show: {self.names()}") from None

    def names(self):
        """What is on show, for those who read why something failed."""
        found = []
        for node in self.walk():
            with contextlib.suppress(GLib.Error):
                if node.get_name() and has(node, Atspi.StateType.SHOWING):
                    found.append(f"{node.get_role_name()} {node.get_name()!r}")
        return ", ".join(found)

    def act(self, name, role, action="Press"):
        perform(self.get(name, role), action)

    def write(self, name, text):
        """Puts `text` into the field, as dictation does."""
        field = self.get(name, "text")
        Atspi.EditableText.set_text_contents(field, text)
        wait_for(f"the text in {name!r}", lambda: Atspi.Text.get_text(field, 0, -1) == text)


def has(node, state):
    return node.get_state_set().contains(state)


def actions(node):
    return [Atspi.Action.get_action_name(node, at) for at in range(Atspi.Action.get_n_actions(node))]


def perform(node, action):
    offered = actions(node)
    if action not in offered:
        raise AssertionError(f"{node.get_name()!r} offers {offered} and no {action}")
    Atspi.Action.do_action(node, offered.index(action))
