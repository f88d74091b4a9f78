#!/usr/bin/env python3
"""Every figure of docs/performance.md beside its reference, in one run. ./bench builds what this starts.

usage: scripts/on_virtual_screen.sh /usr/bin/python3 benchmarks/measure.py [--starts N] [--moves N] [--idle SECONDS]
                                                                      [--only PART ...] [--check]

Parts are start, games, idle, rules, texts and builds; all of them where none is named. --check also times ./check.
"""

import argparse
import collections
import ctypes
import json
import os
import pathlib
import shutil
import socket
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/bench"
GAMES = ["three in a row", "naval battle", "mini strategy", "strategy", "chess"]
CHESS = GAMES.index("chess")

# What ordinary desktops have: no screen reader, so no accessibility bus.
ENVIRONMENT = {name: value for name, value in os.environ.items() if name != "QT_LINUX_ACCESSIBILITY_ALWAYS_ON"}


class Report:
    """The table, printed line by line as it comes, and kept for bench.json."""

    def __init__(self):
        self.lines = []
        print(f"{'':48}{'figure':>11}{'reference':>11}{'ratio':>8}  aim")

    def add(self, name, unit, figure, reference=None, ratio=None, most=None):
        """Aims are the highest ratio to the reference, or the highest figure."""
        actual = figure / reference if reference else None
        met = (ratio is None or actual <= ratio) and (most is None or figure <= most)
        aims = [f"{ratio:.2f} times" if ratio is not None else "", f"{most:g} {unit}" if most is not None else ""]
        aim = ", ".join(filter(None, aims))
        self.lines.append({"name": name, "unit": unit, "figure": figure, "reference": reference, "ratio": actual,
                           "aim": aim, "met": met if aim else None})
        print(f"{name + ', ' + unit:48}{figure:11.4g}" + (f"{reference:11.4g}{actual:8.2f}" if reference else " " * 19)
              + (f"  {aim:18}{'met' if met else 'not met'}" if aim else ""), flush=True)

    def write(self, file):
        load = os.getloadavg()
        print(f"Load of the machine at the end: {load[0]:.1f}, {load[1]:.1f}, {load[2]:.1f} on {os.cpu_count()} cores")
        file.write_text(json.dumps({"load": load, "cores": os.cpu_count(), "lines": self.lines}, indent=2) + "\n")


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
        self.memory = memory_of(process)
        process.kill()
        process.wait()


def memory_of(process):
    """Resident, in MiB."""
    for line in pathlib.Path(f"/proc/{process.pid}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1]) / 1024
    raise KeyError("VmRSS")


def measure_start(report, arguments):
    display = Display()
    # The label is there because finding and loading a font is most of what any text costs, whoever shows it.
    commands = {"own": [BUILD / "bin/brontavia"],
                "empty": [BUILD / "benchmarks/empty_window"],
                "label": [BUILD / "benchmarks/empty_window", "Seleccione cómo desea jugar."],
                "xboard": ["/usr/games/xboard", "-ncp"]}
    starts = collections.defaultdict(list)
    for run in range(-2, arguments.starts):  # the first two warm the caches
        for name, command in commands.items():
            start = Start(display, *command)
            if run >= 0:
                starts[name].append(start)

    def median(name, field):
        return statistics.median(getattr(start, field) for start in starts[name])

    for what, field in (("mapped", "mapped"), ("painted", "painted")):
        own = median("own", field)
        report.add(f"start until {what} / empty window", "ms", own, median("empty", field), ratio=1.15)
        report.add(f"start until {what} / a label", "ms", own, median("label", field))
        report.add(f"start until {what} / xboard", "ms", own, median("xboard", field), ratio=0.75)
    report.add("memory, start window / empty window", "MiB", median("own", "memory"), median("empty", "memory"),
               ratio=1.20)


# ---- Games that two copies play ----


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return str(probe.getsockname()[1])


def percentile(values, share):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, int(share * len(ordered)))]


class Pair:
    """Two copies of a program that have played each other to the end and are quiet now."""

    def __init__(self, *command, moves):
        port = free_port()
        self.copies = [subprocess.Popen([*command, role, port, str(moves)], env=ENVIRONMENT,
                                        stdout=subprocess.PIPE, text=True) for role in ("server", "client")]
        self.figures = collections.defaultdict(list)
        times = collections.defaultdict(dict)
        for copy in self.copies:
            for line in copy.stdout:
                what, *numbers = line.split()
                if what == "ready":
                    break
                if len(numbers) == 2:
                    times[what][int(numbers[0])] = int(numbers[1])
                else:
                    self.figures[what].append(int(numbers[0]) / 1e6)
            else:
                self.end()
                sys.exit(f"{command}: a copy did not play to the end")
        self.clicks = [(times["painted"][move] - clicked) / 1e6 for move, clicked in times["clicked"].items()
                       if move in times["painted"]]

    def end(self):
        for copy in self.copies:
            copy.kill()
            copy.wait()


