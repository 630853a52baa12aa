"""What happens to a window in the seconds after a drag, told by a list of events with their times."""

from dataclasses import dataclass

from drag_features import REACH, DragFeatures
from drag_report import ShadowRecord, shadow_record

FOLLOW_UP_WINDOW = 4_000_000  # microseconds


@dataclass
class Event:
    """Something that happened, with the wall clock in microseconds since 1970."""

    time: int
    kind: str
    window: int = 0
    features: DragFeatures | None = None
    screen: tuple[float, float] = (0.0, 0.0)
    snapped: str | None = None
    intended: str | None = None
    action: str | None = None


@dataclass
class Pending:
    """A drag whose follow-up is still open."""

    features: DragFeatures
    screen: tuple[float, float]
    snapped: bool
    zone: str | None
    at: int
    deadline: int


class Recorder:
    """Turns events into records, one for each drag that ended near an edge."""

    def __init__(self) -> None:
        self.pending: dict[int, Pending] = {}
        self.records: list[ShadowRecord] = []

    def handle(self, event: Event) -> None:
        """Lets one event happen."""
        if event.kind == "release":
            self.release(event)
        elif event.kind == "moved":
            self.drag_moved(event)
        elif event.kind == "action":
            self.action_performed(event)
        elif event.kind == "tick":
            self.tick(event.time)
        elif event.kind == "flush":
            self.flush()
        elif event.kind == "discard":
            self.pending.clear()
        else:
            raise ValueError(f"no such event: {event.kind}")

    def release(self, event: Event) -> None:
        """A drag ended; near an edge it is held until its follow-up is known."""
        if event.features.distance > REACH:
            return
        self.resolve(event.window)
        self.pending[event.window] = Pending(
            features=event.features,
            screen=event.screen,
            snapped=event.snapped is not None,
            zone=event.snapped if event.snapped is not None else event.intended,
            at=event.time,
            deadline=event.time + FOLLOW_UP_WINDOW,
        )

    def drag_moved(self, event: Event) -> None:
        """A new drag of the window began."""
        entry = self.pending.get(event.window)
        if entry is None:
            return
        if entry.deadline < event.time:
            self.resolve(event.window)
        elif entry.snapped:
            self.finish(event.window, "restoredOrMovedAway")

    def action_performed(self, event: Event) -> None:
        """An action was applied to the window."""
        entry = self.pending.get(event.window)
        if entry is None:
            return
        if entry.deadline < event.time:
            self.resolve(event.window)
        elif not entry.snapped:
            if entry.zone is not None and event.action == entry.zone:
                self.finish(event.window, "draggedBackToSameEdge")
        elif event.action == "restore":
            self.finish(event.window, "restoredOrMovedAway")

    def tick(self, now: int) -> None:
        """Closes what has run out of time."""
        for window in self.oldest_first():
            if self.pending[window].deadline < now:
                self.resolve(window)

    def flush(self) -> None:
        """Closes everything."""
        for window in self.oldest_first():
            self.resolve(window)

    def oldest_first(self) -> list[int]:
        """The windows held, by time of release, then by id."""
        return sorted(self.pending, key=lambda window: (self.pending[window].at, window))

    def resolve(self, window: int) -> None:
        """Closes the window's entry, if it has one, as one that nothing followed."""
        entry = self.pending.get(window)
        if entry is not None:
            self.finish(window, "keptSnap" if entry.snapped else "leftAlone")

    def finish(self, window: int, follow: str) -> None:
        """Makes the record of the window's entry."""
        entry = self.pending.pop(window)
        self.records.append(
            shadow_record(entry.at, entry.screen, entry.features, entry.snapped, entry.zone, follow))


def records_of(events: list[Event]) -> list[ShadowRecord]:
    """The records that a list of events leaves behind, in the order they were made."""
    recorder = Recorder()
    for event in events:
        recorder.handle(event)
    return recorder.records
