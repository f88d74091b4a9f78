"""The other end of the wire without the program: sends and expects bare bytes."""

import contextlib
import socket
import struct

from waiting import LIMIT, wait_until

# Where Linux keeps the number of received segments that held data, in the answer to TCP_INFO.
_DATA_SEGMENTS_IN = 152
_TCP_INFO_SIZE = 192
_ANSWER = 65536


class Peer:
    """One connection to a copy."""

    def __init__(self, connection):
        self._socket = connection
        self._socket.settimeout(LIMIT)
        self._socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)

    @classmethod
    def connected_to(cls, port, host="127.0.0.1"):
        return cls(socket.create_connection((host, port), LIMIT))

    def send(self, data):
        """Sends bytes, or a text in the encoding of the wire, and waits until the copy has taken them all."""
        self._socket.sendall(data.encode("cp1252") if isinstance(data, str) else data)
        wait_until("the copy to read what was sent", lambda: self._unread_by_copy() == 0)

    def send_unread(self, data):
        """Sends without waiting for the copy to read."""
        self._socket.sendall(data)

    def _unread_by_copy(self):
        """Bytes on their way to the copy or waiting there to be read."""
        own, copy = self._socket.getsockname()[1], self._socket.getpeername()[1]
        waiting = 0
        for table in ("/proc/net/tcp", "/proc/net/tcp6"):
            with open(table, encoding="ascii") as lines:
                for line in list(lines)[1:]:
                    local, remote, _, queues = line.split()[1:5]
                    ends = int(local.rpartition(":")[2], 16), int(remote.rpartition(":")[2], 16)
                    sending, receiving = (int(number, 16) for number in queues.split(":"))
                    if ends == (own, copy):
                        waiting += sending
                    elif ends == (copy, own):
                        waiting += receiving
        return waiting

    def expect(self, expected):
        """The next bytes, which must come alone, in one read."""
        self.expect_one_of(expected)

    def expect_one_of(self, *expected):
        """The next bytes, which must be one of several. Returns them."""
        data = self._socket.recv(_ANSWER)
        assert data in expected, f"expected one of {expected!r} on the wire, got {data!r}"
        return data

    @contextlib.contextmanager
    def expect_writes(self, *expected):
        """What the body brings about: a segment for each of the texts, so that each was written alone and at once."""
        before = self._data_segments()
        yield
        together = b"".join(expected)
        data = b""
        while len(data) < len(together) and (part := self._socket.recv(_ANSWER)):
            data += part
        assert data == together, f"expected {together!r} on the wire, got {data!r}"
        segments = self._data_segments() - before
        assert segments == len(expected), f"{expected!r} came in {segments} writes"

    def _data_segments(self):
        info = self._socket.getsockopt(socket.IPPROTO_TCP, socket.TCP_INFO, _TCP_INFO_SIZE)
        return struct.unpack_from("I", info, _DATA_SEGMENTS_IN)[0]

    def expect_refusals(self, refusal):
        """A text that is repeated until its sender knows that it has left, then the end of the connection."""
        data = self.rest()
        times, remainder = divmod(len(data), len(refusal))
        assert times >= 1 and remainder == 0 and data == refusal * times, f"expected {refusal!r}, got {data!r}"

    def rest(self):
        """Everything up to the end of the connection."""
        data = b""
        try:
            while part := self._socket.recv(_ANSWER):
                data += part
        except ConnectionResetError:
            pass
        return data

    def expect_silence(self):
        """Nothing has come so far."""
        self._socket.setblocking(False)
        try:
            data = self._socket.recv(_ANSWER)
            raise AssertionError(f"expected nothing on the wire, got {data!r}")
        except BlockingIOError:
            pass
        finally:
            self._socket.settimeout(LIMIT)

    def finish(self):
        """Closes the sending half: the copy reads an end of file."""
        self._socket.shutdown(socket.SHUT_WR)

    def reset(self):
        """Breaks the connection without a farewell."""
        self._socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self._socket.close()

    def close(self):
        self._socket.close()


class Listener:
    """A server that a client copy connects to."""

    def __init__(self, port):
        self._socket = socket.create_server(("127.0.0.1", port))
        self._socket.settimeout(LIMIT)

    def accept(self):
        return Peer(self._socket.accept()[0])

    def close(self):
        self._socket.close()
