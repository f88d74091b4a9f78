#!/usr/bin/env python3
"""Start, memory and click latency of the program, side by side with an empty window of the same build.

usage: scripts/on_virtual_screen.sh /usr/bin/python3 bench/measure.py [--starts N] [--moves N] [BUILD_DIRECTORY]
"""

import argparse
import ctypes
import os
import pathlib
import socket
import statistics
import subprocess
import sys
import time

START_AIM = 1.10
MEMORY_AIM = 1.15
MEDIAN_AIM_MS = 5
PERCENTILE_AIM_MS = 16

# What ordinary desktops have: no screen reader, so no accessibility bus.
ENVIRONMENT = {name: value for name, value in os.environ.items() if name != "QT_LINUX_ACCESSIBILITY_ALWAYS_ON"}


class Display:
    """The few calls of Xlib that tell when a window has come up and been painted."""

    CREATE_NOTIFY, MAP_NOTIFY = 16, 19
    SUBSTRUCTURE_NOTIFY_MASK = 1 << 19
    DAMAGE_RAW_RECTANGLES = 0

    class Event(ctypes.Union):
        class Any(ctypes.Structure):
            _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                        ("display", ctypes.c_void_p), ("parent", ctypes.c_ulong), ("window", ctypes.c_ulong)]

        class Create(ctypes.Structure):
            _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                        ("display", ctypes.c_void_p), ("parent", ctypes.c_ulong), ("window", ctypes.c_ulong),
                        ("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int)]

        _fields_ = [("any", Any), ("create", Create), ("pad", ctypes.c_long * 24)]

    def __init__(self):
        self.x = ctypes.CDLL("libX11.so.6")
        self.damage = ctypes.CDLL("libXdamage.so.1")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        self.damage.XDamageCreate.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(None))
        # A window may be gone before it is asked about; that is no error here.
        handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
        self.ignore_errors = handler(lambda display, event: 0)
        self.x.XSetErrorHandler(self.ignore_errors)
        first_event, first_error = ctypes.c_int(), ctypes.c_int()
        self.damage.XDamageQueryExtension(self.display, ctypes.byref(first_event), ctypes.byref(first_error))
        self.damage_notify = first_event.value
        root = self.x.XDefaultRootWindow(self.display)
        self.x.XSelectInput(self.display, ctypes.c_ulong(root), ctypes.c_long(self.SUBSTRUCTURE_NOTIFY_MASK))
        self.x.XSync(self.display, 0)

    def events(self, limit):
        """Events as they come, for at most `limit` seconds."""
        event = self.Event()
        end = time.monotonic() + limit
        while time.monotonic() < end:
            while self.x.XPending(self.display):
                self.x.XNextEvent(self.display, ctypes.byref(event))
                yield event
            time.sleep(0.0002)

    def forget_events(self):
        self.x.XSync(self.display, 1)

    def watch_painting(self, window):
        self.damage.XDamageCreate(self.display, ctypes.c_ulong(window), self.DAMAGE_RAW_RECTANGLES)
        self.x.XFlush(self.display)


