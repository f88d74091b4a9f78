"""Orca on this screen: without a voice, and with a record of what it would have spoken."""

import os
import subprocess
import time

from heard import read_record
from waiting import wait_until

# Orca runs this when it starts. Without a speech server it does everything else all the same; its record is written
# line by line so that it can be followed.
_SETTINGS = """\
import orca.debug
import orca.settings

orca.settings.speechServerFactory = ""
orca.settings.speechFactoryModules = []
orca.settings.enableBraille = False
orca.settings.enableSound = False
orca.debug.debugFile.reconfigure(line_buffering=True)
"""
_READY = "ORCA: Starting registry"
_QUIET = 0.3  # seconds without a line in the record: nothing is left to speak


class ScreenReader:
    """Orca, from its start to its end. Its settings, its record and what it prints are in a folder."""

    def __init__(self, folder):
        settings = folder / "settings"
        settings.mkdir()
        (settings / "orca-customizations.py").write_text(_SETTINGS, encoding="utf-8")
        self._path = folder / "orca.record"
        output = folder / "orca.output"
        with output.open("wb") as stream:
            self._process = subprocess.Popen(
                ["orca", f"--user-prefs={settings}", f"--debug-file={self._path}"],
                env={**os.environ, "LANGUAGE": "es", "XDG_CONFIG_HOME": str(settings), "XDG_DATA_HOME": str(settings)},
                stdout=stream,
                stderr=stream,
            )
        try:
            wait_until("Orca to start", lambda: self._is_ready(output))
        except BaseException:
            self.end()
            raise
        self._record = self._path.open(encoding="utf-8", errors="replace")

    def _is_ready(self, output):
        if self._process.poll() is not None:
            raise AssertionError(f"Orca ended at once: {output.read_text(errors='replace')}")
        return self._path.exists() and _READY in self._path.read_text(encoding="utf-8", errors="replace")

    def rest(self):
        """Until Orca has told everything that has happened so far."""
        size, since = -1, 0.0

        def is_quiet():
            nonlocal size, since
            now = self._path.stat().st_size
            if now != size:
                size, since = now, time.monotonic()
            return time.monotonic() - since >= _QUIET

        wait_until("Orca to fall silent", is_quiet)

    def hear(self):
        """What the record tells since this was last asked: utterances, announcements."""
        self.rest()
        return read_record(self._record.read())

    def end(self):
        """Orca puts nothing back: screen and settings go with it."""
        self._process.kill()
        self._process.wait()
