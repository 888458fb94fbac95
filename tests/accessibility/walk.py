"""Walks through the windows of the program: walk.py PROGRAM HOME_FOLDER"""

import os
import sys

import pyatspi

from bus import Program, act, everything, has, name, role, text_of
from rules import judge

SETTINGS = "[Version]\nCounter=1000\n\n[Settings]\nAutoPlay=False\nPlayMoving=False\nPlayComposing=False\n"
MELODY = ("BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Walk\r\nCOMPOSER:A walker\r\nBEAT:100\r\n"
          "STYLE:S0\r\nMELODY:c2d2r2#f2g1\r\nEND:IMELODY\r\n")
TUNES = "One:d=4,o=5,b=100:c,d,e\nTwo:d=4,o=5,b=100:e,,d,C\n"
LEFT, RIGHT, STRIP = "Melody up to the cursor", "Melody behind the cursor", "Note strip"


class Walk:
    def __init__(self, program, home):
        self.faults = []
        folder = os.path.join(os.environ["XDG_CONFIG_HOME"], "trillomat")
        os.makedirs(folder)
        with open(os.path.join(folder, "trillomat.ini"), "w", encoding="utf-8") as file:
            file.write(SETTINGS)
        melody = os.path.join(home, "walk.imy")
        with open(melody, "w", encoding="utf-8", newline="") as file:
            file.write(MELODY)
        self.program = Program(program, melody)

    def expect(self, holds, what):
        print(("ok      " if holds else "FAULT   ") + what)
        if not holds:
            self.faults.append(what)

    def look_at(self, window):
        print(f"\n== {role(window)} '{name(window)}'")
        judge(window, self.faults)

    def expect_spoken(self, events, words):
        spoken = any(event.is_spoken(words) for event in events)
        self.expect(spoken, f"'{words}' is spoken")
        if not spoken:
            print("\n".join(f"        {event}" for event in events))

    # The melody.

    def main_window(self):
        self.look_at(self.program.main)

    def texts(self):
        """What each text box of the main window holds."""
        for box, text in (("Name", "Walk"), ("Composer", "A walker"), ("Beats per minute", "100"), ("Version", "1.2")):
            found = text_of(self.program.find(box, ("text",)))
            self.expect(found is not None and found[0] == text, f"the box '{box}' reads '{text}': {found}")

    def expect_melody(self, left, right):
        for box, tokens, caret in ((LEFT, left, None), (RIGHT, right, 1 if right else 0)):
            text, place = text_of(self.program.find(box)) or ("nothing", -1)
            self.expect(text.split() == tokens.split(), f"'{box}' reads '{tokens}': '{text}'")
            self.expect(place == (len(text) if caret is None else caret), f"the caret of '{box}' is at {place}")

    def melody_text(self):
        self.program.focus(self.program.find(RIGHT))
        self.program.press("Home")
        self.expect_melody("", "*4c2 *4d2 r2 *4#f2 *4g1")
        events = self.program.heard(lambda: self.program.press("Right"))
        self.expect_melody("*4c2", "*4d2 r2 *4#f2 *4g1")
        self.expect(any(event.kind == "object:text-caret-moved" for event in events), "the caret moves are told")
        self.expect_spoken(events, "c, octave 4, quarter, 600 ms; 1 of 5")
        self.program.press("End")
        self.expect_melody("*4c2 *4d2 r2 *4#f2 *4g1", "")

    def note_strip(self):
        strip = self.program.find(STRIP, ("canvas",))
        self.program.focus(strip)
        self.program.press("Home")
        for place, words in ((1, "c, octave 4"), (2, "d, octave 4"), (3, "pause"), (4, "f sharp, octave 4")):
            events = self.program.heard(lambda: self.program.press("Right"))
            said = f"Element {place} of 5: {words}"
            self.expect(said in strip.description, f"the note strip is at '{said}': {strip.description}")
            self.expect_spoken(events, words)

    def refused_tempo(self):
        box = self.program.find("Beats per minute", ("text",))
        self.program.focus(box)
        self.program.press("End")
        events = self.program.heard(lambda: self.program.press("BackSpace"))
        said = "25-900; 100 is in force"
        self.expect(text_of(box)[0] == "10" and box.description == said, f"the refused tempo says '{said}'")
        self.expect(name(self.program.find_role("status bar")) == said, "the status bar shows it")
        self.expect_spoken(events, said)
        events = self.program.heard(lambda: self.program.press("5"))
        self.expect(text_of(box)[0] == "105" and "force" not in box.description, "a tempo that is taken says no more")
        self.program.press("Escape")
        place = self.program.find("Position: Element 4 of 5, 0:02 of 0:03", ("label",))
        self.expect(has(place, pyatspi.STATE_SHOWING), f"the status bar tells: {name(place)}")

    # The windows.

    def open_and_look(self, menu, item, title):
        window = self.program.open(menu, item, title)
        self.look_at(window)
        return window

    def small_windows(self):
        for menu, item, title in (("About", None, "About Trillomat"), ("Help", "Keys", "Keys"),
                                  ("File", "Export...", "Trillomat - Export")):
            self.program.close(self.open_and_look(menu, item, title))

    def press_button(self, window, button):
        act(self.program.find(button, ("push button",), window), "Press")

    def import_of_tunes(self):
        window = self.open_and_look("File", "Import...", "Trillomat - Import")
        source = self.program.find("Melody text to import", ("text",), window)
        source.queryEditableText().setTextContents(TUNES)
        self.program.pump(0.3)
        self.expect((text_of(source) or [""])[0] == TUNES, "the source of an import tells its text")
        act(self.program.find("Tidy common slips before the text is read", None, window), "Toggle")
        self.press_button(window, "Import the melody text")
        tunes = self.program.wait(lambda: self.program.window("Trillomat - Tunes"), "the choice of a tune")
        self.program.activate()
        self.look_at(tunes)
        self.program.press("Down")
        events = self.program.heard(lambda: self.program.press("Return"))
        self.program.activate()
        self.expect_spoken(events, "Imported")
        self.look_at(self.program.find("Imported tidied, with 1 change", ("notification",)))
        self.press_button(self.program.main, "Show the changes")
        changes = self.program.wait(lambda: self.program.window("Trillomat - Changes"), "the changes")
        self.program.activate()
        self.look_at(changes)
        self.program.close(changes)

    def open_file_menu(self):
        self.program.focus(self.program.find("Composer", ("text",)))
        events = self.program.heard(lambda: self.program.press(*["Tab"] * 5, "Menu"))
        menu = next((event.source for event in events if event.shows("popup menu")), None)
        if menu is None:
            raise LookupError("there is no menu of a file")
        return menu

    def file_menu(self):
        """The menu of a file, and what it opens."""
        self.look_at(self.open_file_menu())
        self.program.press("r")
        window = self.program.wait(self.program.dialog, "what Rename opens")
        self.program.activate()
        self.look_at(window)
        self.program.close(window)
        self.open_file_menu()
        self.expect_spoken(self.program.heard(lambda: self.program.press("d")), "Deleted walk.imy")
        self.press_button(self.program.main, "Restore")

    def refusal(self):
        """A melody that cannot be moved higher says so in a box."""
        for _ in range(9):
            self.press_button(self.program.main, "Move all notes an octave up")
            self.program.pump(0.2)
            box = self.program.dialog()
            if box is not None:
                self.program.activate()
                self.look_at(box)
                return self.program.close(box)
        return self.expect(False, "a melody that cannot be moved says so")

    def recover_list(self):
        """What was replaced, in a menu that is filled when it is opened."""
        act(self.program.find("File", ("menu item",)), "ShowMenu")
        events = self.program.heard(lambda: self.program.press("v"))
        menu = next((event.source for event in events if event.shows("popup menu")), None)
        items = [name(each) for each in everything(menu)] if menu else []
        self.expect(any("5 elements" in item for item in items), f"the songs to recover are told: {items}")
        self.program.press("Escape", "Escape", "Escape")

    def exit(self):
        act(self.program.find("Exit"), "Press")
        status = self.program.wait(lambda: self.program.process.poll() is not None, "the end of the program")
        self.expect(status and self.program.process.returncode == 0, "the program ends well")

    def run(self):
        steps = (self.main_window, self.texts, self.melody_text, self.note_strip, self.refused_tempo,
                 self.small_windows, self.file_menu, self.refusal, self.import_of_tunes,
                 self.recover_list, self.exit)
        try:
            for step in steps:
                print(f"\n== {step.__name__}", flush=True)
                try:
                    step()
                except (LookupError, TimeoutError) as lack:
                    self.expect(False, f"{step.__name__}: {lack}")
                    if self.program.process.poll() is not None:
                        return self.expect(False, f"the program has ended: {self.program.process.poll()}")
                    self.program.press("Escape", "Escape")
                    self.program.activate()
        finally:
            self.program.end()


def main():
    walk = Walk(*sys.argv[1:])
    walk.run()
    print(f"\n== {len(walk.faults)} faults")
    print("\n".join(walk.faults))
    return 1 if walk.faults else 0


if __name__ == "__main__":
    sys.exit(main())
