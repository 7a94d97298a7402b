"""Writes what scripts/bench has measured between the two marker lines of docs/performance.md.

    report.py MEASURED DOCUMENT     (without DOCUMENT: to the terminal)

MEASURED is a folder: machine.txt, *.json of the benchmarks, start.txt, perhaps *.callgrind of starts.
"""

import json
import re
import statistics
import sys
from collections import Counter
from pathlib import Path

BEGIN, END = "<!-- measured: begin -->", "<!-- measured: end -->"
FULL = "32767"

# What must be reached: (work, ours, yardstick, its name, kind, figure). The kinds: "faster" and
# "within" are times the yardstick, "waiting" is "within" with the time spent waiting for the disk,
# "under" is a figure of our own in the unit of the measurement, "count" a whole number. Without a
# kind, the line is only for comparison.
SQLITE = "SQLite, "
LINES = [
    ("List all orders, newest first: all records, the texts of one screenful",
     "list_orders", "list_orders/sqlite", SQLITE + "all rows as strings", "faster", 20),
    ("", "list_orders", "read_orders/plain", "plain read of the file", "within", 9),
    ("… the texts of all cells of all rows",
     "list_orders_all", "list_orders/sqlite", SQLITE + "all rows as strings", None, None),
    ("… one screenful beside one screenful",
     "list_orders", "list_orders_screenful/sqlite",
     SQLITE + "all numbers, 40 rows as strings; scrolling has to ask again", None, None),
    ("Next order number",
     "next_number", "next_number/sqlite", SQLITE + "`max(cast(number as real))`", "faster", 3),
    ("", "next_number", "read_orders/plain", "plain read of the file", "within", 2.5),
    ("Save an order of 200 lines, flushed, the list shown anew",
     "save_order", "save_order/sqlite",
     SQLITE + "one row and the document, flushed; no list", "within", 5),
    ("… with the waiting for the disk",
     "save_order", "save_order/sqlite", "the same", "waiting", 5),
    ("… reads of the whole index", "save_order:index_reads", None, "", "count", 1),
    ("… with 5,000 addresses and histories of 10,000 lines",
     "save_order_full", "save_order/sqlite", "the same", None, None),
    ("List all stock items: all records, the texts of one screenful",
     "list_items", "list_items/sqlite", SQLITE + "the same columns as strings", "faster", 10),
    ("… the texts of all cells of all rows",
     "list_items_all", "list_items/sqlite", SQLITE + "the same columns as strings", None, None),
    ("List one vendor's items (no index is kept: the file is shared, and belongs to older versions "
     "too)", "list_vendor", "read_items/plain", "plain read of the file", "within", 1.5),
    ("", "list_vendor", "list_vendor/sqlite", SQLITE + "with an index on the vendor", None, None),
    ("Sort the orders by vendor",
     "sort_orders", "sort_orders/stable_sort",
     "`std::stable_sort` of row numbers by keys made beforehand", "within", 1.5),
    ("Import 32,767 known items, the list shown anew",
     "import_known", "import_known/sqlite", SQLITE + "upsert in one transaction; no list",
     "faster", 2),
    ("Import 32,767 new items, the list shown anew",
     "import_new", "import_new/sqlite", SQLITE + "upsert in one transaction; no list",
     "faster", 2),
    ("Open an order of 200 lines, totalled",
     "open_order", "open_order/libxml2", "libxml2, the tree of the same document", "faster", 25),
    ("… with full lists, the address looked up",
     "open_order_full", "open_order/libxml2", "the same", None, None),
    ("Back up 5,000 orders, with the waiting for the disk",
     "back_up", "back_up/cp", "`cp -a` and `sync -f`", "waiting", 1.5),
    ("List all orders on the screen",
     "screen_list", "screen_list/qtablewidget",
     "`QTableWidget`, emptied and filled with ready texts", "faster", 20),
    ("", "screen_list", None, "", "under", 20),
    ("Sort them by vendor with a click on the heading",
     "screen_sort", "screen_sort/qtablewidget", "`QTableWidget`, `sortItems`", "faster", 20),
    ("", "screen_sort", None, "", "under", 20),
    ("Find in them: going to the box", "find_prepare", None, "", "under", 30),
    ("… the first letter typed", "screen_find", None, "", "under", 16),
    ("… a further letter", "screen_find_next", None, "", "under", 16),
    ("Start with full files, to the first window painted",
     "start:full:painted", "start:featherpad:painted", "FeatherPad, empty", "within", 0.6),
    ("… resident memory, once that window has been at rest for 200 ms",
     "start:full:resident", "start:featherpad:resident", "FeatherPad, empty", None, None),
    ("", "start:full:resident", None, "", "under", 60),
]

