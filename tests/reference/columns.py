"""How values are written in the columns of a case."""


def number(x: float) -> str:
    """A float, to the last bit."""
    return float(x).hex()


def numbers(values: list[float]) -> list[str]:
    """Several floats."""
    return [number(value) for value in values]


def flag(value: bool) -> str:
    """A truth value."""
    return "1" if value else "0"


def optional_number(x: float | None) -> str:
    """A float that may be missing."""
    return "-" if x is None else number(x)


def optional_text(value: object) -> str:
    """A word or a whole number that may be missing."""
    return "-" if value is None else str(value)
