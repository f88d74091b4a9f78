"""Waiting for a condition, with a limit."""

import time

from gi.repository import GLib

LIMIT = 20.0
_BETWEEN_LOOKS = 0.02


def wait_until(what, condition, limit=LIMIT):
    """Returns the first true value of the condition.

    An object that vanishes while it is looked at counts as false; pyatspi finds texts and actions of such a one not
    implemented.
    """
    end = time.monotonic() + limit
    last = None
    while True:
        try:
            last = condition()
            if last:
                return last
        except (GLib.Error, LookupError, NotImplementedError) as error:
            last = error
        if time.monotonic() > end:
            raise TimeoutError(f"gave up after {limit} s waiting for {what}; last seen: {last!r}")
        time.sleep(_BETWEEN_LOOKS)


def wait_for_value(what, read, expected, limit=LIMIT):
    """Waits until a reading equals what is expected; the error shows the last reading in full."""
    seen = []

    def look():
        seen[:] = [read()]
        return seen[0] == expected

    try:
        wait_until(what, look, limit)
    except TimeoutError as error:
        if seen:
            raise AssertionError(f"{what}:\n  expected {expected!r}\n  but is   {seen[0]!r}") from error
        raise
