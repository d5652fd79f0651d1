"""What the comparisons of two desktop programs share: a virtual display each, homes that last for one run, and what the
kernel counts for a process.

Needs Xvfb, xdotool and gpredict (packages xvfb, xdotool, gpredict). gpredict is given ten satellites of the sample file
and a module that shows nothing but the map, drawn anew every second.
"""

import argparse
import ctypes
import os
import pathlib
import shutil
import statistics
import subprocess
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
SAMPLES = HERE.parent.parent / "resources" / "elements" / "visual.txt"
WINDOW = (837, 560)  # of both programs
TICK_SECONDS = {"vorlix": 0.98, "gpredict": 1.0}


def samples(count=10):
    """The first entries of the sample file: name and both lines."""
    lines = SAMPLES.read_text().splitlines()
    return [(lines[i].strip(), lines[i + 1], lines[i + 2]) for i in range(0, 3 * count, 3)]


# ---------------------------------------------------------------- homes

def vorlix_home(home, program):
    """The program keeps its settings beside itself: it is copied into the home."""
    shutil.copy(program, home / "vorlix")
    shutil.copy(SAMPLES, home / "visual.txt")
    names = [name for name, _, _ in samples()]
    settings = ["0.0", "48.25", "16.5", "200.0", "Vienna", "10", "1", "0", "./visual.txt", "0", "90.0", "0.0", "0.0",
                "10", "0", "0", "http://localhost/none", "3.1 70.0 70.0 2.0", "0.0 0.0 0.0", str(len(names))]
    (home / "vorlix.cfg").write_text("\n".join(settings + names) + "\n")
    return [str(home / "vorlix")]


GPREDICT_CFG = """[GLOBAL]
DEFAULT_QTH=vienna.qth
OPEN_MODULES=map
MAIN_WIN_POS=true
WINDOW_POS_X=0
WINDOW_POS_Y=0
WINDOW_WIDTH={width}
WINDOW_HEIGHT={height}

[MODULES]
GRID=1;0;1;0;1
DATA_TIMEOUT=1000
MAP_REFRESH=1
RULES_HINT=false

[TLE]
AUTO_UPDATE_FREQ=0
LAST_UPDATE={now}

[TRSP]
AUTO_UPDATE_FREQ=0
LAST_UPDATE={now}
"""

GPREDICT_MODULE = """[GLOBAL]
QTHFILE=vienna.qth
SATELLITES={satellites}
TIMEOUT=1000
GRID=1;0;1;0;1

[MAP]
REFRESH=1
"""


def gpredict_home(home, _program):
    config = home / ".config" / "Gpredict"
    for folder in ("modules", "satdata", "trsp", "hwconf", "logs"):
        (config / folder).mkdir(parents=True)
    catalogue = []
    for name, first, second in samples():
        number = first[2:7].strip().lstrip("0")
        catalogue.append(number)
        (config / "satdata" / f"{number}.sat").write_text(
            f"[Satellite]\nVERSION=1.1\nNAME={name}\nNICKNAME={name}\nTLE1={first}\nTLE2={second}\nSTATUS=1\n")
    (config / "satdata" / "samples.cat").write_text("Samples\n" + "\n".join(catalogue) + "\n")
    (config / "vienna.qth").write_text("[QTH]\nLOCATION=Vienna\nLAT=48.25\nLON=16.5\nALT=200\n")
    (config / "modules" / "map.mod").write_text(GPREDICT_MODULE.format(satellites=";".join(catalogue) + ";"))
    (config / "gpredict.cfg").write_text(
        GPREDICT_CFG.format(width=WINDOW[0], height=WINDOW[1], now=int(time.time())))
    return ["gpredict"]


HOMES = {"vorlix": vorlix_home, "gpredict": gpredict_home}


