#!/usr/bin/env python3
"""The measuring half of bench/archive.sh.

Usage: archive_times.py PREFIX [--updates N] [--large MIB] [--xfs DIR [--xfs-mib MIB]]
                               [--xfs-skipped REASON] [SIZE_MIB...]

Times `orlo update` next to Info-ZIP's `zip -u` and next to `zip -u` followed by `sync` of
the archive (coreutils `sync FILE`, which flushes that one file; the pair is timed
together), on the same files in one run:

- a 4 KiB file into a fresh copy of the sample incident report, median of 21;
- N updates in a row of one growing archive, each adding its own 4 KiB file: total time;
- a 1 MiB file into stored archives of each SIZE_MIB (many entries), median of 5;
- a MIB-MiB file into a MIB-MiB archive, median of 5;
- on an XFS file system with reflink mounted at DIR, a 1 MiB file into an archive of
  --xfs-mib MiB, median of 5.

For a median, every tool adds the same file to a fresh copy of the same archive, the copy
flushed beforehand so that no tool pays for another's writes; tools take turns within a
round, each round starting with the next. For each case the provider's peak memory is
taken from one more run of it alone, as the plug-in starts it, under GNU time (a Python
parent would lend the child its own resident pages before the exec). Last come the
targets and the host's own overhead on the path that fails fast on a missing source.
"""

import argparse
import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
import zipfile

KIB = 1 << 10
MIB = 1 << 20
ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SAMPLE = os.path.join(ROOT, "samples", "incident-report.zip")
SMALL_RUNS = 21
RUNS = 5
MEMORY_LIMIT_MIB = 64
TOOLS = ("orlo update", "zip -u", "zip -u; sync")