class Start:
    """One start of a program: when its first window was mapped and painted, and what memory it then takes."""

    SMALLEST_WINDOW = 200  # pixels; helper windows are smaller
    QUIET = 0.3  # seconds without painting, after which the window is complete

    def __init__(self, display, *command):
        display.forget_events()
        begin = time.monotonic()
        process = subprocess.Popen(command, env=ENVIRONMENT, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.mapped = self.painted = None
        watched = None
        for event in display.events(10):
            now = 1000 * (time.monotonic() - begin)
            if event.any.type == Display.CREATE_NOTIFY and not watched:
                if event.create.width >= self.SMALLEST_WINDOW:
                    watched = event.create.window
                    display.watch_painting(watched)
            elif event.any.type == Display.MAP_NOTIFY and not self.mapped:
                self.mapped = now
            elif event.any.type == display.damage_notify and self.mapped and not self.painted:
                self.painted = now
                break
        if not self.painted:
            process.kill()
            sys.exit(f"{command[0]}: no window was painted")
        time.sleep(self.QUIET)
        self.memory = self.field(process, "status", "VmRSS")
        self.proportional = self.field(process, "smaps_rollup", "Pss")
        self.private = self.field(process, "smaps_rollup", "Private_Dirty")
        ticks = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rsplit(")", 1)[1].split()[11:13]
        self.cpu = 1000 * sum(map(int, ticks)) / os.sysconf("SC_CLK_TCK")
        process.kill()
        process.wait()

    @staticmethod
    def field(process, file, name):
        """A field of a file of /proc in MiB."""
        for line in pathlib.Path(f"/proc/{process.pid}/{file}").read_text().splitlines():
            if line.startswith(name + ":"):
                return int(line.split()[1]) / 1024
        raise KeyError(name)


def measure_starts(build, count):
    display = Display()
    # The label is there because finding and loading a font is most of what any text costs, whoever shows it.
    commands = {"start window": [build / "bin/brontavia"],
                "empty window": [build / "bench/empty_window"],
                "one label": [build / "bench/empty_window", "Seleccione cómo desea jugar."]}
    starts = {name: [] for name in commands}
    for run in range(-2, count):  # the first two warm the caches
        for name, command in commands.items():
            start = Start(display, *command)
            if run >= 0:
                starts[name].append(start)
    print(f"{count} starts of each, interleaved; medians".ljust(42) + "".join(name.rjust(14) for name in commands)
          + "   to empty       to one label")
    for label, field, aim in (("process start to window mapped, ms", "mapped", START_AIM),
                              ("process start to window painted, ms", "painted", START_AIM),
                              ("processor time until idle, ms", "cpu", None),
                              ("resident memory (VmRSS), MiB", "memory", MEMORY_AIM),
                              ("proportional share (Pss), MiB", "proportional", MEMORY_AIM),
                              ("private written memory, MiB", "private", None)):
        own, empty, one_label = (statistics.median(getattr(start, field) for start in starts[name])
                                 for name in commands)
        print(f"  {label:40}{own:14.1f}{empty:14.1f}{one_label:14.1f}{own / empty:11.2f}"
              + (f" (<={aim:.2f})" if aim else " " * 9) + f"{own / one_label:10.2f}")


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def percentile(values, share):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, int(share * len(ordered)))]


def measure_clicks(build, moves):
    program, port = build / "bench/click_latency", str(free_port())
    copies = []
    for role in ("server", "client"):
        copies.append(subprocess.Popen([program, role, port, str(moves)], env=ENVIRONMENT, stdout=subprocess.PIPE,
                                       text=True))
        time.sleep(0.5)  # a client that comes before the listener asks again, but a try takes its time
    times = {"clicked": {}, "shown": {}, "painted": {}}
    for copy in copies:
        for line in copy.communicate()[0].splitlines():
            what, move, nanoseconds = line.split()
            times[what][int(move)] = int(nanoseconds)
        if copy.returncode != 0:
            sys.exit("a copy did not play to the end")
    print(f"{moves} moves over loopback, from the click to the other copy; milliseconds")
    for label, what in (("board's model has changed", "shown"), ("board has been painted", "painted")):
        took = [(times[what][move] - clicked) / 1e6 for move, clicked in times["clicked"].items() if move in times[what]]
        print(f"  {label:40} median {statistics.median(took):.2f} (aim <{MEDIAN_AIM_MS}),"
              f" 99th percentile {percentile(took, 0.99):.2f} (aim <{PERCENTILE_AIM_MS}), longest {max(took):.2f},"
              f" {len(took)} measured")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", nargs="?", default="build/bench", type=pathlib.Path)
    parser.add_argument("--starts", type=int, default=40)
    parser.add_argument("--moves", type=int, default=1000)
    arguments = parser.parse_args()
    if arguments.starts:
        measure_starts(arguments.build, arguments.starts)
    if arguments.moves:
        measure_clicks(arguments.build, arguments.moves)


if __name__ == "__main__":
    main()
