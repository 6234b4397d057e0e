#!/usr/bin/env python3
"""Archive helpers for scripts/stress-archive.sh.

  archive_check.py make ARCHIVE COUNT SIZE   a stored archive of COUNT random entries of SIZE bytes
  archive_check.py state ARCHIVE BASE NEW    "old" or "new": ARCHIVE is valid and holds BASE's
                                             entries, plus NEW (a file, by its base name) when new
  archive_check.py holds ARCHIVE FOLDER      ARCHIVE is valid, holds every file of FOLDER with its
                                             contents, and has no byte that its entries do not need
  archive_check.py contains ARCHIVE BASE FILE...
                                             ARCHIVE is valid and holds BASE's entries as they were
                                             and each FILE (by its base name) with its contents;
                                             prints how many FILEs it holds so
Exits with status 1 and a message when a check fails.
"""

import os
import struct
import sys
import zipfile


def fail(message):
    sys.exit(f"archive check failed: {message}")


def opened(path):
    try:
        archive = zipfile.ZipFile(path)
    except (zipfile.BadZipFile, OSError) as error:
        fail(f"{path} is not a valid archive ({error})")
    bad = archive.testzip()
    if bad is not None:
        fail(f"{path}: entry {bad} does not read back")
    return archive


def make(path, count, size):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_STORED) as archive:
        for i in range(int(count)):
            archive.writestr(f"logs/part{i:05d}.bin", os.urandom(int(size)))


def state(path, base, new):
    with opened(path) as archive, zipfile.ZipFile(base) as old:
        names, expected = set(archive.namelist()), set(old.namelist())
        if names == expected:
            print("old")
            return
        entry = os.path.basename(new)
        if names != expected | {entry}:
            fail(f"{path} holds neither the old entries nor the old ones and {entry}")
        with open(new, "rb") as source:
            if archive.read(entry) != source.read():
                fail(f"{path}: {entry} differs from its source")
        print("new")


def unneeded_bytes(path, archive):
    """Bytes of the file that no entry, central directory or end record needs."""
    with open(path, "rb") as raw:
        data = raw.read()
    needed = len(data) - archive.start_dir  # central directory and end records
    for info in archive.infolist():
        name_length, extra_length = struct.unpack_from("<HH", data, info.header_offset + 26)
        needed += 30 + name_length + extra_length + info.compress_size
        if info.flag_bits & 0x08:  # a data descriptor follows the data
            needed += 24
    return len(data), max(0, len(data) - needed)


def holds(path, folder):
    with opened(path) as archive:
        for name in sorted(os.listdir(folder)):
            with open(os.path.join(folder, name), "rb") as source:
                matches = [n for n in archive.namelist() if n.lower() == name.lower()]
                if len(matches) != 1:
                    fail(f"{path} holds {len(matches)} entries for {name}")
                if archive.read(matches[0]) != source.read():
                    fail(f"{path}: {name} differs from its last source")
        size, unneeded = unneeded_bytes(path, archive)
        print(f"{len(archive.namelist())} entries, {size} bytes, {unneeded} bytes not needed")
        if unneeded > 0:
            fail(f"{path} carries {unneeded} bytes that no entry needs")


def contains(path, base, *files):
    with opened(path) as archive, zipfile.ZipFile(base) as old:
        crcs = {info.filename: info.CRC for info in archive.infolist()}
        for info in old.infolist():
            if crcs.get(info.filename) != info.CRC:
                fail(f"{path}: {info.filename} of {base} is missing or changed")
        found = 0
        for file in files:
            entry = os.path.basename(file)
            with open(file, "rb") as source:
                if entry in crcs and archive.read(entry) == source.read():
                    found += 1
        print(f"{found} of {len(files)}")
        if found != len(files):
            fail(f"{path} holds {found} of the {len(files)} files with their contents")


if __name__ == "__main__":
    commands = {"make": make, "state": state, "holds": holds, "contains": contains}
    if len(sys.argv) < 2 or sys.argv[1] not in commands:
        sys.exit(__doc__)
    commands[sys.argv[1]](*sys.argv[2:])
