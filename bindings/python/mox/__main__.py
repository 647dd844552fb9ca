"""The library on the command line.

  python3 -m mox browse [NAME]      what the library has: all classes, or one class, record or enum with its members
  python3 -m mox call EXPRESSION    evaluates a Python expression; it may name classes, enum values and what the package has
  python3 -m mox doctor             what stands behind each service of this machine
"""
import argparse
import builtins
import sys
import textwrap

import mox

from . import _describe, _typelib


class _Names(dict):
    """The names of an expression, beside the built-in ones: those of the package, enum values, enums; a class is a new object of
    it."""

    def __missing__(self, name):
        entry = _typelib.find_type(name)
        if entry is not None and entry.is_class:
            value = mox.create(name)
        elif entry is not None and entry.is_enum:
            value = getattr(mox.enums, entry.name)
        elif hasattr(mox, name):
            value = getattr(mox, name)
        else:
            raise KeyError(name)
        self[name] = value
        return value


def call(expression):
    names = _Names({name: getattr(mox, name) for name in mox.__all__}, __builtins__=builtins)
    value = eval(expression, names)
    if value is not None:
        print(value)


def browse(name):
    if name is None:
        _print_all()
        return
    entry = _typelib.find_type(name)
    if entry is None:
        raise mox.Error(438, f"There is no type {name}")
    if entry.is_class:
        _print_class(entry)
    elif entry.is_enum:
        _print_items(
            f"Enum {entry.name}", entry.help, [(f"{value.name} = {value.number}", value.help) for value in entry.content]
        )
    elif entry.is_record:
        _print_items(f"Record {entry.name}", entry.help, [(_field(field), field.help) for field in entry.content])
    else:
        _print_items(f"Interface {entry.name}", entry.help, _members(entry))


def _field(field):
    return f"{field.name}{'()' if field.type.array else ''} As {_describe.type_name(field.type)}"


def _members(interface):
    return [(_describe.visual_basic(function), function.help) for function in interface.content]


def _print_class(entry):
    interface, events = entry.content
    _print_items(f"Class {entry.name}" + (", creatable" if entry.can_create else ""), entry.help, _members(interface))
    if events is not None:
        _print_items(
            "Events", None, [(_describe.visual_basic(event).replace("Sub ", "Event ", 1), event.help) for event in events.content]
        )
    used = {argument.type.entry for function in interface.content for argument in [*function.arguments, _Result(function)]}
    for enum in sorted((entry for entry in used if entry is not None and entry.is_enum), key=lambda entry: entry.name):
        _print_items(f"Enum {enum.name}", enum.help, [(f"{value.name} = {value.number}", value.help) for value in enum.content])


class _Result:
    def __init__(self, function):
        self.type = function.result


def _print_all():
    for library in _typelib.libraries():
        print(f"{library.name} {library.version[0]}.{library.version[1]}: {library.help}\n")
        for title, entries in (("Classes", library.classes), ("Records", library.records), ("Enums", library.enums)):
            if entries:
                print(title)
                for entry in entries:
                    print(f"  {entry.name:<26} {'*' if entry.can_create else ' '} {entry.help}")
                print()
    print("* can be created")


def _print_items(title, help, items):
    print(title)
    if help:
        print(textwrap.fill(help, 100, initial_indent="  ", subsequent_indent="  "))
    for text, item_help in items:
        print(f"\n  {text}")
        if item_help:
            print(textwrap.fill(item_help, 100, initial_indent="      ", subsequent_indent="      "))
    print()


def main(arguments=None):
    parser = argparse.ArgumentParser(
        prog="python3 -m mox", description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    commands = parser.add_subparsers(dest="command", required=True, metavar="COMMAND")
    commands.add_parser("browse", help="show the library").add_argument("name", nargs="?", help="a class, record or enum")
    commands.add_parser("call", help="evaluate an expression").add_argument("expression")
    commands.add_parser("doctor", help="show what stands behind each service")
    options = parser.parse_args(arguments)
    try:
        if options.command == "browse":
            browse(options.name)
        elif options.command == "call":
            call(options.expression)
        else:
            for service, text in mox.doctor().items():
                print(f"{service:<12} {text}")
    except mox.Error as error:
        print(error, file=sys.stderr)
        return 1
    except (OSError, SyntaxError, NameError) as error:
        print(f"{type(error).__name__}: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
