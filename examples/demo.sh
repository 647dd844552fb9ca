#!/bin/sh
# What a newcomer sees first: clients of the same server, and files to look at.
set -eu
cd "$(dirname "$0")/.."
mkdir -p demo

echo "== A program in plain C that knows nothing but the server's path and a class identifier"
build/bin/stranger build/lib/trl.obkr.mox.so
echo
echo "== C++, with the generated header"
build/bin/tour README.md
echo
echo "== Python, late bound"
PYTHONPATH=bindings/python python3 examples/tour.py demo
if command -v rsvg-convert >/dev/null 2>&1; then
    rsvg-convert -b white demo/rotation.svg -o demo/rotation.png && echo "  demo/rotation.png"
fi
echo
echo "== Files, folders, settings and the system, from Python"
PYTHONPATH=bindings/python python3 examples/files.py demo
echo
echo "== Pictures, filters, text, icons and fonts, drawn without a display, from Python"
PYTHONPATH=bindings/python python3 examples/pictures.py demo
echo
echo "== The same from the command line, with every call shown"
PYTHONPATH=bindings/python MOX_TRACE=dispatch python3 -m mox call "moxHub.Vars.ConvertUnit(1, suINCH, suCM)"
