"""Pop-up menus. They stand below no window of the program: only the event of their coming leads to them."""

import pyatspi
from gi.repository import Atspi, GLib

from tree import has_state, is_showing

_SHOWING = "object:state-changed:showing"


class Menus:
    """Hears of the menus of all copies. To be made before the copies start, so that they know that somebody listens."""

    def __init__(self):
        self._open = []
        self._listener = Atspi.EventListener.new(self._heard)
        self._listener.register(_SHOWING)

    def _heard(self, event):
        try:
            if event.detail1 and event.source.getRole() == pyatspi.ROLE_POPUP_MENU:
                self._open.append(event.source)
        except GLib.Error:
            pass  # its copy has ended since

    def open_menu(self, pid):
        """The menu that a process has open, or None."""
        while GLib.MainContext.default().iteration(False):
            pass
        self._open = [menu for menu in self._open if self._is_open(menu)]
        return next((menu for menu in self._open if menu.get_process_id() == pid), None)

    @staticmethod
    def _is_open(menu):
        try:
            return is_showing(menu)
        except GLib.Error:
            return False


def items_of(menu):
    """The items that can be chosen."""
    return [item for item in menu if has_state(item, pyatspi.STATE_SHOWING)]
