"""The registry of the machine, as other programs on it would see it."""
import operator

from ._machine import _control

_ROOTS = (
    "HKEY_CLASSES_ROOT",
    "HKEY_CURRENT_USER",
    "HKEY_LOCAL_MACHINE",
    "HKEY_USERS",
    "HKEY_PERFORMANCE_DATA",
    "HKEY_CURRENT_CONFIG",
    "HKEY_DYN_DATA",
)
_FIRST = 0x80000000


def _root_name(root):
    """The name of a predefined key, which may come as its number, such as ``mox.HKEY_CURRENT_USER``."""
    if isinstance(root, str):
        return root
    place = (operator.index(root) & 0xFFFFFFFF) - _FIRST
    if not 0 <= place < len(_ROOTS):
        raise ValueError(f"no predefined key: {root}")
    return _ROOTS[place]


class Registry:
    """Reads and sets values past the library, for tests: ``mox.registry``.

    ``root``: a predefined key by its value or its name. ``key``: the path below it. ``name``: that of the value; the empty name is
    the key's default value. Names have no case.
    """

    NONE = 0
    SZ = 1
    EXPAND_SZ = 2
    BINARY = 3
    DWORD = 4
    DWORD_BIG_ENDIAN = 5
    LINK = 6
    MULTI_SZ = 7
    QWORD = 11

    def get(self, root, key, name):
        """A value as ``(type, bytes)``, None if there is no such key or value. Text is bytes of the machine's code page."""
        value = _control("registry.get", root=_root_name(root), key=key, name=name)["value"]
        return None if value is None else (value["type"], bytes.fromhex(value["data"]))

    def set(self, root, key, name, type, data):
        """Sets a value and makes its key. What text has as its final NUL belongs to ``data``."""
        _control("registry.set", root=_root_name(root), key=key, name=name, type=operator.index(type), data=bytes(data).hex())

    def __repr__(self):
        return "<registry>"


registry = Registry()
