#!/bin/sh
# Starts Vorlix from a folder of the user's own. The program keeps its settings beside its executable and looks for
# its element files there; a folder that all users share is no place for either.
set -eu

installed=$(dirname "$(readlink -f "$0")")/../lib/vorlix

# A relative XDG_DATA_HOME is to be ignored, says the XDG Base Directory Specification.
case ${XDG_DATA_HOME:-} in
    /*) own=$XDG_DATA_HOME/vorlix ;;
    *) own=${HOME:?}/.local/share/vorlix ;;
esac

fail() {
    echo "vorlix: $1 cannot be written" >&2
    exit 1
}

# The file appears whole or not at all, and an executable that is running may be replaced.
place() {
    half=$own/.half.$1.$$
    cp "$installed/$1" "$half" && mv -f "$half" "$own/$1" && return
    rm -f "$half"
    fail "$own/$1"
}

mkdir -p "$own" || fail "$own"
# A start that was killed has left a half behind, named after a process that is no more.
for half in "$own"/.half.*; do
    process=${half##*.}
    [ ! -f "$half" ] || kill -0 "$process" 2>/dev/null || rm -f "$half"
done
cmp -s "$installed/vorlix" "$own/vorlix" || place vorlix
for sample in "$installed"/*.txt; do
    name=$(basename "$sample")
    # What is there is the user's, a link that leads nowhere at present included.
    [ -e "$own/$name" ] || [ -L "$own/$name" ] || place "$name"
done

exec "$own/vorlix" "$@"
