#!/usr/bin/env python3
"""terminal.py CONSOLE MODULE: a user at a terminal, who changes his mind and presses Ctrl-C and Ctrl-D."""
import os
import pty
import re
import select
import signal
import sys
import tempfile
import time

CONSOLE, MODULE = sys.argv[1], sys.argv[2]
CTRL_C, CTRL_D = b"\x03", b"\x04"
PATIENCE = 30.0


class Gone(Exception):
    pass


class User:
    """Types into the program and reads what it shows."""

    present = []  # who has not left

    def __init__(self, *args):
        self.shown = ""
        self.at = 0  # up to where the answers have been looked at
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.environ["QT_QPA_PLATFORM"] = "offscreen"
            os.environ["KORVANT_LOCALAPPDATA"] = os.path.join(os.getcwd(), "data")
            os.execv(CONSOLE, [CONSOLE, *args])
        User.present.append(self)
        self.sees(r"Command: $")

    def read(self, seconds):
        ready, _, _ = select.select([self.terminal], [], [], seconds)
        if not ready:
            return False
        try:
            part = os.read(self.terminal, 65536)
        except OSError:
            part = b""
        if not part:
            raise Gone
        self.shown += part.decode("utf-8", "replace").replace("\r", "")
        return True

    def sees(self, pattern):
        """Waits for the pattern in what is new."""
        end = time.monotonic() + PATIENCE
        while True:
            found = re.search(pattern, self.shown[self.at:])
            if found:
                self.at += found.end()
                return self
            if time.monotonic() > end:
                raise AssertionError(f"waited for {pattern!r}, and saw:\n{self.shown}")
            try:
                self.read(0.2)
            except Gone:
                raise AssertionError(f"the program ended before {pattern!r}:\n{self.shown}") from None

    def types(self, line, pattern=r"Command: $"):
        os.write(self.terminal, line.encode() + b"\n")
        return self.sees(pattern)

    def presses(self, key, pattern=r"Command: $"):
        os.write(self.terminal, key)
        return self.sees(pattern)

    def leaves(self, status=0):
        """The program ends by itself."""
        end = time.monotonic() + PATIENCE
        try:
            while time.monotonic() < end:
                self.read(0.2)
        except Gone:
            _, how = os.waitpid(self.pid, 0)
            User.present.remove(self)
            assert os.waitstatus_to_exitcode(how) == status, f"{how}\n{self.shown}"
            return
        raise AssertionError(f"the program goes on:\n{self.shown}")

    def is_sent_away(self):
        os.kill(self.pid, signal.SIGKILL)
        os.waitpid(self.pid, 0)


def user():
    return User("--module", MODULE)


def ctrl_d_ends_an_unchanged_session():
    u = user()
    os.write(u.terminal, CTRL_D)
    u.leaves()


def ctrl_d_asks_for_each_changed_drawing():
    u = user()
    u.types("POINT 1,1").types("NEW").types("POINT 2,2")
    u.presses(CTRL_D, r"Save changes to Drawing1.dwg\? \[Yes/No/Cancel\] <Yes>: $")
    u.types("N", r"Save changes to Drawing2.dwg\?.*: $")
    u.types("C").types("COUNT", r"1  in all\nCommand: $")
    u.presses(CTRL_D, r"Drawing1.dwg\?.*: $")
    u.presses(CTRL_D)  # at the question: the program stays
    u.presses(CTRL_D, r"Drawing1.dwg\?.*: $")
    u.types("N", r"Drawing2.dwg\?.*: $")
    u.types("", r"Save drawing as <Drawing2.dwg>: $")
    os.write(u.terminal, b"kept\n")
    u.leaves()
    assert os.path.getsize("kept.dwg") > 0


