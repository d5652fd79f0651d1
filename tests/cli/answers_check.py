"""Reads the answers of the command back with programs that are not ours.

usage: answers_check.py VORLIX ELEMENT_FILE SCHEMA

JSON is judged by its schema, iCalendar by a calendar library, ephemeris files by the rules of CCSDS 502.0. 77: a
library is missing.
"""

import csv
import io
import json
import os
import pathlib
import re
import signal
import subprocess
import sys
from datetime import datetime, timedelta, timezone

try:
    import icalendar
    import jsonschema
except ImportError as missing:
    print(f"skipped: {missing}")
    sys.exit(77)

vorlix, elements, schema_name = sys.argv[1:]
COMMON = ["--no-config", "--elements", elements, "--clock", "2018-01-20T12:00:00Z"]
SITE = ["--site", "48.2,16.4,200"]
SEASAT = ["--satellite", "10967"]

LISTS = {
    "passes": SITE + ["--days", "1", "--limit", "40"],
    "events": SITE + ["--days", "11", "--satellite", "SL-16", "--satellite", "ERBS"],
    "contacts": ["10967", "23088", "--days", "0.2"],
    "look": SITE + SEASAT + ["--days", "0.01", "--frequency", "145e6", "--length", "5"],
    "track": SEASAT + ["--days", "0.01"],
    "state": SEASAT + ["--days", "0.01", "--frame", "earth-fixed"],
    "match": SITE + ["--at", "2018-01-20T17:00:00Z", "--azel", "253,23", "--radius", "5"],
    "next": SITE + ["--from", "2018-01-20T16:00Z"],
    "field": SITE + ["--from", "2018-01-20T17:00Z", "--azel", "180,60", "--radius", "20", "--exposure", "1800"],
    "now": SITE + ["--from", "2018-01-20T17:00Z"],
}


def answer(task, words, form):
    done = subprocess.run([vorlix, task, *words, *COMMON, "--format", form], capture_output=True, check=False)
    assert done.returncode == 0, (task, form, done)
    return done.stdout


