"""The machine behind the library: its configuration, its operations, its message loop."""
import json
import os
import time
from collections.abc import Mapping
from ctypes import c_void_p

from ._errors import check_reported
from ._events import waiting
from ._platform import apartments, bstr_of, platform, take_text

#: The longest that the message loop runs before it looks whether Python has a signal to handle, in seconds.
_SLICE = 0.05


def _control(request, **members):
    """Asks the platform for something, in JSON both ways."""
    text = bstr_of(json.dumps({"do": request, **members}))
    reply = c_void_p()
    try:
        check_reported(platform.MoxControl(text, reply))
    finally:
        platform.SysFreeString(text)
    return json.loads(take_text(reply.value))


def machine(**facts):
    """Says what the machine is made of, before the first object is created; an error after that.

    ``home``: the folder where it keeps everything. ``memory=True``: nothing on disk but a temporary folder. ``windows``: the
    version that it reports, ``(major, minor, build, platform, service_text, product_type, suite)`` or the beginning of that.
    ``product_info``: the number of the edition, from version 6.0 on. ``metrics``: answers of GetSystemMetrics by index.
    ``codepage``: the ANSI code page by its number. ``drives``: folders by drive letter.
    ``trash``: the folder that takes deleted files in the place of the desktop's trash. ``visual_style=True``: the machine has a
    visual style, which it has not otherwise.
    """
    for name in ("home", "drives", "trash"):
        if name in facts:
            facts[name] = json.loads(json.dumps(facts[name], default=os.fspath))
    if "windows" in facts:
        facts["windows"] = list(facts["windows"])
    _control("machine", facts=facts)


class Operation:
    """One operation of the platform, to count its calls or to let them fail in a test."""

    __slots__ = ("name",)

    def __init__(self, name):
        self.name = name

    @property
    def calls(self):
        """The calls since the start or the last reset(), those that were made to fail included."""
        return _control("operation", name=self.name, action="calls")["calls"]

    def reset(self):
        """Counts from 0 again."""
        _control("operation", name=self.name, action="reset")

    def fail(self, times=None):
        """Makes the next calls fail, or all from now on."""
        _control("operation", name=self.name, action="fail", times=times)

    def restore(self):
        """Ends what fail() began."""
        _control("operation", name=self.name, action="restore")

    def __repr__(self):
        return f"<operation {self.name}>"


class Operations(Mapping):
    """The platform's operations by their full names, such as ``kernel32.FindFirstFileA``, without regard to case."""

    def __getitem__(self, name):
        for known in self:
            if known.lower() == name.lower():
                return Operation(known)
        raise KeyError(name)

    def __iter__(self):
        return iter(_control("operations")["operations"])

    def __len__(self):
        return len(_control("operations")["operations"])

    def __repr__(self):
        return f"<{len(self)} operations>"


operations = Operations()


def handles():
    """The platform handles that are open, as numbers by kind."""
    return _control("handles")["handles"]


def answer(kind, /, **reply):
    """Answers the next dialog of a kind ahead, before anybody is asked. Answers of a kind are used in their order.

    ``answer("confirm", yes=True)``: a question of yes or no. ``answer("message_box", button=6)``: the identifier of the button;
    one that the box does not have counts for nothing. Anything else is error 5.
    """
    _control("answer", kind=kind, reply=reply)


def dialogs():
    """The dialogs that were asked, the last thousand at most, oldest first: dictionaries with ``kind``, ``caption``, ``text`` and
    ``answer``, the reply that came of it."""
    return _control("dialogs")["dialogs"]


def doctor():
    """What stands behind each service of the machine, as texts by service."""
    return {service["service"]: service["text"] for service in _control("doctor")["services"]}


def pump(seconds=0):
    """Runs the message loop of the calling thread for that long: timers and other events arrive meanwhile. With 0 what is due."""
    apartments.enter()
    end = time.monotonic() + seconds
    waiting.pumping += 1
    try:
        while True:
            left = max(end - time.monotonic(), 0)
            check_reported(platform.MoxPump(round(min(left, _SLICE) * 1000)))
            if waiting.interrupt is not None:
                interrupt, waiting.interrupt = waiting.interrupt, None
                raise interrupt
            if left <= _SLICE:
                return
    finally:
        waiting.pumping -= 1
