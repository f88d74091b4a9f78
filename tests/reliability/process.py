"""What the system tells of a running copy."""

import os
import pathlib

_TICK = os.sysconf("SC_CLK_TCK")
_LISTEN, _TIME_WAIT = "0A", "06"


class Process:
    def __init__(self, pid):
        self._folder = pathlib.Path("/proc", str(pid))
        self._pid = pid

    def memory(self):
        """What the process alone would give back, in KiB: its private pages, also where the system has put them away."""
        lines = (self._folder / "smaps_rollup").read_text(encoding="ascii").splitlines()[1:]
        sizes = {name: int(rest.split()[0]) for name, _, rest in (line.partition(":") for line in lines)}
        return sizes["Private_Dirty"] + sizes["Swap"]

    def cpu(self):
        """Seconds of processor time so far."""
        fields = (self._folder / "stat").read_text(encoding="utf-8").rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / _TICK

    def wakes(self):
        """How often its main thread has gone to sleep so far: a timer that runs on wakes it again and again."""
        lines = (self._folder / "status").read_text(encoding="utf-8").splitlines()
        return next(int(line.split()[1]) for line in lines if line.startswith("voluntary_ctxt_switches"))

    def threads(self):
        return len(list((self._folder / "task").iterdir()))

    def descriptors(self):
        return len(self._links())

    def _links(self):
        links = []
        for descriptor in (self._folder / "fd").iterdir():
            try:
                links.append(os.readlink(descriptor))
            except FileNotFoundError:
                pass  # closed since
        return links

    def sockets(self):
        """The TCP sockets that the process holds, as (local port, state)."""
        own = set(self._links())
        return [(port, state) for port, state, inode in _tcp_sockets() if f"socket:[{inode}]" in own]

    def children(self):
        tasks = (self._folder / "task").glob("*/children")
        return [child for task in tasks for child in task.read_text(encoding="ascii").split()]


def listeners(port):
    """Whether anybody listens on a port."""
    return [state for local, state, _ in _tcp_sockets() if local == port and state == _LISTEN]


def _tcp_sockets():
    for table in ("/proc/net/tcp", "/proc/net/tcp6"):
        with open(table, encoding="ascii") as lines:
            for line in list(lines)[1:]:
                fields = line.split()
                yield int(fields[1].rpartition(":")[2], 16), fields[3], fields[9]