def check_lists(lists):
    schema = json.load(open(schema_name, encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema)
    whole = jsonschema.Draft202012Validator(schema)
    for task, words in lists.items():
        document = json.loads(answer(task, words, "json"))
        whole.validate(document)
        (key,) = set(document) - {"request", "models", "elements"}
        rows = document[key]
        assert rows, task
        numbers = {r["catalogue_number"] for r in rows} | {r.get("other_catalogue_number") for r in rows} - {None}
        assert sorted(e["catalogue_number"] for e in document["elements"]) == sorted(numbers), task
        lines = [json.loads(line) for line in answer(task, words, "ndjson").splitlines()]
        assert lines == rows, task
        text = answer(task, words, "csv").decode()
        assert text.count("\r\n") == text.count("\n") == len(rows) + 1, task
        for row, cells in zip(rows, csv.DictReader(io.StringIO(text, newline="")), strict=True):
            for name, value in row.items():
                cell = cells[name]
                same = cell == value or (value is None and cell == "") or float(cell) == value
                assert same, (task, name, value, cell)


def check_reports():
    report = str(pathlib.Path(__file__).parent.parent / "data/observing/seen.iod")
    whole = jsonschema.Draft202012Validator(json.load(open(schema_name, encoding="utf-8")))
    done = subprocess.run([vorlix, "report", report, "--format", "json"], capture_output=True, check=True)
    document = json.loads(done.stdout)
    whole.validate(document)
    assert len(document["observations"]) == 6


def check_fit():
    folder = pathlib.Path(__file__).parent.parent / "data"
    seen = [line for line in (folder / "observing/iss.iod").read_text().splitlines() if "8001 G" in line]
    words = ["fit", "-", "--satellite", "25544", "--site", "48.2,16.37,200", "--hold", "drag", "--format", "json"]
    words += ["--no-config", "--elements", str(folder / "elements/visual_2018.txt")]
    done = subprocess.run([vorlix, *words], input="\n".join(seen).encode(), capture_output=True, check=True)
    document = json.loads(done.stdout)
    jsonschema.Draft202012Validator(json.load(open(schema_name, encoding="utf-8"))).validate(document)
    assert [e["catalogue_number"] for e in document["elements"]] == [25544]
    assert len(document["residuals"]) == len(seen)
    assert all(abs(r["across_arcsec"]) < 4 * r["across_error_arcsec"] for r in document["residuals"])


def check_memory():
    """Ten times the passes take no more memory."""
    words = [*SITE, *COMMON, "--all", "--order", "entry", "--format", "ndjson", "--days"]
    peaks = []
    freed_at_once = {**os.environ, "ASAN_OPTIONS": "quarantine_size_mb=0:thread_local_quarantine_size_kb=0"}
    for days in ("1", "10"):
        with subprocess.Popen([vorlix, "passes", *words, days], stdout=subprocess.PIPE, env=freed_at_once) as running:
            rows = sum(1 for _ in running.stdout)
            peaks.append((rows, os.wait4(running.pid, 0)[2].ru_maxrss))
    assert peaks[1][0] > 8 * peaks[0][0] > 0, peaks
    assert peaks[1][1] < 1.1 * peaks[0][1], peaks


def check_calendar(task, words, start):
    calendar = icalendar.Calendar.from_ical(answer(task, words, "ics"))
    rows = [json.loads(line) for line in answer(task, words, "ndjson").splitlines()]
    events = calendar.walk("VEVENT")
    assert len(events) == len(rows) > 0
    assert len({str(e["UID"]) for e in events}) == len(events)
    for event, row in zip(events, rows, strict=True):
        begins = datetime.fromisoformat(row[start].replace("Z", "+00:00"))
        assert abs(event["DTSTART"].dt - begins) <= timedelta(seconds=0.5)
        assert event["DTEND"].dt > event["DTSTART"].dt
        assert row["name"] in event["SUMMARY"]
        if "maximum" in row:
            highest = datetime.fromisoformat(row["maximum"].replace("Z", "+00:00")) + timedelta(seconds=0.5)
            assert highest.strftime("%H:%M:%SZ") in event["SUMMARY"]
        (alarm,) = event.walk("VALARM")
        assert alarm["TRIGGER"].dt == timedelta(minutes=-10)
    assert all(len(line) <= 75 for line in answer(task, words, "ics").split(b"\r\n"))


OEM_TIME = r"\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2}\.\d+"
OEM_FRAMES = {"true-of-date": "TOD_EARTH", "mean-of-date": "MOD_EARTH", "j2000": "EME2000", "earth-fixed": "GTOD"}
OEM_KEYWORDS = ["OBJECT_NAME", "OBJECT_ID", "CENTER_NAME", "REF_FRAME", "TIME_SYSTEM", "START_TIME", "STOP_TIME"]


def check_ephemeris(frame):
    lines = answer("state", SEASAT + ["--days", "0.02", "--frame", frame], "oem").decode("ascii").splitlines()
    assert all(len(line) <= 254 for line in lines)
    header = [line.split(" = ") for line in lines[:3]]
    assert [h[0] for h in header] == ["CCSDS_OEM_VERS", "CREATION_DATE", "ORIGINATOR"], header
    assert header[0][1] == "3.0" and re.fullmatch(OEM_TIME, header[1][1])
    begin, end = lines.index("META_START"), lines.index("META_STOP")
    meta = dict(line.split(" = ") for line in lines[begin + 1 : end])
    assert list(meta) == OEM_KEYWORDS and meta["REF_FRAME"] == OEM_FRAMES[frame]
    assert re.fullmatch(r"\d{4}-\d{3}[A-Z]{1,3}", meta["OBJECT_ID"])
    states = [line.split(" ") for line in lines[end + 1 :] if line]
    assert len(states) == 29 and all(len(s) == 7 and re.fullmatch(OEM_TIME, s[0]) for s in states)
    times = [datetime.fromisoformat(s[0]).replace(tzinfo=timezone.utc) for s in states]
    assert times == sorted(set(times))
    assert states[0][0] == meta["START_TIME"] and states[-1][0] == meta["STOP_TIME"]
    # positions and velocities belong together: a chord of two minutes against the velocity in its middle
    for before, now, after in zip(states, states[1:], states[2:]):
        for axis in (1, 2, 3):
            mean = (float(after[axis]) - float(before[axis])) / 120.0
            assert abs(mean - float(now[axis + 3])) < 0.006, (frame, now)


def check_end(act, signal_number):
    """A long list is ended after its first line: nothing is said, and no line is half."""
    words = [vorlix, "passes", *SITE, *COMMON, "--days", "200", "--order", "entry", "--format", "ndjson"]
    with subprocess.Popen(words, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as running:
        first = running.stdout.readline()
        act(running)
        rest = b"" if running.stdout.closed else running.stdout.read()
        assert running.stderr.read() == b""
        assert running.wait() == -signal_number
        for line in (first + rest).splitlines():
            json.loads(line)


check_end(lambda running: running.send_signal(signal.SIGINT), signal.SIGINT)
check_end(lambda running: running.stdout.close(), signal.SIGPIPE)
check_lists(LISTS)
TWICE = LISTS["match"] + ["--at", "2018-01-20T17:01:00Z", "--azel", "271,22"]
check_lists({"match": TWICE})
asked = json.loads(answer("match", TWICE, "json"))["request"]
assert (asked["from"], asked["to"]) == ("2018-01-20T16:59:00.000Z", "2018-01-20T17:02:00.000Z"), asked
check_lists({"passes": SITE + ["--from", "tonight", "--brighter", "3", "--length", "5", "--dark-sky"]})
check_reports()
check_fit()
check_memory()
check_calendar("passes", LISTS["passes"], "start")
check_calendar("events", LISTS["events"], "time")
check_calendar("contacts", LISTS["contacts"], "start")
for name in OEM_FRAMES:
    check_ephemeris(name)
print("all claims hold")
