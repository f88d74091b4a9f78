"""The other end of the wire without the program: sends and expects bare bytes."""

import contextlib
import ctypes
import socket
import struct
import subprocess

from waiting import LIMIT, wait_until

# Where Linux keeps the number of received segments that held data, in the answer to TCP_INFO.
_DATA_SEGMENTS_IN = 152
_TCP_INFO_SIZE = 192
_ANSWER = 65536
_SOON = 0.2  # seconds
# Socket options of Linux, and a packet filter of one instruction: keep nothing.
_SO_ATTACH_FILTER = 26
_SO_DETACH_FILTER = 27
_DROP_ALL = struct.pack("HBBI", 0x06, 0, 0, 0)


class Peer:
    """One connection to a copy."""

    def __init__(self, connection):
        self._socket = connection
        self._seen = b""  # by has_sent
        self.ended = False  # as offer has found
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

    def offer(self, data):
        """Sends as much as the copy takes soon; a connection that has ended takes nothing."""
        self._socket.settimeout(_SOON)
        try:
            self._socket.sendall(data)
        except TimeoutError:
            pass
        except OSError:
            self.ended = True
        finally:
            self._socket.settimeout(LIMIT)

    def _unread_by_copy(self):
        """Bytes on their way to the copy or waiting there to be read."""
        own, copy = self._queues()
        return own[0] + copy[1]

    def undelivered(self):
        """Bytes that the copy has sent and that have not arrived here."""
        return self._queues()[1][0]

    def _queues(self):
        """Bytes that wait to be sent and to be read, at this end and at the copy's."""
        own, copy = self._socket.getsockname()[1], self._socket.getpeername()[1]
        found = {(own, copy): (0, 0), (copy, own): (0, 0)}
        for table in ("/proc/net/tcp", "/proc/net/tcp6"):
            with open(table, encoding="ascii") as lines:
                for line in list(lines)[1:]:
                    local, remote, _, queues = line.split()[1:5]
                    ends = int(local.rpartition(":")[2], 16), int(remote.rpartition(":")[2], 16)
                    if ends in found:
                        sending, receiving = (int(number, 16) for number in queues.split(":"))
                        found[ends] = found[ends][0] + sending, found[ends][1] + receiving
        return found[own, copy], found[copy, own]

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

    def has_sent(self, text):
        """Whether a text has come by now, after whatever came before it."""
        self._socket.setblocking(False)
        try:
            while part := self._socket.recv(_ANSWER):
                self._seen += part
        except OSError:
            pass
        finally:
            self._socket.settimeout(LIMIT)
        return text in self._seen

    def discard(self):
        """Forgets what has come so far."""
        self.has_sent(b"")
        self._seen = b""

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

    def cut(self):
        """From now on every packet of the copy is lost on its way here: nothing is read and nothing acknowledged."""
        program = ctypes.create_string_buffer(_DROP_ALL)
        header = struct.pack("HP", 1, ctypes.addressof(program))
        self._socket.setsockopt(socket.SOL_SOCKET, _SO_ATTACH_FILTER, header)

    def mend(self):
        """Packets arrive again; the copy's system sends the lost ones anew."""
        self._socket.setsockopt(socket.SOL_SOCKET, _SO_DETACH_FILTER, 0)

    def finish(self):
        """Closes the sending half: the copy reads an end of file."""
        self._socket.shutdown(socket.SHUT_WR)

    def die(self):
        """The process that holds the connection is killed."""
        holder = subprocess.Popen(("sleep", "60"), pass_fds=(self._socket.fileno(),))
        self._socket.close()
        holder.kill()
        holder.wait()

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
        self.port = self._socket.getsockname()[1]

    def accept(self):
        return Peer(self._socket.accept()[0])

    def close(self):
        self._socket.close()
