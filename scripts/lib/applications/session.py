"""A private desktop: an X server, a bus, a home, and the processes on it, all of which end with it."""

import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

SCREEN = "1366x768x24"
ENVIRONMENT = {"LANG": "C.UTF-8", "SHELL": "/bin/sh", "XDG_SESSION_TYPE": "x11", "GDK_BACKEND": "x11",
               "QT_QPA_PLATFORM": "xcb", "NO_AT_BRIDGE": "1", "GTK_A11Y": "none", "GSETTINGS_BACKEND": "keyfile",
               "GIO_USE_VFS": "local", "LIBGL_ALWAYS_SOFTWARE": "1", "SAL_USE_VCLPLUGIN": "gtk3",
               "XDG_DATA_DIRS": "/usr/local/share:/usr/share", "XDG_CONFIG_DIRS": "/etc/xdg"}


class CannotTry(Exception):
    """Something that is needed does not start."""


def wait_for(condition, seconds, pause=0.02):
    """What the condition gives once it holds; its last answer if the time is over before."""
    deadline = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer or time.monotonic() > deadline:
            return answer
        time.sleep(pause)


def end(process, patience=5):
    """Ends the process and its group."""
    for signal_number in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(process.pid, signal_number)
        except ProcessLookupError:
            pass
        try:
            process.wait(patience)
        except subprocess.TimeoutExpired:
            continue


class Session:
    def __init__(self, logs):
        self.home = Path(tempfile.mkdtemp(prefix="tilwin-applications-"))
        self.logs = logs
        self.processes = []
        self.environment = ENVIRONMENT | {"PATH": os.environ["PATH"], "HOME": str(self.home)}
        for name in ("config", "data", "cache", "state"):
            self.environment[f"XDG_{name.upper()}_HOME"] = str(self.home / f".{name}")
        self.environment["XDG_RUNTIME_DIR"] = str(self.home / "runtime")
        (self.home / "runtime").mkdir(mode=0o700)
        logs.mkdir(parents=True, exist_ok=True)

    def __enter__(self):
        try:
            number = self.start_telling("Xvfb", ("Xvfb", "-screen", "0", SCREEN, "-nolisten", "tcp", "-noreset",
                                                 "-displayfd"))
            self.environment["DISPLAY"] = f":{number}"
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.start_telling(
                "dbus-daemon", ("dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog", "--print-address"))
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            end(process)
        self.end_strays()
        shutil.rmtree(self.home, ignore_errors=True)

    def end_strays(self):
        """Services that the bus started are nobody's children; they are known by their home."""
        mark = f"HOME={self.home}".encode()
        for environment in Path("/proc").glob("[0-9]*/environ"):
            try:
                if mark in environment.read_bytes().split(b"\0"):
                    os.kill(int(environment.parent.name), signal.SIGKILL)
            except OSError:
                continue

    def write(self, files):
        for name, text in files.items():
            path = self.home / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)

    def log(self, name):
        return self.logs / f"{name}.log"

    def start(self, name, command, **options):
        """Starts a program in a process group of its own."""
        with self.log(name).open("wb") as log:
            process = subprocess.Popen(command, env=self.environment, cwd=self.home, stdin=subprocess.DEVNULL, stdout=log,
                                       stderr=log, start_new_session=True, **options)
        self.processes.append(process)
        return process

    def start_telling(self, name, command):
        """Starts a program that takes the number of a descriptor at its end, and gives the line that it writes there."""
        reading, writing = os.pipe()
        try:
            self.start(name, (*command[:-1], *told(command[-1], writing)), pass_fds=(writing,))
        finally:
            os.close(writing)
        with os.fdopen(reading) as answer:
            line = answer.readline().strip()
        if not line:
            raise CannotTry(f"{name} does not start: see {self.log(name)}")
        return line


def told(option, descriptor):
    return (option, str(descriptor)) if option == "-displayfd" else (f"{option}={descriptor}",)
