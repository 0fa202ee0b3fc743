"""A desktop of the test's own: display, buses and a copy of the program folder. All of it ends with the test."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from Xlib import X, display, error


class Desktop:
    def __init__(self, program_folder, today, clock):
        """clock: the library that tells the program that it is noon of `today`."""
        self._processes = []
        self._folder = Path(tempfile.mkdtemp(prefix="kelvar-screen-reader-"))
        # Nothing of the user's desktop: neither its buses nor its settings, printers or language.
        self._environment = {
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "GSETTINGS_BACKEND": "memory",
            "CUPS_SERVER": "/nowhere",
        }
        for variable in ("HOME", "XDG_RUNTIME_DIR"):
            folder = self._folder / variable.lower()
            folder.mkdir(mode=0o700)
            self._environment[variable] = str(folder)
        self._program_folder = self._folder / "program"
        shutil.copytree(program_folder, self._program_folder)
        self._for_program = {
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "LD_PRELOAD": str(clock),
            "FAKETIME": f"@{today} 12:00:00",
            "DONT_FAKE_MONOTONIC": "1",
            "NO_FAKE_STAT": "1",
        }

    def open(self):
        number = self._start_announcing(
            "Xvfb", "-displayfd", "1", "-screen", "0", "1366x768x24", "-nolisten", "tcp"
        )
        self._environment["DISPLAY"] = f":{number}"
        self._environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_announcing(
            "dbus-daemon", "--session", "--nofork", "--print-address=1"
        )
        # The screen reader is this process.
        os.environ.clear()
        os.environ.update(self._environment)
        self._display = display.Display()

    def start_program(self):
        self._program = self._start(
            self._program_folder / "kelvar", environment=self._environment | self._for_program
        )

    def wait_for_program(self):
        """Its exit code."""
        return self._program.wait(10)

    def focus_front_window(self):
        """What a window manager does when a window has opened or closed."""
        try:
            for window in reversed(self._display.screen().root.query_tree().children):
                attributes = window.get_attributes()
                if attributes.map_state == X.IsViewable and not attributes.override_redirect:
                    if self._display.get_input_focus().focus != window:
                        window.set_input_focus(X.RevertToParent, X.CurrentTime)
                    break
            self._display.sync()
        except error.XError:
            pass  # closed in between; the next call sees what is left

    def key_code(self, symbol):
        return self._display.keysym_to_keycode(symbol)

    def close(self):
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self._folder)

    def _start(self, *command, environment=None, **options):
        # setpriv: they end as well when this process is killed.
        process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", "--", *command],
            env=environment or self._environment,
            **options,
        )
        self._processes.append(process)
        return process

    def _start_announcing(self, *command):
        process = self._start(*command, stdout=subprocess.PIPE, text=True)
        line = process.stdout.readline().strip()
        if not line:
            raise RuntimeError(f"{command[0]} did not start")
        return line
