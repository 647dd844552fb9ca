"""The values of Automation that Python has no type for."""
import datetime as _datetime
import math

_DAY_ZERO = _datetime.datetime(1899, 12, 30)
_MICROSECONDS = 86_400_000_000


class Date(float):
    """A date as Automation has it: days since 30 December 1899, the fraction being the time of day, also before that day.

    ``Date(45000.5)`` takes days, ``Date(datetime)`` a point in time; one with a time zone is brought to local time. A result of
    type Date is such a number, and ``.datetime`` turns it into a naive local time.

    >>> Date(datetime.datetime(2024, 2, 29, 18)).datetime
    datetime.datetime(2024, 2, 29, 18, 0)
    """

    __slots__ = ()

    def __new__(cls, value=0.0):
        if isinstance(value, _datetime.date):
            value = _days_of(value)
        return super().__new__(cls, value)

    @property
    def datetime(self):
        """The same as a naive local time, to the microsecond."""
        fraction, days = math.modf(self)
        return _DAY_ZERO + _datetime.timedelta(days=days, microseconds=round(abs(fraction) * _MICROSECONDS))

    def __repr__(self):
        return f"mox.Date({float(self)!r})"

    def __str__(self):
        try:
            return str(self.datetime)
        except (OverflowError, ValueError):
            return repr(self)


def _days_of(value):
    if not isinstance(value, _datetime.datetime):
        value = _datetime.datetime.combine(value, _datetime.time())
    if value.tzinfo is not None:
        value = value.astimezone().replace(tzinfo=None)
    span = value - _DAY_ZERO
    fraction = (span.seconds * 1_000_000 + span.microseconds) / _MICROSECONDS
    return span.days + fraction if span.days >= 0 else span.days - fraction


class ByRef:
    """An argument that the member may change: ``value`` is what goes in, and afterwards what came out.

    ``ByRef([])`` and ``ByRef(None)`` stand for an array and an object to come.
    """

    __slots__ = ("value",)

    def __init__(self, value=None):
        self.value = value

    def __repr__(self):
        return f"mox.ByRef({self.value!r})"


class Array(list):
    """A list whose first element has the index ``lower`` for the library. Arrays that begin at 0 are plain lists."""

    def __init__(self, values=(), lower=0):
        super().__init__(values)
        self.lower = lower

    def __repr__(self):
        return f"mox.Array({super().__repr__()}, lower={self.lower})"

    def __reduce__(self):
        return Array, (list(self), self.lower)


class ByteArray(bytes):
    """Bytes whose first element has the index ``lower`` for the library. Arrays that begin at 0 are plain bytes."""

    def __new__(cls, values=b"", lower=0):
        result = super().__new__(cls, values)
        result.lower = lower
        return result

    def __repr__(self):
        return f"mox.ByteArray({super().__repr__()}, lower={self.lower})"

    def __reduce__(self):
        return ByteArray, (bytes(self), self.lower)
