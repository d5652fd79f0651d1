#!/usr/bin/env bash
# Lets the validator of its kind judge a file of the desktop. 77: the validator is not installed.
set -euo pipefail

need() {
    command -v "$1" >/dev/null || { echo "skipped: $1 is not installed"; exit 77; }
}

case $1 in
    *.desktop)
        need desktop-file-validate
        complaints=$(desktop-file-validate "$1" 2>&1) || true
        ;;
    *.metainfo.xml)
        need appstreamcli
        # Vorlix has no home page to name; from version 1.0 on that is a warning.
        report=$(appstreamcli validate --no-net "$1") || true
        complaints=$(grep '^[EW]:' <<<"$report" | grep -v ': url-homepage-missing') || true
        grep -q 'Validation' <<<"$report" || complaints="no verdict: $report"
        ;;
    *.1)
        need groff
        complaints=$(groff -man -Tutf8 -ww -z "$1" 2>&1)
        ;;
esac

if [ -n "$complaints" ]; then
    echo "$complaints"
    exit 1
fi
