"""A relay on loopback: whoever connects to it is connected to another port, and what they say passes through.

It passes bytes on as they come, until it is told to delay them, to take writes apart or to join them, or to swallow
what comes from a moment on. Each way can be told something else, at any time.
"""

import contextlib
import queue
import socket
import threading
import time

_ANSWER = 65536
_END = b""


class Way:
    """One of the two ways through the relay."""

    def __init__(self):
        self.delay = 0.0  # seconds from the arrival of bytes until they go on
        self.apart = None  # seconds between single bytes; without a number writes stay whole
        self.together = 0.0  # seconds in which what comes is gathered into one write
        self.swallows = False  # nothing goes on any more, not even that its sender has gone

    def carry(self, source, target):
        """Until the source ends, or either has gone."""
        arrived = queue.Queue()
        threading.Thread(target=self._pass_on, args=(arrived, target), daemon=True).start()
        data = None
        while data != _END:
            try:
                data = source.recv(_ANSWER)
            except OSError:
                data = _END
            arrived.put((time.monotonic() + self.delay, data))

    def _pass_on(self, arrived, target):
        with contextlib.suppress(OSError):  # the target has gone
            while True:
                due, data = arrived.get()
                time.sleep(max(due + self.together - time.monotonic(), 0))
                if self.together:
                    data += self._gathered(arrived)
                if self.swallows:
                    continue
                if data == _END:
                    target.shutdown(socket.SHUT_WR)
                    return
                self._write(data, target)

    @staticmethod
    def _gathered(arrived):
        """What has come meanwhile. An end stays behind, to be passed on by itself."""
        parts = []
        while not arrived.empty():
            due, data = arrived.get()
            if data == _END:
                arrived.put((due, data))
                break
            parts.append(data)
        return b"".join(parts)

    def _write(self, data, target):
        if self.apart is None:
            target.sendall(data)
            return
        for byte in data:
            target.sendall(bytes((byte,)))
            time.sleep(self.apart)


class Relay:
    """Between whoever connects to its port and a port of this computer."""

    def __init__(self, target_port):
        self.mend()
        self._target_port = target_port
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.port = self._listener.getsockname()[1]
        self._ends = []
        threading.Thread(target=self._accept, daemon=True).start()

    def mend(self):
        """From the next connection on all goes through as it comes."""
        self.forth, self.back = Way(), Way()

    def _accept(self):
        with contextlib.suppress(OSError):  # closed
            while True:
                self._connect(self._listener.accept()[0])

    def _connect(self, source):
        try:
            target = socket.create_connection(("127.0.0.1", self._target_port))
        except OSError:  # nobody listens there
            source.close()
            return
        for end in (source, target):
            end.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            self._ends.append(end)
        for way, ends in ((self.forth, (source, target)), (self.back, (target, source))):
            threading.Thread(target=way.carry, args=ends, daemon=True).start()

    def close(self):
        for end in (self._listener, *self._ends):
            with contextlib.suppress(OSError):
                end.shutdown(socket.SHUT_RDWR)
            end.close()
