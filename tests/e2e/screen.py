"""The virtual screen as its user has it: windows, mouse, keys and pictures, all through the X server."""

import re
import subprocess

_LIMIT = 20


def _run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, timeout=_LIMIT).stdout


def _window_ids(text):
    return [int(number, 16) for number in re.findall(r"0x[0-9a-f]+", text)]


def stacking():
    """All windows, the topmost last."""
    return _window_ids(_run("xprop", "-root", "_NET_CLIENT_LIST_STACKING"))


def icon_sides(window):
    """Of the icons that a window gives to its title bar and to lists of windows; xprop leaves large ones out."""
    return [int(side) for side in re.findall(r"Icon \((\d+) x", _run("xprop", "-id", str(window), "_NET_WM_ICON"))]


def windows_of(pid):
    """The windows of a process as (id, title), the topmost last."""
    found = []
    for window in stacking():
        try:
            lines = _run("xdotool", "getwindowpid", str(window), "getwindowname", str(window)).split("\n")
        except subprocess.CalledProcessError:
            continue  # it has just gone
        if lines[0] == str(pid):
            found.append((window, lines[1]))
    return found


def in_front(window):
    """Whether a window has the keyboard and nothing covers it."""
    lines = _run("xprop", "-root", "_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW").split("\n")
    return _window_ids(lines[0])[-1:] == [window] == _window_ids(lines[1])[:1]


def activate(window):
    """Asks the window manager; the answer is seen in in_front."""
    subprocess.run(("xdotool", "windowactivate", str(window)), check=False, capture_output=True, timeout=_LIMIT)


def place(window, x, y):
    _run("xdotool", "windowmove", str(window), str(x), str(y))


def resize(window, width, height):
    _run("xdotool", "windowsize", str(window), str(width), str(height))


def click(x, y, times=1):
    _run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "30", "1")


def point_at(x, y):
    _run("xdotool", "mousemove", str(x), str(y))


def drag(start, end):
    """Presses the button in one place and lets it go in another."""
    _run(*f"xdotool mousemove {start[0]} {start[1]} mousedown 1 mousemove {end[0]} {end[1]} mouseup 1".split())


def frame_of(window):
    """The widths of a window's frame: left, right, top, bottom."""
    extents = _run("xprop", "-id", str(window), "_NET_FRAME_EXTENTS")
    return [int(number) for number in re.findall(r"\d+", extents.partition("=")[2])]


def press(*keys):
    """Keys by their X names, such as "Return" or "ctrl+a", to the window that has the keyboard."""
    _run("xdotool", "key", "--clearmodifiers", *keys)


def press_holding(modifier, key, meanwhile):
    """A key while a modifier is held, with something to be done between the two."""
    _run("xdotool", "keydown", modifier)
    try:
        meanwhile()
        _run("xdotool", "key", key)
    finally:
        _run("xdotool", "keyup", modifier)


def type_text(text):
    _run("xdotool", "type", "--clearmodifiers", "--delay", "5", "--", text)


def picture(path, crop=None):
    """A picture of the screen, or of its part "WIDTHxHEIGHT+X+Y"."""
    _run("import", "-silent", "-window", "root", *(("-crop", crop, "+repage") if crop else ()), str(path))


def pixels_of(window):
    """What a window without its frame shows, to be compared with what it shows later."""
    command = ("import", "-silent", "-window", str(window), "rgb:-")
    return subprocess.run(command, check=True, capture_output=True, timeout=_LIMIT).stdout


def picture_of(window, path):
    """A window with its frame and whatever covers it."""
    text = _run("xwininfo", "-id", str(window))
    x, y, width, height = (
        int(re.search(rf"{name}:\s+(-?\d+)", text)[1])
        for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
    )
    left, right, top, bottom = frame_of(window)
    picture(path, f"{width + left + right}x{height + top + bottom}{x - left:+}{y - top:+}")