GROWTH = [
    ("List all orders", "list_orders"), ("Next order number", "next_number"),
    ("Save an order", "save_order"), ("List all stock items", "list_items"),
    ("List one vendor's items", "list_vendor"), ("Sort the orders by vendor", "sort_orders"),
    ("Import known items", "import_known"), ("Import new items", "import_new"),
]

STARTS = [
    ("full", "Bramblet, full files"), ("empty", "Bramblet, empty files"),
    ("featherpad", "FeatherPad, empty"),
]

# What main calls; the rest of it is shown together.
PHASES = [
    ("QApplication::QApplication", "the application: platform, fonts, style"),
    ("applyTheme", "the theme"),
    ("loadProgram", "settings, data folder"),
    ("MainWindow::MainWindow", "making the main window"),
    ("Program::start", "reading and listing the files"),
    ("QApplication::exec", "painting it, the window's icon, and everything later"),
]


class Measured:
    def __init__(self, folder):
        self.folder = folder
        self.medians = {}  # (name, size) -> {cpu, real, counters…}
        for path in sorted(folder.glob("*.json")):
            for run in json.loads(path.read_text())["benchmarks"]:
                if run.get("error_occurred"):
                    sys.exit(f"{run['name']}: {run['error_message']}")
                if run.get("aggregate_name") == "median":
                    work, who, size = run["run_name"].split("/")[:3]
                    self.medians[f"{work}/{who}", size] = run
        self.starts = {}  # name -> list of (painted, rests, cpu, resident, most)
        for line in (folder / "start.txt").read_text().splitlines():
            name, *figures = line.split()
            painted, rests, cpu, resident, most = map(float, figures)
            self.starts.setdefault(name, []).append(
                {"painted": painted, "rests": rests, "cpu": cpu,
                 "resident": resident / 1024, "most": most / 1024})

    def median(self, name, size=None, time="cpu_time"):
        """Milliseconds or MB; None when it was not measured."""
        if name.startswith("start:"):
            _, start, figure = name.split(":")
            runs = self.starts.get(start)
            return runs and statistics.median(run[figure] for run in runs)
        name, _, counter = name.partition(":")
        if "/" not in name:
            name += "/bramblet"
        sizes = [size] if size else [FULL, "5000", "1"]
        for size in sizes:
            if (name, size) in self.medians:
                return self.medians[name, size].get(counter or time)
        return None


