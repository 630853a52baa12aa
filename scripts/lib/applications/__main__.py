"""Tries Tilwin on real applications under real window managers, and says of each window whether it stands to the point.

usage: applications [--tilwin PROGRAM] [--managers NAME,...] [--applications NAME,...] [--pictures FOLDER] [--write]
Prints one table, application and manager by act; keeps a picture of each act. Status 1 if a window is off. --write puts
the table into docs/desktops.md.
"""

import argparse
import re
import signal
import subprocess
import sys
import time
from pathlib import Path

from catalogue import ACTS, APPLICATIONS, DRAG, HELD, KEYS, MANAGERS, MAXIMISE, MAXIMISED, RELEASE, START, VIDEO
from desktop import Desktop
from frames import Frame, Hints, Verdict, judge, tile
from session import CannotTry, Session, end, wait_for

DOCUMENT = Path("docs/desktops.md")
BEGIN, END = "<!-- applications -->\n", "<!-- end of applications -->\n"
START_TIME = 60  # seconds, for applications; the office program takes ten
ANSWER_TIME = 3
SOMEWHERE = Frame(170, 90, 720, 500)  # no tile, from which a press would go on to the next
STILL_TIME = 0.5  # that long a window has not moved


def settled(read, seconds, is_right=lambda _: True):
    """What is read once it is right and has not changed for a while; what it is in the end, if that never comes."""
    deadline = time.monotonic() + seconds
    last, since = read(), time.monotonic()
    while time.monotonic() < deadline:
        now = read()
        if now != last:
            last, since = now, time.monotonic()
        elif is_right(now) and time.monotonic() - since > STILL_TIME:
            break
        time.sleep(0.02)
    return last


