#!/usr/bin/env python3
"""The measuring half of bench/archive.sh.

Usage: archive_times.py PREFIX SIZE_MIB...

For each size, a stored archive of random entries is made once; every tool then adds the
same 1 MiB file of random bytes to a fresh copy of it, the copy flushed beforehand so that
no tool pays for another's writes. Tools take turns within a round; each time is the median
of its rounds. The host overhead is the median wall time of `orlo update` with a missing
source, with the CPU time it used and, for scale, the wall time of /bin/true.
"""

import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
import zipfile

MIB = 1 << 20
NEW_ENTRY = "new.bin"
PYTHON_APPEND = (
    "import sys, zipfile\n"
    "with zipfile.ZipFile(sys.argv[1], 'a', zipfile.ZIP_DEFLATED, compresslevel=6) as z:\n"
    "    z.write(sys.argv[2])\n"
)


def tools(prefix, work):
    """Each tool's command line that adds work/new.bin to an archive, as entry new.bin."""
    new = os.path.join(work, NEW_ENTRY)
    return {
        "orlo update": lambda a: [os.path.join(prefix, "bin", "orlo"), "update",
                                  "-source", new, "-destination", a],
        "zip -u": lambda a: ["zip", "-q", "-u", a, NEW_ENTRY],
        "7z u": lambda a: ["7z", "u", "-tzip", "-bd", "-bso0", "-bsp0", a, NEW_ENTRY],
        "python append": lambda a: [sys.executable, "-c", PYTHON_APPEND, a, NEW_ENTRY],
    }


def entry_layout(size_mib):
    """Many entries: 16 for the smallest archive, else entries of 256 KiB."""
    count = 16 if size_mib <= 1 else size_mib * 4
    return count, size_mib * MIB // count


def make_base(path, size_mib):
    count, entry_size = entry_layout(size_mib)
    with zipfile.ZipFile(path, "w", zipfile.ZIP_STORED) as archive:
        for i in range(count):
            archive.writestr(f"logs/part{i:05d}.bin", os.urandom(entry_size))
    return count


def timed(command, cwd):
    start = time.perf_counter()
    result = subprocess.run(command, cwd=cwd, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    elapsed = time.perf_counter() - start
    if result.returncode != 0:
        sys.exit(f"{command[0]} failed ({result.returncode}): {result.stderr.decode().strip()}")
    return elapsed


def time_updates(prefix, work, size_mib, rounds):
    base = os.path.join(work, f"base-{size_mib}.zip")
    count = make_base(base, size_mib)
    archive = os.path.join(work, "archive.zip")
    times = {name: [] for name in tools(prefix, work)}
    for _ in range(rounds):
        for name, command in tools(prefix, work).items():
            shutil.copyfile(base, archive)
            os.sync()
            times[name].append(timed(command(archive), work))
            with zipfile.ZipFile(archive) as updated:
                if NEW_ENTRY not in updated.namelist():
                    sys.exit(f"{name} did not add {NEW_ENTRY}")
    os.remove(base)
    os.remove(archive)
    return count, {name: statistics.median(values) for name, values in times.items()}


def host_overhead(prefix, work, runs=20):
    orlo = [os.path.join(prefix, "bin", "orlo"), "update", "-source",
            os.path.join(work, "missing.bin"), "-destination", os.path.join(work, "none.zip")]
    walls = []
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    for _ in range(runs):
        start = time.perf_counter()
        subprocess.run(orlo, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        walls.append(time.perf_counter() - start)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    cpu = (after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime) / runs
    floor = []
    for _ in range(runs):
        start = time.perf_counter()
        subprocess.run(["/bin/true"])
        floor.append(time.perf_counter() - start)
    return statistics.median(walls), cpu, statistics.median(floor)


def main():
    prefix, sizes = os.path.abspath(sys.argv[1]), [int(size) for size in sys.argv[2:]]
    work = tempfile.mkdtemp(prefix="orlo-archive-bench-")
    try:
        with open(os.path.join(work, NEW_ENTRY), "wb") as new:
            new.write(os.urandom(MIB))
        names = list(tools(prefix, work))
        others = names[1:]
        print(f"load average before: {os.getloadavg()[0]:.2f}")
        header = f"{'archive':>9} {'entries':>7} " + " ".join(f"{n:>13}" for n in names)
        header += " " + " ".join(f"{'/' + n.split()[0]:>8}" for n in others)
        print(header)
        for size in sizes:
            count, medians = time_updates(prefix, work, size, 3 if size >= 1024 else 5)
            row = f"{str(size) + ' MiB':>9} {count:>7} "
            row += " ".join(f"{medians[n]:>12.3f}s" for n in names)
            row += " " + " ".join(f"{medians[names[0]] / medians[n]:>8.2f}" for n in others)
            print(row, flush=True)
        wall, cpu, floor = host_overhead(prefix, work)
        print(f"host overhead, missing source: {wall * 1000:.1f} ms wall (median), "
              f"{cpu * 1000:.1f} ms CPU; /bin/true takes {floor * 1000:.1f} ms wall here")
        print(f"load average after: {os.getloadavg()[0]:.2f}")
        print("ratios are orlo update's time over each other tool's; the target is at most "
              "1.00 against zip -u, and a host overhead under 15 ms")
    finally:
        shutil.rmtree(work)


if __name__ == "__main__":
    main()