class Bench:
    """Command lines of the tools, and the runs that time and measure them."""

    def __init__(self, prefix):
        self.orlo = os.path.join(prefix, "bin", "orlo")
        self.provider = os.path.join(prefix, "libexec", "orlo", "powershell")
        self.gnu_time = gnu_time()

    def steps(self, tool, archive, source):
        """The commands (with their working folders) that add SOURCE to ARCHIVE."""
        folder, name = os.path.split(source)
        if tool == "orlo update":
            return [([self.orlo, "update", "-source", source, "-destination", archive], None)]
        add = (["zip", "-q", "-u", archive, name], folder)
        if tool == "zip -u":
            return [add]
        return [add, (["sync", archive], None)]

    def timed(self, tool, archive, source):
        start = time.perf_counter()
        for command, cwd in self.steps(tool, archive, source):
            run(command, cwd)
        return time.perf_counter() - start

    def provider_peak(self, archive, source):
        """Peak resident memory in bytes of the provider adding SOURCE to ARCHIVE."""
        if self.gnu_time is None:
            return None
        with tempfile.NamedTemporaryFile("r") as report:
            run([self.gnu_time, "-f", "%M", "-o", report.name, self.provider, "Compress-Archive",
                 "-Path", source, "-Update", "-DestinationPath", archive], None)
            return int(report.read().split()[-1]) * KIB

    def host_overhead(self, work, runs=20):
        """Median wall time of a run that fails on a missing source, its CPU time and peak
        memory, and the wall time of /bin/true for scale."""
        command = [self.orlo, "update", "-source", os.path.join(work, "missing.bin"),
                   "-destination", os.path.join(work, "none.zip")]
        walls, cpus = [], []
        for _ in range(runs):
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            start = time.perf_counter()
            subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            walls.append(time.perf_counter() - start)
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            cpus.append(after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime)
        floor = []
        for _ in range(runs):
            start = time.perf_counter()
            subprocess.run(["/bin/true"])
            floor.append(time.perf_counter() - start)
        peak = None
        if self.gnu_time is not None:
            with tempfile.NamedTemporaryFile("r") as report:
                subprocess.run([self.gnu_time, "-q", "-f", "%M", "-o", report.name] + command,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                peak = int(report.read().split()[-1]) * KIB
        return statistics.median(walls), statistics.median(cpus), peak, statistics.median(floor)


def gnu_time():
    """The path of GNU time, or None when it is not installed."""
    path = shutil.which("time")
    if path is None:
        return None
    version = subprocess.run([path, "--version"], capture_output=True, text=True)
    return path if "GNU" in version.stdout + version.stderr else None


def run(command, cwd):
    result = subprocess.run(command, cwd=cwd, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    if result.returncode != 0:
        sys.exit(f"{' '.join(command)} failed ({result.returncode}): "
                 f"{result.stderr.decode(errors='replace').strip()}")


def random_file(path, size):
    with open(path, "wb") as file:
        file.write(os.urandom(size))
    return path


def make_base(path, size_mib):
    """A stored archive of SIZE_MIB MiB: 16 entries for the smallest, else of 256 KiB each."""
    count = 16 if size_mib <= 1 else size_mib * 4
    with zipfile.ZipFile(path, "w", zipfile.ZIP_STORED) as archive:
        for i in range(count):
            archive.writestr(f"logs/part{i:05d}.bin", os.urandom(size_mib * MIB // count))
    return count


def entry_names(archive):
    with zipfile.ZipFile(archive) as opened:
        return set(opened.namelist())


def fresh_copy(base, archive):
    shutil.copyfile(base, archive)
    os.sync()
    # Read it once, so that every tool finds it in the page cache: proactive reclaim
    # (DAMON on this kind of machine) otherwise drops the pages of a fresh copy at
    # random, and whichever tool runs then reads the archive from the disk.
    with open(archive, "rb") as opened:
        while opened.read(1 << 20):
            pass


def median_case(bench, base, source, folder, rounds):
    """Median time of each tool adding SOURCE to a fresh copy of BASE in FOLDER, and the
    provider's peak memory doing the same once more."""
    archive = os.path.join(folder, "archive.zip")
    entry = os.path.basename(source)
    times = {tool: [] for tool in TOOLS}
    for round_ in range(rounds):
        # Each round starts with the next tool, so that none always follows the same one.
        for tool in TOOLS[round_ % len(TOOLS):] + TOOLS[:round_ % len(TOOLS)]:
            fresh_copy(base, archive)
            times[tool].append(bench.timed(tool, archive, source))
            if entry not in entry_names(archive):
                sys.exit(f"{tool} did not add {entry}")
    fresh_copy(base, archive)
    peak = bench.provider_peak(archive, source)
    os.remove(archive)
    return {tool: statistics.median(values) for tool, values in times.items()}, peak


def updates_in_a_row(bench, work, count):
    """Total time of each tool making COUNT updates in a row of a copy of the sample report,
    each adding its own 4 KiB file, and the provider's peak memory on one more update of the
    grown archive."""
    sources = os.path.join(work, "notes")
    os.mkdir(sources)
    names = [random_file(os.path.join(sources, f"note{i:05d}.bin"), 4 * KIB)
             for i in range(count + 1)]
    archive = os.path.join(work, "archive.zip")
    expected = entry_names(SAMPLE) | {os.path.basename(name) for name in names[:count]}
    totals = {}
    for tool in TOOLS:
        fresh_copy(SAMPLE, archive)
        start = time.perf_counter()
        for name in names[:count]:
            for command, cwd in bench.steps(tool, archive, name):
                run(command, cwd)
        totals[tool] = time.perf_counter() - start
        if entry_names(archive) != expected:
            sys.exit(f"{tool}: the archive does not hold the {count} added files")
    peak = bench.provider_peak(archive, names[count])
    os.remove(archive)
    shutil.rmtree(sources)
    return totals, peak


def size_text(size_mib):
    return f"{size_mib // 1024} GiB" if size_mib % 1024 == 0 else f"{size_mib} MiB"


def seconds_text(seconds):
    return f"{seconds * 1000:.1f} ms" if seconds < 1 else f"{seconds:.3f} s"


class Table:
    """The rows measured so far, printed as they come, and the targets they are held to."""

    def __init__(self):
        self.rows = []
        self.widths = (34, 11, 11, 13, 9, 16, 13)
        self.line(("case", "orlo update", "zip -u", "zip -u; sync", "orlo/zip",
                   "orlo/(zip;sync)", "provider RSS"))

    def line(self, cells):
        first, *rest = self.widths
        text = f"{cells[0]:<{first}}" + "".join(f" {c:>{w}}" for c, w in zip(cells[1:], rest))
        print(text.rstrip(), flush=True)

    def add(self, case, times, peak, zip_limit=None, xfs=False):
        self.rows.append((case, times, peak, zip_limit, xfs))
        orlo = times["orlo update"]
        self.line((case, seconds_text(orlo), seconds_text(times["zip -u"]),
                   seconds_text(times["zip -u; sync"]), f"{orlo / times['zip -u']:.2f}x",
                   f"{orlo / times['zip -u; sync']:.2f}x",
                   "-" if peak is None else f"{peak / MIB:.1f} MiB"))

    def note(self, text):
        print(f"{'':<{self.widths[0]}} {text}", flush=True)

    def targets(self, xfs_skipped):
        print("\ntargets:")
        worst = max(self.rows, key=lambda row: row[1]["orlo update"] / row[1]["zip -u; sync"])
        ratio = worst[1]["orlo update"] / worst[1]["zip -u; sync"]
        verdict(f"orlo update at most 1.0x zip -u; sync at every size "
                f"(highest {ratio:.2f}x, {worst[0]})", ratio <= 1.0)
        for case, times, _, zip_limit, xfs in self.rows:
            ratio = times["orlo update"] / times["zip -u"]
            if zip_limit is not None:
                verdict(f"orlo update at most {zip_limit:.1f}x zip -u, {case} "
                        f"({ratio:.2f}x)", ratio <= zip_limit)
            if xfs:
                verdict(f"orlo update at most 0.1x zip -u on XFS with reflink ({ratio:.2f}x)",
                        ratio <= 0.1)
        if xfs_skipped is not None:
            print(f"  not measured: orlo update at most 0.1x zip -u on XFS with reflink "
                  f"({xfs_skipped})")
        peaks = [(row[2], row[0]) for row in self.rows if row[2] is not None]
        if peaks:
            peak, case = max(peaks)
            verdict(f"provider peak memory under {MEMORY_LIMIT_MIB} MiB at every size "
                    f"(highest {peak / MIB:.1f} MiB, {case})", peak < MEMORY_LIMIT_MIB * MIB)
        else:
            print("  not measured: provider peak memory (GNU time is not installed)")


def verdict(text, met):
    print(f"  {'met   ' if met else 'MISSED'} {text}", flush=True)


def arguments():
    parser = argparse.ArgumentParser(description="The measuring half of bench/archive.sh.")
    parser.add_argument("prefix", help="the installed release tree")
    parser.add_argument("sizes", nargs="*", type=int, default=[1, 64, 1024],
                        help="archive sizes in MiB that a 1 MiB file is added to")
    parser.add_argument("--updates", type=int, default=1000,
                        help="updates in a row of one archive (0 skips the case)")
    parser.add_argument("--large", type=int, default=64,
                        help="size in MiB of the large file and of its archive (0 skips)")
    parser.add_argument("--xfs", help="a folder on XFS with reflink, for the cloning case")
    parser.add_argument("--xfs-mib", type=int, default=1024,
                        help="size in MiB of the archive on XFS")
    parser.add_argument("--xfs-skipped", help="why the XFS case is not run")
    return parser.parse_intermixed_args()


def main():
    options = arguments()
    bench = Bench(os.path.abspath(options.prefix))
    work = tempfile.mkdtemp(prefix="orlo-archive-bench-")
    try:
        print(f"load average before: {os.getloadavg()[0]:.2f} ({os.cpu_count()} cores); "
              f"medians unless said otherwise; RSS is the provider's peak resident memory")
        table = Table()
        small = random_file(os.path.join(work, "notes-4k.bin"), 4 * KIB)
        times, peak = median_case(bench, SAMPLE, small, work, SMALL_RUNS)
        table.add("4 KiB into the sample report", times, peak, zip_limit=1.5)
        if options.updates > 0:
            times, peak = updates_in_a_row(bench, work, options.updates)
            table.add(f"{options.updates:,} updates in a row (total)", times, peak,
                      zip_limit=1.5)
        new = random_file(os.path.join(work, "new.bin"), MIB)
        for size in options.sizes:
            base = os.path.join(work, f"base-{size}.zip")
            count = make_base(base, size)
            times, peak = median_case(bench, base, new, work, RUNS)
            os.remove(base)
            table.add(f"1 MiB into {size_text(size)} ({count:,} entries)", times, peak)
        if options.large > 0:
            base = os.path.join(work, f"base-{options.large}.zip")
            make_base(base, options.large)
            large = random_file(os.path.join(work, "large.bin"), options.large * MIB)
            times, peak = median_case(bench, base, large, work, RUNS)
            os.remove(base)
            os.remove(large)
            table.add(f"{size_text(options.large)} into {size_text(options.large)}",
                      times, peak)
        if options.xfs is not None:
            base = os.path.join(options.xfs, f"base-{options.xfs_mib}.zip")
            make_base(base, options.xfs_mib)
            source = shutil.copyfile(new, os.path.join(options.xfs, "new.bin"))
            times, peak = median_case(bench, base, source, options.xfs, RUNS)
            os.remove(base)
            os.remove(source)
            table.add(f"1 MiB into {size_text(options.xfs_mib)}, XFS with reflink", times,
                      peak, xfs=True)
        elif options.xfs_skipped is not None:
            table.note(f"XFS with reflink: skipped, {options.xfs_skipped}")
        table.targets(options.xfs_skipped)
        wall, cpu, peak, floor = bench.host_overhead(work)
        memory = "" if peak is None else f", {peak / MIB:.1f} MiB peak"
        print(f"\nhost overhead, missing source: {wall * 1000:.1f} ms wall (median), "
              f"{cpu * 1000:.1f} ms CPU{memory}; /bin/true takes {floor * 1000:.1f} ms wall here")
        print(f"load average after: {os.getloadavg()[0]:.2f}")
    finally:
        shutil.rmtree(work)


if __name__ == "__main__":
    main()
