#!/usr/bin/env python3
"""Holds a serial port of Windows to its promises, under Wine, in a minute or two.

Compiles for Windows what carries a port there (it needs nothing of the toolkit), opens it as COM12
and plays the other end, a pseudo-terminal that Wine has for a port by a link. What Wine does not
keep cannot be seen here: that a port is open for one program alone, and its control lines. By hand.
"""

import os
import pathlib
import pty
import select
import signal
import subprocess
import sys
import tempfile
import termios
import time
import tty

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCES = [
    "src/ports/asio_system_windows.cpp",
    "src/ports/async_port.cpp",
    "src/ports/port_path.cpp",
    "tests/ports/driven_port.cpp",
]
LONGEST = 10

failures = 0


def expect(what, found, wanted):
    global failures
    if found == wanted:
        return
    failures += 1
    print(f"{what}: {found!r}, expected {wanted!r}", file=sys.stderr)


def compile_program(folder):
    """The headers beside Boost's are this system's, so Boost's stand alone in a folder."""
    (folder / "headers").mkdir()
    (folder / "headers" / "boost").symlink_to("/usr/include/boost")
    program = folder / "driven_port.exe"
    objects = []
    running = []
    for source in SOURCES:
        objects.append(folder / (pathlib.Path(source).stem + ".o"))
        running.append(
            subprocess.Popen(
                ["x86_64-w64-mingw32-g++-posix", "-std=c++20", "-D_WIN32_WINNT=0x0A00", "-Wall",
                 "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror",
                 "-isystem", folder / "headers", "-I", ROOT / "src",
                 "-c", ROOT / source, "-o", objects[-1]]))
    if any([process.wait() != 0 for process in running]):
        sys.exit("does not compile for Windows")
    subprocess.run(
        ["x86_64-w64-mingw32-g++-posix", "-static", *objects, "-o", program, "-lws2_32",
         "-lmswsock"], check=True)
    return program


class Terminal:
    """A pseudo-terminal, of which this is the other end."""

    def __init__(self, link):
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        os.set_blocking(self.master, False)
        link.unlink(missing_ok=True)
        link.symlink_to(os.ttyname(self.slave))

    def receive(self, size):
        received = b""
        end = time.monotonic() + LONGEST
        while len(received) < size and time.monotonic() < end:
            if select.select([self.master], [], [], 0.1)[0]:
                received += os.read(self.master, 65536)
        return received

    def receive_all(self):
        received = b""
        while select.select([self.master], [], [], 0.5)[0]:
            received += os.read(self.master, 65536)
        return received

    def send(self, data):
        os.write(self.master, data)

    def settings(self):
        return termios.tcgetattr(self.master)

    def unplug(self):
        os.close(self.slave)
        os.close(self.master)


class Port:
    """The program under Wine, which is told what to do."""

    def __init__(self, program):
        self.process = subprocess.Popen(
            ["wine", program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def do(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        return self.process.stdout.readline().strip()

    def end(self):
        self.process.stdin.close()
        return self.process.wait(LONGEST)


def hold_to_promises(port, terminal):
    refusal = port.do("open COM77 9600")
    expect("a port that is not there", refusal[:9], "refused: ")
    expect("the system's reason in words", len(refusal) > 12, True)

    expect("a port above 9", port.do("open COM12 19200"), "open")
    iflag, oflag, cflag, lflag, _, speed, _ = terminal.settings()
    expect("the speed", speed, termios.B19200)
    expect("8 data bits", cflag & termios.CSIZE, termios.CS8)
    expect("no parity, 1 stop bit, no flow control by lines",
           cflag & (termios.PARENB | termios.CSTOPB | termios.CRTSCTS), 0)
    expect("no flow control by characters, none changed",
           iflag & (termios.IXON | termios.IXOFF | termios.ICRNL | termios.ISTRIP), 0)
    expect("what is sent is sent as it is", oflag & termios.OPOST, 0)
    expect("no echo", lflag & (termios.ECHO | termios.ICANON), 0)
    expect("control lines", port.do("lines"), "set")

    for _ in range(20):
        port.do("write " + b"<ID1A><?>\r\n".hex())
        expect("a frame", terminal.receive(11), b"<ID1A><?>\r\n")
        terminal.send(b"<ID1A>\r\n")
        expect("its answer", port.do("read 8"), b"<ID1A>\r\n".hex())
        if failures:
            return
    every_value = bytes(range(256))
    port.do("write " + every_value.hex())
    expect("every byte value sent", terminal.receive(256), every_value)
    terminal.send(every_value)
    expect("every byte value read", port.do("read 256"), every_value.hex())

    expect("a line that takes nothing", port.do("fill 200000"), "waiting")
    expect("what is given up", port.do("discard"), "nothing waits")
    terminal.receive_all()
    port.do("write " + b"\r\n".hex())
    expect("what is written behind it", terminal.receive_all()[-2:], b"\r\n")
    expect("everything has left", port.do("drain"), "gone")
    port.do("fill 200000")
    expect("a port that is closed over it", port.do("close"), "closed")
    terminal.receive_all()

    expect("the port once more", port.do("open COM12 9600"), "open")
    expect("its speed", terminal.settings()[5], termios.B9600)
    port.do("fill 10000")
    expect("a line that reads", len(terminal.receive(10000)), 10000)
    expect("everything has left again", port.do("drain"), "gone")
    terminal.send(b"last words")
    expect("what came before the loss", port.do("read 10"), b"last words".hex())
    terminal.unplug()
    expect("the loss is found out", port.do("lost"), "lost")
    expect("a lost port can be closed", port.do("close"), "closed")


def main():
    # Wine is to end with this program, whatever ends it.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    subprocess.run([ROOT / "tools/install_missing.sh", "g++-mingw-w64-x86-64-posix", "libboost-dev",
                    "wine", "wine64"], check=True)
    os.environ["WINEDEBUG"] = "-all"
    with tempfile.TemporaryDirectory(prefix="windows_ports.") as name:
        folder = pathlib.Path(name)
        program = compile_program(folder)
        os.environ["WINEPREFIX"] = str(folder / "wine")
        subprocess.run(["wineboot", "-i"], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        subprocess.run(["wineserver", "-k"], check=False)
        subprocess.run(["wineserver", "-w"], check=False)
        # In the background it would take the terminal for its own, and end with it.
        server = subprocess.Popen(["wineserver", "-f", "-p"])
        try:
            terminal = Terminal(folder / "wine/dosdevices/com12")
            port = Port(program)
            hold_to_promises(port, terminal)
            expect("the program's end", port.end(), 0)
        finally:
            subprocess.run(["wineserver", "-k"], check=False)
            server.wait(LONGEST)
    if failures:
        sys.exit(1)
    print("A serial port of Windows keeps its promises.")


if __name__ == "__main__":
    main()
