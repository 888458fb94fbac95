"""What every object of a window owes those who hear the window."""

import pyatspi

from bus import actions_of, ask, children, has, key_of, name, role, text_of

WORKED = {"push button", "toggle button", "radio button", "check box", "combo box", "slider", "text", "list",
          "tree", "table", "menu item", "check menu item", "radio menu item", "spin button", "entry",
          "page tab", "canvas", "tree table"}
# Parts of a list, of a menu that has dropped down, and what the arrow keys reach in another control.
HELD_IN = {"combo box", "list", "tree", "tree table", "table", "spin button"}
SPOKEN = {"label", "notification", "image"}
MENU_ITEMS = {"menu item", "check menu item", "radio menu item"}


def named(node):
    """The name that is spoken. That of a list to choose from is what is chosen, so its label counts."""
    if role(node) != "combo box":
        return name(node)
    for relation in ask(node.getRelationSet, []) or []:
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            return name(relation.getTarget(0))
    return ""


def is_word(text):
    """Two letters beside each other at least: no sign, no number, no single letter."""
    return any(a.isalpha() and b.isalpha() for a, b in zip(text, text[1:]))


def is_reached(node, parents):
    """By the Tab key, by the arrow keys from a neighbour, by the menu that it is in, or by a key of its own."""
    if has(node, pyatspi.STATE_FOCUSABLE) or key_of(node):
        return True
    if role(node) == "radio button":
        return any(has(each, pyatspi.STATE_FOCUSABLE) for each in children(parents[-1]))
    return role(node) in MENU_ITEMS


def faults_of(node, parents):
    """What is wrong with it, each in words."""
    kind = role(node)
    is_part = any(role(parent) in HELD_IN for parent in parents)
    if kind in SPOKEN and has(node, pyatspi.STATE_SHOWING) and not name(node):
        yield "says nothing"
    if "<" in (ask(lambda: node.description, "") or ""):
        yield "is described in markup"
    if kind not in WORKED or is_part and kind != "text":
        return
    if not named(node) and has(node, pyatspi.STATE_VISIBLE):
        yield "has no name"
    elif named(node) and not is_word(named(node)) and not (parents and role(parents[-1]) == "popup menu"):
        yield "is named by a sign alone"
    if has(node, pyatspi.STATE_SHOWING) and has(node, pyatspi.STATE_ENABLED) and not is_reached(node, parents):
        yield "is not reached by the keyboard"
    if kind == "text" and text_of(node) is None:
        yield "does not tell its text"


def line_of(node):
    """Role, name, description, states and text in a line."""
    states = [pyatspi.stateToString(state) for state in ask(lambda: node.getState().getStates(), [])]
    parts = [role(node), f"'{named(node)}'", ask(lambda: node.description, ""), key_of(node), ",".join(states)]
    text = text_of(node)
    if text is not None:
        parts.append(f"text '{text[0][:60]}' caret {text[1]}")
    return " | ".join(part for part in parts if part)


def judge(node, faults, parents=()):
    """Prints the object and all below it, and adds what is wrong to `faults`."""
    print("  " * len(parents) + line_of(node))
    for fault in faults_of(node, parents):
        where = next((name(parent) for parent in parents if name(parent)), "")
        faults.append(f"{where}: {role(node)} '{named(node)}' {fault}")
    for child in children(node):
        judge(child, faults, (*parents, node))
