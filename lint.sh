#!/usr/bin/env bash
# Installs what is missing and looks over all the code: its layout with clang-format, then cppcheck and clang-tidy.
# Exit status 1 on any finding. A file is looked at again only when it or one of its headers has changed.
set -uo pipefail
cd "$(dirname "$0")" || exit 1
. tools/packages.sh

build=build-lint
folders=(app astro bench cli design dialogs elements engine exports mounts observing orbit record reports scan tests tools view)
status=0

# Names a step; what it finds goes to the terminal.
step() {
    echo "== $1"
    shift
    "$@" || status=1
}

layout() {
    find "${folders[@]}" \( -name '*.cpp' -o -name '*.h' \) -print0 |
        xargs -0 -n 16 -P "$(nproc)" clang-format --dry-run -Werror
}

# Style as well, but for what cppcheck.suppressions leaves out.
second_opinion() {
    mkdir -p "$build/cppcheck"
    cppcheck -j "$(nproc)" --quiet --error-exitcode=1 --enable=warning,performance,portability,style --inline-suppr \
        --std=c++20 --library=qt --library=googletest --suppressions-list=cppcheck.suppressions \
        --cppcheck-build-dir="$build/cppcheck" -I . -I tests -DQT_NO_KEYWORDS -DTEST_DATA='""' -DSOURCE_DIR='""' \
        "${folders[@]}"
}

checks() {
    cmake -S . -B "$build" -G Ninja -DVORLIX_BENCH=ON >/dev/null &&
        tools/lint_ninja.py "$build" "${folders[@]}" &&
        ninja --quiet -j "$(nproc)" -f "$build/lint.ninja" -k 0
}

need_packages "${build_packages[@]}" libbenchmark-dev clang-format clang-tidy cppcheck || exit 1
step "clang-format" layout
step "cppcheck" second_opinion
step "clang-tidy" checks
exit "$status"