def measure_games(report, arguments):
    empty = subprocess.Popen([BUILD / "benchmarks/empty_window"], env=ENVIRONMENT)
    bare = Pair(BUILD / "benchmarks/bare_click", moves=2 * arguments.moves)
    bare.end()
    empty_memory = memory_of(empty)
    for index, game in enumerate(GAMES):
        pair = Pair(BUILD / "benchmarks/played_copy", str(index), moves=arguments.moves)
        figures = pair.figures
        report.add(f"{game}: opened", "ms", statistics.mean(figures["opening"]), most=40)
        report.add(f"{game}: memory / empty window", "MiB", max(map(memory_of, pair.copies)), empty_memory, ratio=1.60)
        report.add(f"{game}: click, median / bare", "ms", statistics.median(pair.clicks),
                   statistics.median(bare.clicks), ratio=1.3)
        report.add(f"{game}: click, 99th percentile / bare", "ms", percentile(pair.clicks, 0.99),
                   percentile(bare.clicks, 0.99), most=16)
        for what, most in (("cell", 0.3), ("board", 4)):
            report.add(f"{game}: repaint of a {what} / filled", "ms", min(figures[what]),
                       min(figures[f"filled_{what}"]), most=most)
        if not arguments.only or "idle" in arguments.only:
            report_idle(report, f"{game}: ", pair.copies[0], empty, arguments.idle, 1 if index == CHESS else 0)
        pair.end()
    empty.kill()
    empty.wait()


# ---- Idling ----


def activity_of(process):
    """How often threads of a process have waited, and the processor time of all, in milliseconds."""
    waits = time_taken = 0
    for task in pathlib.Path(f"/proc/{process.pid}/task").iterdir():
        for line in (task / "status").read_text().splitlines():
            if line.startswith("voluntary_ctxt_switches:"):
                waits += int(line.split()[1])
        time_taken += int((task / "schedstat").read_text().split()[0]) / 1e6
    return waits, time_taken


def report_idle(report, prefix, process, empty, seconds, wakeups_a_second):
    time.sleep(15)  # what follows an opening or a last move is over, and its announcements have left
    before = activity_of(process), activity_of(empty)
    time.sleep(seconds)
    after = activity_of(process), activity_of(empty)
    (waits, took), (empty_waits, empty_took) = ([now - then for now, then in zip(*both)] for both in zip(after, before))
    report.add(f"{prefix}wake-ups in {seconds} s / empty window", "", waits, empty_waits or None,
               most=empty_waits + wakeups_a_second * seconds)
    report.add(f"{prefix}idle processor time / empty window", "ms", took, empty_took or None)


def measure_idle(report, arguments):
    processes = [subprocess.Popen([BUILD / program], env=ENVIRONMENT)
                 for program in ("bin/brontavia", "benchmarks/empty_window")]
    report_idle(report, "start window: ", *processes, arguments.idle, 0)
    for process in processes:
        process.kill()
        process.wait()


# ---- Rules and texts ----


def benchmark(program, name_filter="."):
    """Processor time of each, in microseconds."""
    run = subprocess.run([BUILD / "benchmarks" / program, "--benchmark_format=json",
                          f"--benchmark_filter={name_filter}", "--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                          "--benchmark_report_aggregates_only=true"],
                         env=ENVIRONMENT | {"QT_QPA_PLATFORM": "offscreen"}, check=True, stdout=subprocess.PIPE,
                         stderr=subprocess.DEVNULL)
    return {figure["run_name"]: figure["cpu_time"] / 1000 for figure in json.loads(run.stdout)["benchmarks"]
            if figure["aggregate_name"] == "median"}


def measure_rules(report, _arguments):
    for name, figure in benchmark("rules_bench").items():
        report.add(f"rules: {name}", "us", figure, most=1 if name.startswith("chess") else 0.2)


def measure_texts(report, _arguments):
    figures = benchmark("dispatch_bench", "TextThatNobodyKnows|Mebibyte")
    report.add("dispatch of a read / bare searches", "us", figures["Read/TextThatNobodyKnows"],
               figures["Search/TextThatNobodyKnows"], ratio=1.3)
    report.add("a mebibyte without a token / memmem", "us", figures["Read/MebibyteThatNobodyKnows"],
               figures["SearchByMemmem/MebibyteThatNobodyKnows"], ratio=1.5)
    figures = benchmark("log_bench")
    report.add("a line into a log of 5,000 / an empty one", "us", figures["AddLine/IntoAFullLog"],
               figures["AddLine/IntoAnEmptyLog"], ratio=1.2)


# ---- Builds ----


def seconds_of(*command):
    begin = time.monotonic()
    subprocess.run(command, cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    return time.monotonic() - begin


def measure_builds(report, arguments):
    directory = ROOT / "build/bench-clean"
    shutil.rmtree(directory, ignore_errors=True)
    clean = seconds_of("cmake", "--preset", "release", "-B", str(directory))
    clean += seconds_of("cmake", "--build", str(directory))
    report.add("clean build of release", "s", clean, most=60)
    os.utime(ROOT / "games/strategy/strategy_flow.cpp")
    report.add("build after a change of a flow", "s", seconds_of("cmake", "--build", str(directory)), most=8)
    shutil.rmtree(directory)
    if arguments.check:
        report.add("./check", "min", seconds_of("./check") / 60, most=8)


def main():
    parts = {"start": measure_start, "games": measure_games, "idle": measure_idle, "rules": measure_rules,
             "texts": measure_texts, "builds": measure_builds}
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--starts", type=int, default=40)
    parser.add_argument("--moves", type=int, default=100)  # naval battle has no more water
    parser.add_argument("--idle", type=int, default=10)
    parser.add_argument("--only", nargs="+", choices=parts, default=[])
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    report = Report()
    for name, measure in parts.items():
        if not arguments.only or name in arguments.only:
            measure(report, arguments)
    report.write(ROOT / "build/bench.json")


if __name__ == "__main__":
    main()