def number(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def unit_of(name):
    if name.endswith(("resident", "most")):
        return " MB"
    return "" if name.endswith("index_reads") else " ms"


def table(heads, rows):
    return ["| " + " | ".join(heads) + " |", "|" + "---|" * len(heads),
            *("| " + " | ".join(row) + " |" for row in rows)]


def line(measured, work, ours, beside, beside_name, kind, figure):
    time = "real_time" if kind == "waiting" else "cpu_time"
    value = measured.median(ours, time=time)
    other = measured.median(beside, time=time) if beside else None
    yardstick = f"{beside_name}: {number(other)}{unit_of(beside)}" if other else beside_name
    ratio, must, reached = "", "", None
    if value and other:
        ratio = f"{number(value / other)} times it"
        if kind == "faster" or (not kind and value < other and unit_of(ours) == " ms"):
            faster = other / value
            ratio = (f"{number(faster)} times faster" if faster >= 1
                     else f"{number(1 / faster)} times slower")
    if kind == "faster":
        must = f"{figure} times faster"
        reached = value and other and other / value >= figure
    elif kind in ("within", "waiting"):
        must = f"at most {figure} times it"
        reached = value and other and value / other <= figure
    elif kind == "under":
        must = f"at most {figure}{unit_of(ours)}"
        reached = value and value <= figure
    elif kind == "count":
        must = str(figure)
        reached = value and round(value) == figure
    if kind and (not value or (beside and not other)):
        verdict = "not measured"
    else:
        verdict = "" if kind is None else "yes" if reached else "**no**"
    shown = f"{number(value)}{unit_of(ours)}" if value else "–"
    return work, shown, yardstick, ratio, must, verdict


def growth(measured):
    for work, name in GROWTH:
        times = [measured.median(name, size) for size in ("1000", "8000", FULL)]
        if all(times):
            each = [number(1e6 * t / n) for t, n in zip(times, (1000, 8000, 32767))]
            yield (work, *(number(t) for t in times), " · ".join(each))


def starts(measured):
    for name, shown in STARTS:
        runs = measured.starts.get(name)
        if not runs:
            yield (shown, "not installed", "", "", "", "")
            continue
        painted = [run["painted"] for run in runs]
        middle = {key: statistics.median(run[key] for run in runs) for key in runs[0]}
        yield (shown, f"{middle['painted']:.0f} ms ({min(painted):.0f} to {max(painted):.0f})",
               f"{middle['rests']:.0f} ms", f"{middle['cpu']:.0f} ms",
               f"{middle['resident']:.0f} MB", f"{middle['most']:.0f} MB")


def all_medians(measured):
    by_name_and_size = sorted(measured.medians, key=lambda key: (key[0], int(key[1])))
    for name, size in by_name_and_size:
        run = measured.medians[name, size]
        # The CPU time of another program is not known here.
        cpu = "–" if name.endswith("/cp") else number(run["cpu_time"])
        yield name, f"{int(size):,}", cpu, number(run["real_time"])


class Profile:
    """The instructions of a start: by what main calls, and by the library they are in."""

    def __init__(self, path):
        self.total = self.main = 0
        self.calls, self.own = Counter(), Counter()
        names = {}

        def name_of(text):
            """A name is written out once, and is a number in brackets from then on."""
            key, _, name = text.partition(" ")
            return names.setdefault(key, name) if name else names[key]

        function = library = callee = None
        is_call = False
        for text in path.read_text(errors="replace").splitlines():
            kind, _, value = text.partition("=")
            if kind in ("ob", "cob"):
                name = name_of("library" + value)
                library = name if kind == "ob" else library
            elif kind == "fn":
                function = name_of(value)
            elif kind == "cfn":
                callee = name_of(value)
            elif kind == "calls":
                is_call = True  # the next line is what the callee took in all
            elif re.fullmatch(r"[-+*\d]\d* \d+", text):
                cost = int(text.split()[1])
                if function == "main":
                    self.main += cost
                    self.calls[callee] += cost if is_call else 0
                if not is_call:
                    self.own[Path(library).name] += cost
                    self.total += cost
                is_call = False

    def of_call(self, function):
        return sum(cost for name, cost in self.calls.items() if name and function + "(" in name)


def where_a_start_goes(measured):
    profiles = [Profile(path) for path in (measured.folder / "full.callgrind",
                                           measured.folder / "empty.callgrind") if path.exists()]
    if not profiles:
        return

    def row(what, of_profile):
        return (what, *(number(of_profile(profile) / 1e6) for profile in profiles))

    phases = [row("before `main`: loading libraries", lambda p: p.total - p.main)]
    phases += [row(f"`{function}`: {meaning}", lambda p, f=function: p.of_call(f))
               for function, meaning in PHASES]
    phases.append(row("the rest of `main`, such as showing the window",
                      lambda p: p.main - sum(p.of_call(function) for function, _ in PHASES)))
    phases.append(row("**all**", lambda p: p.total))
    libraries = [row(f"`{name}`", lambda p, n=name: p.own[n])
                 for name, _ in profiles[0].own.most_common(8)]
    yield ""
    yield ("Where a start's time goes, by the instructions that it executes (callgrind). What the "
           "kernel does does not count: reading files, mapping libraries, finding memory.")
    yield ""
    yield from table(("million instructions", "full files", "empty files"), phases)
    yield ""
    yield from table(("in the code of", "full files", "empty files"), libraries)


def report(measured):
    yield "Measured on " + (measured.folder / "machine.txt").read_text().strip() + "."
    yield ""
    yield ("Medians in one run; CPU time, except for starts and where the waiting for the disk is "
           "named. Lists have 32,767 records.")
    yield ""
    yield from table(("work", "Bramblet", "yardstick", "ratio", "must reach", "reached?"),
                     [line(measured, *entry) for entry in LINES])
    yield ""
    yield "## Growth"
    yield ""
    yield ("The same cost for each record, whatever their number, is linear growth; a save also has "
           "a document to write.")
    yield ""
    yield from table(("CPU time in ms", "1,000 records", "8,000", "32,767", "ns for each record"),
                     growth(measured))
    yield ""
    yield "## Start and memory"
    yield ""
    yield from table(("start", "first window painted", "at rest", "CPU time", "resident memory",
                      "at most so far"), starts(measured))
    yield from where_a_start_goes(measured)
    yield ""
    yield "## All medians"
    yield ""
    yield from table(("benchmark", "size", "CPU ms", "real ms"), all_medians(measured))


def main():
    text = "\n".join(report(Measured(Path(sys.argv[1])))) + "\n"
    if len(sys.argv) < 3:
        print(text)
        return
    document = Path(sys.argv[2])
    before, rest = document.read_text().split(BEGIN, 1)
    after = rest.split(END, 1)[1]
    document.write_text(f"{before}{BEGIN}\n\n{text}\n{END}{after}")


main()