def ctrl_d_within_a_command_cancels_it():
    u = user()
    u.types("POINT 1,1").types("LINE 0,0 5,5", r"next point.*: $").presses(CTRL_D, r"\*Cancel\*\nCommand: $")
    u.types("OSMODE", r"new value.*: $").presses(CTRL_D, r"\*Cancel\*\nCommand: $")
    u.types("QUIT", r"Save changes.*: $").presses(CTRL_D, r"\*Cancel\*\nCommand: $")
    os.write(u.terminal, b"COU" + CTRL_D + b"NT" + CTRL_D)  # hands over what is typed so far
    u.presses(CTRL_D, r"COUNT\n +1  LINE\n +1  POINT\n +2  in all\nCommand: $")


def ctrl_c_cancels_what_asks():
    u = user()
    u.presses(CTRL_C, r"\*Cancel\*\nCommand: $")
    os.write(u.terminal, b"half a li")
    u.presses(CTRL_C, r"\*Cancel\*\nCommand: $")
    u.types("LINE 0,0 5,5", r"next point.*: $")
    u.presses(CTRL_C, r"\*Cancel\*\nCommand: $")
    u.types("CIRCLE 0,0", r"radius.*: $")
    u.presses(CTRL_C, r"\*Cancel\*\nCommand: $")
    u.types("COUNT", r"1  LINE\n +1  in all\nCommand: $")
    u.types("U").types("COUNT", r"0  in all\nCommand: $")
    u.types("POINT 1,1").types("QUIT", r"Save changes.*: $")
    u.presses(CTRL_C, r"\*Cancel\*\nCommand: $")
    u.types("SAVEAS", r"Save drawing as.*: $")
    u.presses(CTRL_C, r"\*Cancel\*\nCommand: $")
    u.types("QUIT", r"Save changes.*: $")
    os.write(u.terminal, b"N\n")
    u.leaves()


def ctrl_c_is_cancel_in_a_window():
    u = user()
    u.types("FAULTBOX", r"@: $").presses(CTRL_C, r"answer 2\nCommand: $")
    u.types("FAULTBOX", r"@: $").presses(CTRL_D, r"answer 2\nCommand: $")


def ctrl_c_breaks_a_long_job_off():
    u = user()
    u.types("FAULTJOB", r"at work\n").presses(CTRL_C, r"broken off\nCommand: $")
    u.types("COUNT", r"in all\nCommand: $")  # the same key does not cancel what comes after
    u.types("QUIT", r"QUIT\n")
    u.leaves()


def a_window_stays_open_at_lines_that_are_not_its_own():
    u = user()
    u.types("FAULTBOX", r"@: $")
    u.types("COUNT", r'"COUNT": the window "Box" is open; a line that begins with @ is needed\n@: $')
    u.types("", r'\nthe window "Box" is open; a line that begins with @ is needed\n@: $')
    u.types("@click 99", r"@click 99: there is no such control\n@: $")
    u.types("  @click 6", r"answer 6\nCommand: $")
    u.types("QUIT", r"QUIT\n")
    u.leaves()


def a_fault_is_told_and_the_session_goes_on():
    u = user()
    u.types("POINT 1,1").types("FAULTEXC", r"\nThe command FAULTEXC failed: half is drawn\nCommand: $")
    u.types("COUNT", r"3  in all\nCommand: $").types("ERASE ALL", r"Select.*: $").types("").types("U")
    u.types("U").types("COUNT", r"1  in all\nCommand: $").types("QSAVE", r"Save drawing as.*: $").types("after.dwg", r"Saved: .*\nCommand: $")
    u.types("QUIT", r"QUIT\n")
    u.leaves()


CASES = [case for name, case in list(globals().items()) if callable(case) and getattr(case, "__module__", "") == "__main__" and name[0].islower() and name != "user"]

failed = 0
for case in CASES:
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        os.mkdir("data")
        try:
            case()
        except AssertionError as reason:
            print(f"FAILED {case.__name__}: {reason}")
            failed = 1
        for left in User.present:
            left.is_sent_away()
        User.present.clear()
        os.chdir("/")
assert len(CASES) == 8, CASES
sys.exit(failed)
