#!/bin/sh
# The rules that a compiler does not hold: format, layers, names. The commit hook and CI run the same.
set -u
cd "$(dirname "$0")/../.."
failed=0

complain() {
    echo "$1"
    failed=1
}

# Format.
unformatted=$(git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run 2>&1 | grep -c 'warning:' || true)
[ "$unformatted" -eq 0 ] || complain "$unformatted places are not as clang-format has them: make format"

# Layers: the server sees the automation layer and the platform's declarations only, the host never the server.
server='src/core src/values src/printing src/drawing src/windows src/filesystem src/system src/internet'
crossing=$(git grep -nE '#include *[<"](host/|sys/|unistd|dirent|fcntl|pthread|dlfcn|curl/|cairo|sqlite3|ft2build|fontconfig|cups/|X11/|glib|gio/|gtk|unicode/|nlohmann)' -- $server src/platform src/automation/types src/automation/typelib | grep -vE '^src/automation/types/(guid|unicode)\.cpp:')
[ -z "$crossing" ] || complain "includes that cross the layers:
$crossing"
upward=$(git grep -nE '#include *"(core|values|printing|drawing|windows|filesystem|system|internet)/' -- src/host src/automation src/platform)
[ -z "$upward" ] || complain "the host includes the server:
$upward"

# Classes of the server speak the natural types.
raw=$(git grep -nwE 'HRESULT|VARIANT|BSTR|SAFEARRAY' -- $server | grep -vE 'src/core/exports\.(cpp|map)|^[^:]*:[0-9]*: *//' )
[ -z "$raw" ] || complain "raw interface types in service classes:
$raw"

# No owning raw pointers.
naked=$(git grep -nE '(^|[^_[:alnum:]])(new [A-Za-z_:]|delete( |\[))' -- 'src/*.cpp' 'src/*.h' 'include/*.h' 'tools/*.cpp' 'tools/*.h' | grep -vE ':[0-9]+: *//|= delete|///|// |"[^"]*(new|delete) ')
[ -z "$naked" ] || complain "new or delete outside a placement:
$naked"

# Files over 500 lines.
long=$(git ls-files src tools include bindings tests bench fuzz | grep -E '\.(cpp|h|py)$' | xargs wc -l | awk '$1 > 500 && $2 != "total" {print "    " $2 ": " $1}')
[ -z "$long" ] || complain "files over 500 lines:
$long"

exit $failed
