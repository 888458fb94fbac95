"""The program under test as it is seen on the accessibility bus: what is where, which events come, and the keys
of a keyboard."""

import os
import subprocess
import time

import pyatspi
from gi.repository import Atspi, GLib
from screen import Screen

PATIENCE = 10  # seconds
KEYS = {"Left": 0xFF51, "Right": 0xFF53, "Home": 0xFF50, "End": 0xFF57, "Escape": 0xFF1B, "Tab": 0xFF09,
        "Return": 0xFF0D, "Menu": 0xFF67, "BackSpace": 0xFF08, "Down": 0xFF54, "F1": 0xFFBE}
EVENTS = ("object:text-caret-moved", "object:property-change:accessible-name",
          "object:property-change:accessible-description", "object:property-change:accessible-value",
          "object:state-changed:showing", "object:state-changed:focused", "object:active-descendant-changed")


class Event:
    """One event, with what was true of its source when it came."""

    def __init__(self, event):
        self.kind = event.type.name if hasattr(event.type, "name") else str(event.type)
        self.detail = event.detail1
        self.source = event.source
        self.role = role(event.source)
        self.name = name(event.source)

    def __str__(self):
        return f"{self.kind}({self.detail}) from {self.role} '{self.name}'"

    def shows(self, wanted):
        """Whether an object of that role is shown now."""
        return self.kind == "object:state-changed:showing" and self.detail == 1 and self.role == wanted

    def is_spoken(self, words):
        """Whether a screen reader says the words, wherever the focus is: it does for notifications that are shown."""
        return self.shows("notification") and words in self.name


def ask(question, otherwise=None):
    """The answer, `otherwise` where the object has gone meanwhile or answers too late."""
    try:
        return question()
    except (GLib.Error, NotImplementedError, LookupError, RuntimeError):
        return otherwise


def role(node):
    return ask(node.getRoleName, "gone")


def name(node):
    return ask(lambda: node.name, "") or ""


def has(node, state):
    states = ask(node.getState)
    return states is not None and states.contains(state)


def children(node):
    count = ask(lambda: node.childCount, 0)
    found = [ask(lambda i=i: node.getChildAtIndex(i)) for i in range(count)]
    return [child for child in found if child is not None]


def everything(node):
    """The node and all below it, from the top."""
    yield node
    for child in children(node):
        yield from everything(child)


def text_of(node):
    """What a text box holds and where its caret is; nothing where it does not say so."""
    text = ask(node.queryText)
    return None if text is None else ask(lambda: (text.getText(0, -1), text.caretOffset))


def actions_of(node):
    action = ask(node.queryAction)
    return [] if action is None else [action.getName(i) for i in range(ask(lambda: action.nActions, 0))]


def key_of(node):
    """The keys of its first action."""
    return ask(lambda: node.queryAction().getKeyBinding(0), "") or ""


def act(node, wanted):
    """Does an action of the object. One that opens a window may answer only when that has been closed."""
    names = actions_of(node)
    if wanted not in names:
        raise LookupError(f"{role(node)} '{name(node)}' has no action {wanted}, but {names}")
    Atspi.set_timeout(800, 15000)
    ask(lambda: node.queryAction().doAction(names.index(wanted)))
    Atspi.set_timeout(5000, 15000)


class Program:
    def __init__(self, program, melody):
        Atspi.set_timeout(5000, 15000)
        self.screen = Screen()
        self.events = []
        pyatspi.Registry.registerEventListener(lambda event: self.events.append(Event(event)), *EVENTS)
        self.process = subprocess.Popen([program, melody], cwd=os.path.dirname(melody),
                                        stdout=subprocess.DEVNULL)
        self.bus = self.wait(self.find_application, "the program on the bus")
        self.main = self.wait(lambda: next(iter(self.windows()), None), "the main window")
        self.activate()

    def find_application(self):
        desktop = pyatspi.Registry.getDesktop(0)
        return next((each for each in children(desktop) if name(each) == "trillomat"), None)

    def windows(self):
        return [each for each in children(self.bus) if has(each, pyatspi.STATE_SHOWING)]

    def pump(self, seconds=0.05):
        """Lets events come in."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            time.sleep(0.005)

    def wait(self, question, what):
        """The first answer that is true."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            answer = ask(question)
            if answer:
                return answer
            self.pump()
        raise TimeoutError(f"waited in vain for {what}")

    def find(self, named, roles=None, root=None):
        """The object of that name; its role can be narrowed."""
        for node in everything(root or self.main):
            if name(node) == named and (roles is None or role(node) in roles):
                return node
        raise LookupError(f"there is no '{named}'")

    def window(self, title):
        return next((each for each in self.windows() if name(each) == title), None)

    def find_role(self, wanted):
        """The first such object that is shown."""
        for node in everything(self.main):
            if role(node) == wanted and has(node, pyatspi.STATE_SHOWING):
                return node
        raise LookupError(f"nothing is a {wanted}")

    def dialog(self, title=None):
        """A window beside the main one, of that title if one is told."""
        return next((each for each in self.windows() if each != self.main and title in (None, name(each))), None)

    def open(self, menu, item, title):
        """Opens a window by an item of the menus."""
        bar = next(each for each in children(self.main) if role(each) == "menu bar")
        top = next(each for each in children(bar) if name(each) == menu)
        act(self.find(item, root=top) if item else top, "Press")
        window = self.wait(lambda: self.window(title), f"the window '{title}'")
        self.activate()
        return window

    def activate(self):
        """The window in front gets the keyboard."""
        self.pump(0.3)
        self.screen.give_focus()
        self.pump(0.2)

    def focus(self, node):
        ask(node.queryComponent().grabFocus)
        self.wait(lambda: has(node, pyatspi.STATE_FOCUSED), f"the focus on '{name(node)}'")
        self.pump(0.2)

    def press(self, *keys):
        """Presses keys: names of KEYS, or characters."""
        for key in keys:
            symbol = KEYS.get(key) or ord(key)
            pyatspi.Registry.generateKeyboardEvent(symbol, None, pyatspi.KEY_SYM)
            self.pump(0.15)

    def heard(self, deed):
        """The events that come of it."""
        self.pump(0.2)
        self.events.clear()
        deed()
        self.pump(0.5)
        return list(self.events)

    def close(self, window):
        """Closes a dialog by the keyboard, and waits until it has gone."""
        title = name(window)
        self.press("Escape")
        self.wait(lambda: self.window(title) is None, f"the end of the window '{title}'")
        self.activate()

    def end(self):
        self.process.terminate()
        try:
            self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