class Home:
    """A home directory with one of the programs set up in it; gone at the end."""

    def __init__(self, kind, program):
        self.folder = tempfile.TemporaryDirectory(prefix=f"{kind}-")
        self.command = HOMES[kind](pathlib.Path(self.folder.name), program)
        keep = ("PATH", "LD_LIBRARY_PATH", "TZ", "XDG_DATA_DIRS")
        self.environment = {key: os.environ[key] for key in keep if key in os.environ}
        # neither program is to wait for services that a virtual display lacks
        self.environment.update(HOME=self.folder.name, LC_ALL="C.UTF-8", NO_AT_BRIDGE="1", GSETTINGS_BACKEND="memory",
                                GDK_BACKEND="x11", QT_QPA_PLATFORM="xcb")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.folder.cleanup()

    def start(self, display):
        return subprocess.Popen(self.command, env=dict(self.environment, DISPLAY=display), cwd=self.folder.name,
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Screen:
    """A virtual display of its own, so that its work can be told from that of others."""

    def __enter__(self):
        readable, writable = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writable), "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[writable], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writable)
        with os.fdopen(readable) as number:
            self.name = ":" + number.readline().strip()
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()

    def tool(self, *arguments):
        return subprocess.run(["xdotool", *map(str, arguments)], env=dict(os.environ, DISPLAY=self.name),
                              capture_output=True, text=True).stdout.split()


def stop(process):
    process.kill()
    process.wait()


# ---------------------------------------------------------------- the screen

class XImage(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.POINTER(ctypes.c_ubyte)), ("byte_order", ctypes.c_int),
                ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int)]


class Watcher:
    """Sees how many colours the part of the screen has where both programs draw their picture."""

    PART = (100, 150, 400, 150)  # x, y, width, height

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        pointer, number, drawable = ctypes.c_void_p, ctypes.c_int, ctypes.c_ulong
        for name, result, arguments in (
                ("XOpenDisplay", pointer, [ctypes.c_char_p]),
                ("XDefaultRootWindow", drawable, [pointer]),
                ("XGetImage", ctypes.POINTER(XImage),
                 [pointer, drawable, number, number, ctypes.c_uint, ctypes.c_uint, drawable, number]),
                ("XDestroyImage", number, [ctypes.POINTER(XImage)]),
                ("XCloseDisplay", number, [pointer])):
            function = getattr(self.x11, name)
            function.restype, function.argtypes = result, arguments
        self.display = self.x11.XOpenDisplay(display.encode())
        self.root = self.x11.XDefaultRootWindow(self.display)

    def colours(self):
        image = self.x11.XGetImage(self.display, self.root, *self.PART, 0xFFFFFFFF, 2)
        size = image.contents.bytes_per_line * image.contents.height
        pixels = memoryview(ctypes.string_at(image.contents.data, size)).cast("I")
        self.x11.XDestroyImage(image)
        return len(set(pixels))

    def close(self):
        self.x11.XCloseDisplay(self.display)

    def wait_for_picture(self, colours=8, seconds=60):
        """Returns the time at which so many colours are on the screen."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if self.colours() >= colours:
                return time.monotonic()
            time.sleep(0.002)
        raise RuntimeError("no picture appeared")


# ---------------------------------------------------------------- counters


def cpu_nanoseconds(pid):
    """The same from the scheduler, which counts finer: the sum over all threads."""
    return sum(int(pathlib.Path(task / "schedstat").read_text().split()[0])
               for task in pathlib.Path(f"/proc/{pid}/task").iterdir())


def memory_megabytes(pid):
    """Proportional and resident set size."""
    sizes = {}
    for line in pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()[1:]:
        key, value = line.split()[:2]
        sizes[key] = int(value) / 1024
    return sizes["Pss:"], sizes["Rss:"]


# ---------------------------------------------------------------- figures

def arguments(description, runs):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("vorlix", type=pathlib.Path, help="the executable to measure")
    parser.add_argument("--runs", type=int, default=runs, help="of each program, interleaved")
    parser.add_argument("--against", type=pathlib.Path, help="a second build of Vorlix to measure beside")
    return parser


def contestants(options):
    """Label, kind of home and executable of everything that is measured."""
    rows = [("vorlix", "vorlix", options.vorlix), ("gpredict", "gpredict", None)]
    if options.against:
        rows.append(("other build", "vorlix", options.against))
    return rows


def report(title, unit, figures):
    """The median of each program with its spread, and its ratio to gpredict."""
    reference = statistics.median(figures["gpredict"])
    print(f"{title}:")
    for label, values in figures.items():
        median = statistics.median(values)
        print(f"  {label:12} {median:9.3f} {unit}  ({min(values):.3f} to {max(values):.3f}, {len(values)} runs)"
              f"  {median / reference:5.2f} of gpredict")
