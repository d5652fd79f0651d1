#!/usr/bin/env bash
# Installs into a folder for the time of the test and starts the installed command there, for users with different
# folders of their own: first with a stub that tells how it was called in the place of the program, at last with the
# program itself.
#
# usage: install_test.sh CMAKE BUILD_FOLDER VERSION
set -euo pipefail
cmake=$1 build=$2 version=$3

room=$(mktemp -d)
program=
cleanUp() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    rm -rf "$room"
}
trap cleanUp EXIT

check() {
    local claim=$1
    shift
    "$@" || { echo "FAILED: $claim"; exit 1; }
}
filesOf() { find "$1" -mindepth 1 -printf '%f\n' | LC_ALL=C sort | xargs; }

prefix="$room/a prefix"
share=$prefix/share
(cd "$room" && "$cmake" --install "$build" --prefix "a prefix" >/dev/null)

# What was installed.
for size in 16 22 24 32 48 64 128 256; do
    icon=$share/icons/hicolor/${size}x$size/apps/vorlix.png
    check "an icon of $size pixels" [ "$(od -An -j16 -N8 -tu1 "$icon" | xargs)" = \
        "0 0 $((size / 256)) $((size % 256)) 0 0 $((size / 256)) $((size % 256))" ]
done
launcher=$share/applications/io.vorlix.Vorlix.desktop
check "the launcher names the command in full" grep -qxF "Exec=\"$prefix/bin/vorlix\"" "$launcher"
check "the launcher names an icon that is there" grep -qx "Icon=vorlix" "$launcher"
metainfo=$share/metainfo/io.vorlix.Vorlix.metainfo.xml
check "the metadata name this version" grep -q "<release version=\"$version\"" "$metainfo"
check "the man page names this version" zgrep -q "^\.TH .*\"Vorlix $version\"" "$share/man/man1/vorlix.1.gz"
complete() {
    bash -c '. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _vorlix; echo "${COMPREPLY[*]}"' - \
        "$share/bash-completion/completions/vorlix" "$@"
}
check "the shell completes tasks" [ "$(complete vorlix ma)" = match ]
check "the shell completes options of a task" [ "$(complete vorlix state --nu)" = --numeric ]
check "the shell completes forms of a task" [ "$(complete vorlix state --format o)" = oem ]
DESTDIR=$room/staged "$cmake" --install "$build" --prefix /usr >/dev/null
check "a launcher in /usr leaves the search to the desktop" \
    grep -qx "Exec=vorlix" "$room/staged/usr/share/applications/io.vorlix.Vorlix.desktop"

# Copies for a user.
installed=$prefix/lib/vorlix
mv "$installed/vorlix" "$room/program"
makeStub() {
    # shellcheck disable=SC2016  # expanded by the stub
    printf '#!/bin/sh\n# %s\n[ $# -eq 0 ] || printf "%%s|" "$0" "$@"\n' "$1" >"$room/stub"
    cp "$room/stub" "$installed/vorlix"
    chmod 755 "$installed/vorlix"
}
makeStub old
unset XDG_DATA_HOME
export HOME="$room/a home"
own=$HOME/.local/share/vorlix

said=$("$prefix/bin/vorlix" -style "two words")
check "the copy runs, with the words of the call" [ "$said" = "$own/vorlix|-style|two words|" ]
check "the samples come along" diff -r "$installed" "$own"

echo "the user's" | tee "$own/visual.txt" >"$own/vorlix.cfg"
rm "$own/iridium.txt"
makeStub new
"$prefix/bin/vorlix"
check "a newer program replaces the copy" cmp "$installed/vorlix" "$own/vorlix"
check "the user's elements stay" [ "$(cat "$own/visual.txt")" = "the user's" ]
check "the user's settings stay" [ "$(cat "$own/vorlix.cfg")" = "the user's" ]
check "a missing sample comes back" cmp "$installed/iridium.txt" "$own/iridium.txt"
check "nothing else is left behind" [ "$(filesOf "$own")" = "iridium.txt visual.txt vorlix vorlix.cfg" ]

gone=$(sh -c 'echo $$')
touch "$own/.half.vorlix.$gone" "$own/.half.visual.txt.$$"
"$prefix/bin/vorlix"
check "what a killed start has left goes" [ ! -e "$own/.half.vorlix.$gone" ]
check "what another start is about to place stays" [ -e "$own/.half.visual.txt.$$" ]
rm "$own/.half.visual.txt.$$"

ln -sf "$room/not mounted" "$own/visual.txt"
"$prefix/bin/vorlix"
check "a link of the user stays a link" [ "$(readlink "$own/visual.txt")" = "$room/not mounted" ]
check "nothing is written through a link" [ ! -e "$room/not mounted" ]

ln -s "$prefix/bin/vorlix" "$room/link"
said=$(XDG_DATA_HOME=$room/data "$room/link" x)
check "a link to the command and a data directory of choice" [ "$said" = "$room/data/vorlix/vorlix|x|" ]
said=$(cd "$room" && XDG_DATA_HOME=data "$prefix/bin/vorlix" x)
check "a relative data directory is ignored" [ "$said" = "$own/vorlix|x|" ]

touch "$room/file"
XDG_DATA_HOME=$room/file "$prefix/bin/vorlix" 2>"$room/complaint" && check "no start without a folder" false
check "a start without a folder says so" grep -qxF "vorlix: $room/file/vorlix cannot be written" "$room/complaint"
full=$room/full/vorlix
(ulimit -c 0 -f 4 && XDG_DATA_HOME=$room/full "$prefix/bin/vorlix") 2>"$room/complaint" &&
    check "no start on a full disk" false
check "a start on a full disk says so" grep -qxF "vorlix: $full/iridium.txt cannot be written" "$room/complaint"
check "no half of a file is left behind" [ "$(filesOf "$full")" = "vorlix" ]

# The program itself: for a user who starts it first, it works in a folder made for it.
cp "$room/program" "$installed/vorlix"
export XDG_DATA_HOME=$room/newcomer
own=$XDG_DATA_HOME/vorlix
(cd / && exec "$prefix/bin/vorlix") &
program=$!
atWork() { [ "$(readlink "/proc/$program/exe")" = "$own/vorlix" ] && [ "$(readlink "/proc/$program/cwd")" = "$own" ]; }
for _ in $(seq 600); do
    atWork && break
    check "the program goes on running" kill -0 "$program"
    sleep 0.1
done
check "the program works in the user's folder" atWork
check "the new user has the samples" cmp "$installed/visual.txt" "$own/visual.txt"
said=$(cd / && env -u QT_QPA_PLATFORM "$prefix/bin/vorlix" passes --satellite 10967 --site 48.2,16.4 --format csv \
    --from 2018-01-20T12:00Z --days 0.5 | cut -d, -f4)
check "the command answers from any folder" [ "$(tr -d '\n' <<<"$said")" = "start2018-01-20T16:56:17.101Z" ]
echo "all claims hold"
