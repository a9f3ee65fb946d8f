# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""The windows of a program under Wine, with real keys on the display of DISPLAY."""

import subprocess
import sys
import time

PATIENCE = 120  # seconds, for a busy machine
CLASS = "^kavo-timing"
AGAIN = 8  # seconds after which keys are pressed anew: a window that has just come may not take them yet


def expect(what, expected, actual):
    if expected != actual:
        sys.exit(f"{what}: expected {expected!r}, got {actual!r}")


def system_path(path):
    """As Windows programs know it: Wine shows the whole file system as drive Z."""
    return f"Z:{path}".replace("/", "\\")


def wait_for(what, find, patience=PATIENCE):
    """What `find` returns as soon as that is something."""
    found = find_in_time(find, patience)
    return found or sys.exit(f"waited in vain for {what}")


def find_in_time(find, patience):
    end = time.monotonic() + patience
    while time.monotonic() < end:
        found = find()
        if found:
            return found
        time.sleep(0.05)
    return None


def act_until(what, act, find, again=AGAIN):
    """Acts, again and again if need be, until `find` returns something."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        act()
        found = find_in_time(find, again)
        if found:
            return found
    return sys.exit(f"waited in vain for {what}")


def xdotool(*words):
    done = subprocess.run(["xdotool", *words], capture_output=True, text=True, timeout=PATIENCE, check=False)
    return done.stdout.split()


class Screen:
    """What one program shows. Windows are told by their titles (regular expressions)."""

    def __init__(self, command, folder, pictures):
        # A pipe would stop the program, should nobody read it, and Wine's own processes would keep it open.
        self.process = subprocess.Popen(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.pictures = pictures

    def windows(self, title):
        if self.process.poll() is not None:
            sys.exit(f"the program has ended with {self.process.returncode}")
        return xdotool("search", "--onlyvisible", "--name", title)

    def window(self, title):
        """The window of that title, which has the focus then."""
        found = wait_for(f"the window {title!r}", lambda: self.windows(title))[-1]
        self.focus(found)
        return found

    def focus(self, window):
        def has_focus():
            if self.active() == [window]:
                return True
            xdotool("windowactivate", window)
            return False

        wait_for(f"the focus of window {window}", has_focus)

    @staticmethod
    def active():
        return xdotool("getactivewindow")

    def open(self, above, title, *keys, text=None, again=AGAIN):
        """Presses keys in the window `above` until that of the title is there; returns that one, with the focus."""

        def act():
            found = self.windows(above)
            if found and not self.windows(title):
                self.focus(found[-1])
                if text:
                    press("ctrl+a")
                    write(text)
                press(*keys)

        act_until(f"the window {title!r}", act, lambda: self.windows(title), again)
        return self.window(title)

    def close(self, title, *keys):
        def act():
            for window in self.windows(title)[-1:]:
                xdotool("windowactivate", window)
                press(*keys)

        act_until(f"the end of the window {title!r}", act, lambda: not self.windows(title))

    def nameless(self):
        """The windows without a title, as the system's own dialogs."""
        return sorted(set(xdotool("search", "--onlyvisible", "--class", CLASS)) - set(self.windows(".")))

    def choose_file(self, above, *keys, name):
        """In the system's own dialog, which keys in the window `above` open, a file of the folder that it shows."""

        def open_it():
            if not self.nameless():
                self.focus(self.windows(above)[-1])
                press(*keys)

        def choose():
            for dialog in self.nameless():
                self.focus(dialog)
            press("alt+n", "ctrl+a")
            write(name)
            press("Return")

        act_until("the file dialog", open_it, self.nameless)
        act_until("the end of the file dialog", choose, lambda: not self.nameless())

    def wait_until_gone(self, title):
        wait_for(f"the end of the window {title!r}", lambda: not self.windows(title))

    def end_with(self, title, *keys):
        """Presses keys that end the program."""

        def act():
            if self.process.poll() is None:
                for window in xdotool("search", "--onlyvisible", "--name", title)[-1:]:
                    xdotool("windowactivate", window)
                    press(*keys)

        act_until("the end of the program", act, lambda: self.process.poll() is not None)
        expect("exit status", 0, self.process.returncode)

    def picture(self, window, name):
        if self.pictures:
            file = str(self.pictures / f"{name}.png")
            subprocess.run(["import", "-window", window, file], check=True, timeout=PATIENCE)

    def end(self):
        """Whatever the program does, it is gone afterwards."""
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


def press(*keys):
    xdotool("key", "--clearmodifiers", "--delay", "60", *keys)


def write(text):
    xdotool("type", "--clearmodifiers", "--delay", "30", text)
