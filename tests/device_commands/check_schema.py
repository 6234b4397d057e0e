#!/usr/bin/env python3
"""Validates orlo's keyed JSON of every bundled image against the schema: each Identify
structure the image answers, each of its log pages and its health summary. A document
must parse without a key given twice and hold at least one keyed member; a command that
the image's drive refuses is told apart.

  check_schema.py ORLO SCHEMA IMAGES_DIR
"""
import json
import os
import re
import subprocess
import sys

import jsonschema

MAKER = ["-maker-vendors", "0x1E5A"]
# A reply file of an error status: the image's drive refuses the command.
REFUSED = "NVMe command reported a problem"
NVME_LOGS = {"01": "ErrorInfo", "02": "SmartHealthInfo", "03": "FirmwareSlotInfo",
             "05": "CommandEffectsLog", "06": "DeviceSelfTestLog", "dd": "MarketingDescription"}
ATA_REPLIES = {"ata-cmdec-lba0-count1.bin": [],
               "ata-cmdb0-lba12734208-count1-featd0.bin": ["LogName=SmartAttributes"],
               "ata-cmd2f-lba4-count8.bin": ["LogName=DeviceStatistics"]}


def commands_of(image):
    """The orlo command lines (after -ssd IMAGE) that the image answers."""
    lines = [["health"]]
    for name in sorted(os.listdir(image)):
        identify = re.fullmatch(r"nvme-identify-cns(..)-nsid(.{8})\.bin", name)
        log = re.fullmatch(r"nvme-getlog-lid(..)-nsid(.{8})-offset0\.bin", name)
        if identify:
            lines.append(["show", "ControllerNamespaceStructure=0x" + identify[1],
                          "NamespaceId=0x" + identify[2]])
        elif log:
            lines.append(["show", "LogName=" + NVME_LOGS[log[1]], "NamespaceId=0x" + log[2]]
                         + MAKER)
        elif name in ATA_REPLIES:
            lines.append(["show"] + ATA_REPLIES[name])
    return lines


def unique_keys(pairs):
    keys = [key for key, _ in pairs]
    duplicates = {key for key in keys if keys.count(key) > 1}
    if duplicates:
        raise ValueError("keys given twice: " + ", ".join(sorted(duplicates)))
    return dict(pairs)


def main(orlo, schema_file, images):
    schema = json.load(open(schema_file, encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    failures = []
    checked = 0
    for image in sorted(os.listdir(images)):
        for line in commands_of(os.path.join(images, image)):
            words = [orlo, line[0], "-ssd", os.path.join(images, image)] + line[1:]
            run = subprocess.run(words + ["-output", "json"], capture_output=True, text=True)
            where = image + ": " + " ".join(line)
            try:
                if run.returncode == 1 and REFUSED in run.stdout:
                    print(where + ": refused by the drive")
                    continue
                if run.returncode not in (0, 4):
                    raise ValueError("exit code %d: %s" % (run.returncode, run.stderr))
                document = json.loads(run.stdout, object_pairs_hook=unique_keys)
                if not document:
                    raise ValueError("no keyed member")
                for error in validator.iter_errors(document):
                    raise ValueError("%s at %s" % (error.message, list(error.absolute_path)))
            except ValueError as error:
                failures.append(where + ": " + str(error))
            checked += 1
    for failure in failures:
        print(failure, file=sys.stderr)
    print("%d documents checked, %d failed" % (checked, len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