class Trial:
    """One application's window under one manager."""

    def __init__(self, desktop, application, window):
        self.desktop, self.application, self.window = desktop, application, window
        self.put_somewhere()
        self.returns_by_itself = self.maximise_and_release() == self.before[START]
        if not self.returns_by_itself:
            self.put_somewhere()

    def frame(self):
        return self.desktop.frame(self.window)

    def put_somewhere(self):
        self.desktop.ask_for(self.window, SOMEWHERE)
        self.before = {START: settled(self.frame, ANSWER_TIME)}

    def maximise_and_release(self):
        """Without Tilwin: what becomes of the window then is up to its manager and its program."""
        for wanted in (True, False):
            self.desktop.set_maximised(self.window, wanted)
            frame = settled(self.frame, ANSWER_TIME, lambda _: self.desktop.is_maximised(self.window) == wanted)
        return frame

    def verdict(self, act, seen):
        if self.desktop.is_maximised(self.window) != act.is_maximised:
            return Verdict(f"OFF: {'not' if act.is_maximised else 'still'} maximised, at {seen}", False)
        area, decoration = self.desktop.area(), self.desktop.decoration(self.window)
        if act.tile:
            return judge(seen, tile(area, *act.tile), area, self.desktop.hints(self.window), decoration)
        found = judge(seen, self.before[act.as_before], area, Hints(), decoration)
        if act.does == RELEASE and not found.is_right and not self.returns_by_itself:
            return Verdict("as without Tilwin", True)
        return found

    def do(self, act):
        before = self.frame()
        {KEYS: lambda: self.desktop.press("Control_L", "Alt_L", *act.argument),
         MAXIMISE: lambda: self.desktop.set_maximised(self.window, True),
         RELEASE: lambda: self.desktop.set_maximised(self.window, False),
         DRAG: self.drag_to_the_left}[act.does]()
        wait_for(lambda: self.frame() != before, ANSWER_TIME)
        if act.does == MAXIMISE:
            self.before[MAXIMISED] = settled(self.frame, ANSWER_TIME)

    def drag_to_the_left(self):
        frame, area = self.frame(), self.desktop.area()
        self.before[HELD] = frame
        share, down = self.application.grip or (0.5, 0)
        top = self.desktop.margins(self.window)[2]
        at = (frame.x + round(frame.width * share), frame.y + (top // 2 if top > 8 else down))
        self.desktop.drag(at, (0, area.y + area.height // 2))

    def play(self, act):
        self.do(act)
        seen = settled(self.frame, ANSWER_TIME, lambda frame: self.verdict(act, frame).is_right)
        return self.verdict(act, seen)


def open_window(session, desktop, application):
    session.write(application.files)
    process = session.start(application.name, application.command)
    window = wait_for(lambda: desktop.find(application.window_class), START_TIME, 0.1)
    if not window:
        end(process)
        raise CannotTry(f"{application.name} shows no window: see {session.log(application.name)}")
    settled(lambda: desktop.frame(window), 10)
    settled(lambda: desktop.numbers(window, "_NET_WM_NAME"), 5)
    if desktop.is_maximised(window, any):
        desktop.set_maximised(window, False)
        settled(lambda: desktop.frame(window), ANSWER_TIME)
    if not desktop.activate(window):
        raise CannotTry(f"{application.name} does not become the active window")
    return process, window


def close(desktop, process, window):
    end(process)
    wait_for(lambda: window.id not in [client.id for client in desktop.clients()], 10)


def try_application(session, desktop, application, pictures):
    """The verdicts on all acts."""
    process, window = open_window(session, desktop, application)
    trial, verdicts = Trial(desktop, application, window), []
    for number, act in enumerate(ACTS, 1):
        verdicts.append(trial.play(act))
        desktop.picture(pictures / f"{application.name}-{number:02}-{act.title.replace(' ', '-')}.png")
        if not verdicts[-1].is_right:
            print(f"    {application.name}, {act.title}: {verdicts[-1].text}", flush=True)
    close(desktop, process, window)
    return verdicts


def start_desktop(session, manager, tilwin):
    """The manager, a panel, and Tilwin, each once the one before is there."""
    desktop = Desktop(session.environment["DISPLAY"])
    session.write(manager.settings())
    session.start(manager.name, manager.command)
    if not wait_for(desktop.is_managed, 20):
        raise CannotTry(f"{manager.name} does not manage the desktop: see {session.log(manager.name)}")
    session.start("tint2", ("tint2",))
    whole = desktop.root.get_geometry().height
    if not wait_for(lambda: desktop.numbers(desktop.root, "_NET_WORKAREA") and desktop.area().height < whole, 20):
        raise CannotTry("the panel reserves no space")
    session.start("tilwin", (str(tilwin),))
    if not wait_for(lambda: re.search(r"\b(\d+) of \1 shortcuts work", session.log("tilwin").read_text()), 20):
        raise CannotTry(f"Tilwin does not start with all shortcuts: see {session.log('tilwin')}")
    return desktop


def try_manager(manager, applications, tilwin, output):
    """Application to its verdicts."""
    pictures, results = output / manager.name, {}
    pictures.mkdir(parents=True, exist_ok=True)
    with Session(pictures / "logs") as session:
        make_video(session.home / VIDEO)
        desktop = start_desktop(session, manager, tilwin)
        for application in applications:
            try:
                results[application] = try_application(session, desktop, application, pictures)
            except CannotTry as reason:
                results[application] = [Verdict(f"OFF: {reason}", False)]
            print(f"  {manager.name}: {application.name} done", flush=True)
        desktop.close()
    return results


def make_video(path):
    subprocess.run(("ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", "testsrc=size=640x360:rate=10:duration=5",
                    "-pix_fmt", "yuv420p", str(path)), stdin=subprocess.DEVNULL, check=True, timeout=60)


def table(results):
    """Rows of application and manager; what is off is told in notes below."""
    lines = ["| | | " + " | ".join(act.title for act in ACTS) + " |", "|---" * (len(ACTS) + 2) + "|"]
    notes = []
    for application in APPLICATIONS:
        for manager in MANAGERS:
            verdicts = results.get(manager, {}).get(application)
            if not verdicts:
                continue
            cells = [verdict.text if verdict.is_right else f"OFF ({note(notes, verdict)})" for verdict in verdicts]
            lines.append(f"| {application.name} | {manager.name} | " + " | ".join(cells) + " |")
    if notes:
        lines.append("")
    return "\n".join(lines + [f"{number}. {text}" for number, text in enumerate(notes, 1)])


def note(notes, verdict):
    notes.append(verdict.text.removeprefix("OFF: "))
    return len(notes)


def versions():
    packages = [row.package for row in (*APPLICATIONS, *MANAGERS)] + ["tint2"]
    told = subprocess.run(("dpkg-query", "-W", "-f", "${Package} ${Version}\n", *packages), capture_output=True, text=True,
                          check=False)
    return ", ".join(told.stdout.split("\n")[:-1])


def write(found):
    before, rest = DOCUMENT.read_text().split(BEGIN)
    DOCUMENT.write_text(before + BEGIN + found + END + rest.split(END)[1])


def chosen(rows, names):
    return [row for row in rows if names is None or row.name in names.split(",")]


def main():
    arguments = argparse.ArgumentParser(usage=__doc__.split("usage: ")[1].split("\n")[0])
    arguments.add_argument("--tilwin", type=Path, default=Path("build/release/tilwin"))
    arguments.add_argument("--managers")
    arguments.add_argument("--applications")
    arguments.add_argument("--pictures", type=Path, default=Path("build/pictures-of-applications"))
    arguments.add_argument("--write", action="store_true")
    given = arguments.parse_args()
    if not given.tilwin.is_file():
        sys.exit(f"{given.tilwin} is not there; scripts/run builds it")
    applications = chosen(APPLICATIONS, given.applications)
    results = {manager: try_manager(manager, applications, given.tilwin.resolve(), given.pictures.resolve())
               for manager in chosen(MANAGERS, given.managers)}
    found = f"{table(results)}\n\nWith {versions()}.\n"
    print(found, f"Pictures: {given.pictures}", sep="\n")
    if given.write:
        write(found)
    verdicts = [verdict for by_application in results.values() for each in by_application.values() for verdict in each]
    sys.exit(0 if verdicts and all(verdict.is_right for verdict in verdicts) else 1)


# What was started ends with its session, however that ends.
signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
try:
    main()
except CannotTry as reason:
    sys.exit(str(reason))
