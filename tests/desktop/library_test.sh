#!/usr/bin/env bash
# Builds the example of the documentation against an installation in a folder for the time of the test, by CMake and by
# pkg-config, and runs it.
#
# usage: library_test.sh CMAKE BUILD_FOLDER SOURCE_FOLDER COMPILER [FLAG...]
set -euo pipefail
cmake=$1 build=$2 source=$3 compiler=$4
flags=("${@:5}")

room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT
"$cmake" --install "$build" --prefix "$room/prefix" >/dev/null

elements=$source/resources/elements/visual.txt
expected=$("$build/vorlix" passes --no-config --elements "$elements" --satellite 10967 --site 48.2,16.37 \
    --from 2018-01-20 --days 1 --format csv | tail -n +2 | cut -d, -f7)
check() {
    local said
    said=$("$1" "$elements" 10967 48.2 16.37 2018 1 20)
    [ "$(cut -d' ' -f1 <<<"$said")" = "$expected" ] || { echo "FAILED: $2: $said instead of $expected"; exit 1; }
}
[ "$(wc -l <<<"$expected")" -ge 2 ] || { echo "FAILED: the command has passes"; exit 1; }

cp -r "$source/docs/examples" "$room/example"
"$cmake" -S "$room/example" -B "$room/made" -DCMAKE_PREFIX_PATH="$room/prefix" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="${flags[*]}" >"$room/log" 2>&1 && "$cmake" --build "$room/made" >>"$room/log" 2>&1 ||
    { cat "$room/log"; exit 1; }
check "$room/made/passes" "the example, built by CMake"

export PKG_CONFIG_PATH=$room/prefix/lib/pkgconfig
if command -v pkg-config >/dev/null && pkg-config --exists vorlix; then
    # shellcheck disable=SC2046  # several words
    "$compiler" "${flags[@]}" "$source/docs/examples/passes.cpp" -o "$room/passes" $(pkg-config --cflags --libs vorlix)
    check "$room/passes" "the example, built by pkg-config"
fi
[ "$(wc -l <"$source/docs/examples/passes.cpp")" -le 30 ] || { echo "FAILED: the example is short"; exit 1; }
echo "all claims hold"
