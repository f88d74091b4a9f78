"""A running process of the program, in a folder of its own."""

import os
import pathlib
import subprocess
import tempfile

from waiting import LIMIT


class Program:
    """Starts the program and tells how it ended. A kind of copy says in `_command` what starts it."""

    def __init__(self, *arguments, beside=None, environment=None):
        """The arguments are those of `_command`; the folder is made in `beside`, or with other temporary ones."""
        self._folder = tempfile.TemporaryDirectory(prefix="brontavia_", dir=beside)
        self._errors = open(pathlib.Path(self._folder.name, "stderr"), "w+b")
        self._process = subprocess.Popen(
            self._command(*arguments), cwd="/", stderr=self._errors, env={**os.environ, **(environment or {})}
        )
        self.pid = self._process.pid

    def _command(self, *arguments):
        """What starts the program, once it has been laid into `self._folder`."""
        raise NotImplementedError

    def running(self):
        return self._process.poll() is None

    def expect_running(self):
        assert self.running(), f"the program has ended with {self._process.returncode}: {self.errors()}"

    def exit_code(self, limit=LIMIT):
        """Waits for the end of the process."""
        return self._process.wait(limit)

    def kill(self):
        self._process.kill()
        self._process.wait()

    def errors(self):
        """What the program wrote to standard error."""
        return pathlib.Path(self._errors.name).read_text(errors="replace")

    def end(self):
        if self.running():
            self.kill()
        self._errors.close()
        self._folder.cleanup()
