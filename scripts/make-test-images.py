#!/usr/bin/env python3
"""Writes the device images under tests/data/images: invented drives, with
the bytes that real drives of their kind would answer, for the replay backend's
tests and as samples. Run it again after changing it; it rewrites every image.

  nvme-tamsel-t2     "Tamsel T2 3.84TB U.2": an NVMe 2.0 controller with one
                     namespace, namespace management, a UUID list, and the log
                     pages 5 (Commands Supported and Effects) and 221 (Marketing
                     Description), and its own health logs: SMART / Health
                     Information (also for namespace 1), Error Information,
                     Firmware Slot Information and Device Self-test; it refuses
                     the allocated namespace structure
                     (CNS 11h) of namespace 0 with Invalid Namespace or Format,
                     which the image keeps
  nvme-tamsel-t2-worn
                     another Tamsel T2, worn out: its SMART log has a critical
                     warning (spare below threshold, reliability degraded), media
                     errors and a failed extended self-test
  sata-corvid-s300   "Corvid S300 512GB": a SATA SSD (ACS-4), IDENTIFY DEVICE,
                     CHECK POWER MODE, SMART (data, thresholds, RETURN STATUS) and
                     the Device Statistics log; READ DMA has no reply, so it is refused
  sata-corvid-s300-failing  the same drive worn out: reallocated sectors past
                     their threshold and SMART RETURN STATUS reporting it

Both makers and their PCI vendor ID 0x1E5A are invented (no entry in pci.ids).
"""
import os
import struct
import sys

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "data", "images")

VENDOR_ID = 0x1E5A
NVME_SERIAL = "TT2A24310057"
NVME_MODEL = "Tamsel T2 3.84TB U.2"
NVME_FIRMWARE = "T2F10310"
CAPACITY_BYTES = 3840755982336
BLOCKS_4K = CAPACITY_BYTES // 4096

# The two GUIDs that the toolkit looks for in a drive's UUID list, as stored.
VENDOR_GUID = bytes.fromhex("9619586EC11B43ADAAAA654187F6BBB2")
LOG_GUID = bytes.fromhex("C194D55BE0944794A21D29998F56BE6F")


class Structure:
    """A zero-filled byte structure written field by field, little-endian."""

    def __init__(self, size):
        self.data = bytearray(size)

    def put(self, offset, width, value):
        self.data[offset:offset + width] = value.to_bytes(width, "little")

    def text(self, offset, width, value):
        """ASCII, padded with blanks (NVMe strings)."""
        self.data[offset:offset + width] = value.ljust(width).encode("ascii")

    def raw(self, offset, value):
        self.data[offset:offset + len(value)] = value


def identify_controller(serial=NVME_SERIAL, elpe=63):
    s = Structure(4096)
    s.put(0, 2, VENDOR_ID)          # VID
    s.put(2, 2, VENDOR_ID)          # SSVID
    s.text(4, 20, serial)           # SN
    s.text(24, 40, NVME_MODEL)      # MN
    s.text(64, 8, NVME_FIRMWARE)    # FR
    s.put(72, 1, 2)                 # RAB: 4 commands
    s.raw(73, b"\x5a\x1e\x00")      # IEEE OUI (invented)
    s.put(77, 1, 5)                 # MDTS: 128 KiB with 4 KiB pages
    s.put(78, 2, 1)                 # CNTLID
    s.put(80, 4, 0x00020000)        # VER: 2.0.0
    s.put(84, 4, 8000000)           # RTD3R: 8 s
    s.put(88, 4, 10000000)          # RTD3E: 10 s
    s.put(92, 4, 0x00000300)        # OAES: namespace attribute and firmware activation notices
    s.put(96, 4, 0x00000280)        # CTRATT: bit 7 namespace granularity, bit 9 UUID list
    s.put(111, 1, 1)                # CNTRLTYPE: I/O controller
    s.put(256, 2, 0x009F)           # OACS: security, format, firmware, namespace management (bit 3), self-test, virtualization
    s.put(258, 1, 3)                # ACL: 4 aborts
    s.put(259, 1, 7)                # AERL: 8 events
    s.put(260, 1, 0x17)             # FRMW: slot 1 read-only, 3 slots, activation without reset
    s.put(261, 1, 0x2F)             # LPA: SMART per namespace, effects log, extended data, telemetry, bit 5 effects log enhancements
    s.put(262, 1, elpe)             # ELPE: entries kept, 0's based
    s.put(263, 1, 2)                # NPSS: 3 power states
    s.put(264, 1, 1)                # AVSCC
    s.put(266, 2, 343)              # WCTEMP: 70 C
    s.put(268, 2, 358)              # CCTEMP: 85 C
    s.put(280, 16, CAPACITY_BYTES)  # TNVMCAP
    s.put(512, 1, 0x66)             # SQES: 64 bytes
    s.put(513, 1, 0x44)             # CQES: 16 bytes
    s.put(516, 4, 32)               # NN: 32 namespaces
    s.put(520, 2, 0x005F)           # ONCS: compare, write uncorrectable, DSM, write zeroes, features save, timestamp
    s.put(525, 1, 0x07)             # VWC: present, flush broadcast supported
    s.raw(768, ("nqn.2024-01.invalid.tamsel:nvme:" + serial).encode("ascii"))  # SUBNQN
    # Power state descriptors: maximum power in centiwatts, entry and exit latency in us.
    for state, (centiwatts, entry, exit) in enumerate([(2500, 0, 0), (1800, 0, 0), (1200, 5, 5)]):
        base = 2048 + 32 * state
        s.put(base, 2, centiwatts)
        s.put(base + 4, 4, entry)
        s.put(base + 8, 4, exit)
        s.put(base + 12, 1, state)  # RRT
        s.put(base + 13, 1, state)  # RRL
        s.put(base + 14, 1, state)  # RWT
        s.put(base + 15, 1, state)  # RWL
    return s.data


def lba_formats(s):
    s.put(25, 1, 1)                 # NLBAF: two formats
    s.put(128, 4, 0x02090000)       # LBAF0: 512-byte blocks, good performance
    s.put(132, 4, 0x000C0000)       # LBAF1: 4096-byte blocks, best performance


def identify_namespace():
    s = Structure(4096)
    s.put(0, 8, BLOCKS_4K)          # NSZE
    s.put(8, 8, BLOCKS_4K)          # NCAP
    s.put(16, 8, 120000000)         # NUSE
    s.put(24, 1, 0x10)              # NSFEAT: optimal performance fields
    lba_formats(s)
    s.put(26, 1, 1)                 # FLBAS: format 1
    s.put(32, 1, 0x80)              # FPI: format progress indicator supported
    s.put(33, 1, 0x09)              # DLFEAT: deallocated blocks read as zeros
    s.put(48, 16, CAPACITY_BYTES)   # NVMCAP
    s.put(64, 2, 7)                 # NPWG: 32 KiB
    s.put(66, 2, 7)                 # NPWA
    s.raw(104, NGUID)               # NGUID
    s.raw(120, EUI64)               # EUI64
    return s.data


def common_namespace():
    """CNS 0 for all namespaces: what every namespace would share."""
    s = Structure(4096)
    lba_formats(s)
    return s.data


NGUID = bytes.fromhex("5A1E0000000000010000000000005A1E")
EUI64 = bytes.fromhex("5A1E000000000001")
NAMESPACE_UUID = bytes.fromhex("2F0E56C4A73B4E0C9E1D6B1F5A1E0001")


def namespace_descriptors():
    s = Structure(4096)
    at = 0
    for kind, value in [(1, EUI64), (2, NGUID), (3, NAMESPACE_UUID), (4, b"\x00")]:
        s.put(at, 1, kind)          # NIDT
        s.put(at + 1, 1, len(value))  # NIDL
        s.raw(at + 4, value)
        at += 4 + len(value)
    return s.data


def id_list(ids):
    s = Structure(4096)
    for i, value in enumerate(ids):
        s.put(4 * i, 4, value)
    return s.data


def controller_list(ids):
    s = Structure(4096)
    s.put(0, 2, len(ids))
    for i, value in enumerate(ids):
        s.put(2 + 2 * i, 2, value)
    return s.data


def primary_controller_capabilities():
    s = Structure(4096)
    s.put(0, 2, 1)                  # CNTLID
    s.put(2, 2, 0)                  # PORTID
    s.put(4, 1, 0x03)               # CRT: VQ and VI resources
    s.put(32, 4, 64)                # VQFRT
    s.put(40, 2, 16)                # VQPRT
    s.put(42, 2, 4)                 # VQFRSM
    s.put(44, 2, 1)                 # VQGRAN
    s.put(64, 4, 32)                # VIFRT
    s.put(72, 2, 8)                 # VIPRT
    s.put(74, 2, 4)                 # VIFRSM
    s.put(76, 2, 1)                 # VIGRAN
    return s.data


def namespace_granularity():
    s = Structure(4096)
    s.put(0, 4, 0)                  # NGLA: granularity descriptors for size and capacity
    s.put(4, 1, 1)                  # NUMDESC
    s.put(32, 8, 0x40000000)        # NSG: 1 GiB
    s.put(40, 8, 0x40000000)        # NCG: 1 GiB
    return s.data


def uuid_list():
    s = Structure(4096)
    for i, guid in enumerate([VENDOR_GUID, LOG_GUID]):
        entry = 32 + 32 * i
        s.put(entry, 1, 1)          # associated with the PCI vendor
        s.raw(entry + 16, guid)
    return s.data


def command_set_vectors():
    s = Structure(4096)
    s.put(0, 8, 0x1)                # vector 0: the NVM command set
    return s.data


def command_effects_log():
    # Bits: 0 supported, 1 logical block content change, 2 namespace capability
    # change, 3 namespace inventory change, 4 controller capability change,
    # 18:16 submission and execution, 20 namespace scope, 21 controller scope,
    # 25 NVM subsystem scope.
    admin = {0x00: 0x1, 0x01: 0x1, 0x02: 0x1, 0x04: 0x1, 0x05: 0x1, 0x06: 0x1, 0x08: 0x1,
             0x09: 0x200011, 0x0A: 0x1, 0x0C: 0x1, 0x0D: 0x0200000D, 0x10: 0x200011,
             0x11: 0x0200011, 0x14: 0x1, 0x15: 0x0200000D, 0x80: 0x0212000F}
    io = {0x00: 0x100003, 0x01: 0x100003, 0x02: 0x100001, 0x04: 0x100003, 0x05: 0x100001,
          0x08: 0x100003, 0x09: 0x100003}
    s = Structure(4096)
    for opcode, entry in admin.items():
        s.put(4 * opcode, 4, entry)
    for opcode, entry in io.items():
        s.put(1024 + 4 * opcode, 4, entry)
    return s.data


def marketing_description():
    s = Structure(512)
    s.raw(0, b"Tamsel T2 3.84TB U.2 NVMe SSD, PCIe Gen4 x4, 1 DWPD")
    return s.data


def smart_health_log(warning, kelvins, spare, used, read_units, written_units, host_reads,
                     host_writes, busy_minutes, power_cycles, power_on_hours, unsafe_shutdowns,
                     media_errors, error_entries, warning_minutes=0, critical_minutes=0):
    """SMART / Health Information (log 02h): 128-bit counters, temperatures in kelvins."""
    s = Structure(512)
    s.put(0, 1, warning)            # critical warning bits
    s.put(1, 2, kelvins)            # composite temperature
    s.put(3, 1, spare)              # available spare, percent
    s.put(4, 1, 10)                 # available spare threshold, percent
    s.put(5, 1, used)               # percentage used (may pass 100)
    s.put(6, 1, warning & 0x0D)     # endurance group summary: spare, reliability, read-only
    for offset, value in [(32, read_units), (48, written_units), (64, host_reads),
                          (80, host_writes), (96, busy_minutes), (112, power_cycles),
                          (128, power_on_hours), (144, unsafe_shutdowns), (160, media_errors),
                          (176, error_entries)]:
        s.put(offset, 16, value)
    s.put(192, 4, warning_minutes)  # time above the warning temperature
    s.put(196, 4, critical_minutes)
    s.put(200, 2, kelvins + 2)      # sensor 1: the controller, a little warmer
    s.put(202, 2, kelvins - 5)      # sensor 2: the NAND
    return s.data


def error_log(entries, kept):
    """Error Information (log 01h): `kept` entries of 64 bytes, newest first; an unused
    entry is all zero. Each entry: error count, queue, command, status field (phase tag in
    bit 0), parameter error location, LBA, namespace."""
    s = Structure(64 * kept)
    for i, (count, queue, command, status, location, lba, nsid) in enumerate(entries):
        base = 64 * i
        s.put(base, 8, count)
        s.put(base + 8, 2, queue)
        s.put(base + 10, 2, command)
        s.put(base + 12, 2, status)
        s.put(base + 14, 2, location)
        s.put(base + 16, 8, lba)
        s.put(base + 24, 4, nsid)
    return s.data


def firmware_slot_log(active, revisions):
    """Firmware Slot Information (log 03h): the active slot and each slot's revision."""
    s = Structure(512)
    s.put(0, 1, active)
    for slot, revision in enumerate(revisions):
        s.text(8 + 8 * slot, 8, revision)
    return s.data


def self_test_log(results):
    """Device Self-test (log 06h): nothing running, then 20 results, newest first; status
    0x0F marks an unused one. Each: status (code in bits 7:4, result in 3:0), segment,
    valid diagnostics, power-on hours, namespace, failing LBA, status code type and code."""
    s = Structure(564)
    for i in range(20):
        base = 4 + 28 * i
        if i >= len(results):
            s.put(base, 1, 0x0F)
            continue
        status, segment, valid, hours, nsid, lba, sct, sc = results[i]
        s.put(base, 1, status)
        s.put(base + 1, 1, segment)
        s.put(base + 2, 1, valid)
        s.put(base + 4, 8, hours)
        s.put(base + 12, 4, nsid)
        s.put(base + 16, 8, lba)
        s.put(base + 24, 1, sct)
        s.put(base + 25, 1, sc)
    return s.data


def getlog_name(lid, nsid=0xFFFFFFFF):
    return "nvme-getlog-lid%02x-nsid%08x-offset0.bin" % (lid, nsid)


# Tamsel T2 after a year in a server: 37 C, 3 % used, two errors logged (an unrecovered read,
# an invalid field of an admin command), firmware 2 active, three self-tests passed or aborted.
T2_SMART = smart_health_log(0x00, 310, 100, 3, 48213775, 31662104, 712345678, 456789012,
                            2316, 142, 9411, 7, 0, 2)
T2_ERRORS = error_log([(2, 3, 0x0041, 0x8502, 0xFFFF, 1234567890, 1),
                       (1, 0, 0x1005, 0x8004, 0x0028, 0, 0)], 64)
T2_FIRMWARE = firmware_slot_log(0x02, ["T2F10110", NVME_FIRMWARE, "T2F10305"])
T2_SELF_TESTS = self_test_log([(0x10, 0, 0, 9400, 0, 0, 0, 0),
                               (0x20, 0, 0, 8712, 0, 0, 0, 0),
                               (0x11, 0, 0, 8700, 0, 0, 0, 0)])

# A worn Tamsel T2: 104 % used, spare below its threshold and reliability degraded (critical
# warning bits 0 and 2), media errors, an extended self-test that failed in segment 3.
WORN_SERIAL = "TT2A23180412"
WORN_SMART = smart_health_log(0x05, 321, 6, 104, 412345678, 7987654321, 5123456789,
                              9876543210, 61234, 1873, 41237, 61, 38, 1205, 312, 4)
WORN_ERRORS = error_log([(1205, 4, 0x0110, 0x8502, 0xFFFF, 612304771, 1),
                         (1204, 2, 0x00C3, 0x8500, 0xFFFF, 612304770, 1),
                         (1203, 0, 0x2001, 0x8004, 0x0028, 0, 0)], 16)
WORN_FIRMWARE = firmware_slot_log(0x01, ["T2F10110"])
WORN_SELF_TESTS = self_test_log([(0x27, 3, 0x0F, 41230, 1, 612304771, 2, 0x81),
                                 (0x10, 0, 0, 41100, 0, 0, 0, 0)])


def ata_identify(serial="CVS3A0021847"):
    words = [0] * 256

    def text(first, count, value):
        padded = value.ljust(2 * count).encode("ascii")
        for i in range(count):
            words[first + i] = padded[2 * i] << 8 | padded[2 * i + 1]

    sectors = 1000215216            # 512 GB in 512-byte sectors
    words[0] = 0x0040               # general configuration: ATA device
    words[1], words[3], words[6] = 16383, 16, 63
    text(10, 10, serial)            # serial number
    text(23, 4, "CV1.04A")          # firmware revision
    text(27, 20, "Corvid S300 512GB")  # model number
    words[47] = 0x8010              # 16 sectors a DRQ block
    words[49] = 0x2F00              # LBA, DMA, IORDY
    words[53] = 0x0007
    words[60], words[61] = 0xFFFF, 0x0FFF  # 28-bit sectors: the most there are
    words[63] = 0x0407              # multiword DMA 0-2, mode 2 selected
    words[64] = 0x0003              # PIO 3 and 4
    words[65:69] = [120, 120, 120, 120]
    words[75] = 31                  # queue depth 32
    words[76] = 0x850E              # SATA 1.5, 3 and 6 Gb/s, NCQ
    words[80] = 0x0FE0              # ATA/ATAPI-5 to ACS-4
    words[81] = 0x011B              # minor version: ACS-3 revision 5
    words[82], words[83], words[84] = 0x746B, 0x7D09, 0x6163
    words[85], words[86], words[87] = 0x7469, 0xBC01, 0x6163
    words[88] = 0x407F              # UDMA 0-6, mode 6 selected
    words[100:104] = [sectors & 0xFFFF, sectors >> 16, 0, 0]
    words[106] = 0x4000             # one logical sector a physical sector, 512 bytes
    words[108:112] = [0x55A1, 0xE000, 0x0000, 0x2184]  # world wide name (NAA 5, invented OUI)
    words[169] = 0x0001             # TRIM
    words[217] = 0x0001             # not rotating
    words[222] = 0x10FF             # SATA transport
    data = bytearray(struct.pack("<256H", *words))
    data[510] = 0xA5                # integrity word: signature, then the checksum
    data[511] = (-sum(data[:511])) & 0xFF
    return data


def ata_checksummed(data):
    """A SMART sector: its last byte makes the sum of all 512 bytes zero."""
    data[511] = (-sum(data[:511])) & 0xFF
    return data


# SMART attributes: id, flags, current, worst, raw value (six bytes, lowest first),
# threshold. Flags 0x33: pre-failure, online, event count, self-preserving; 0x32 the
# same, advisory; 0x22 advisory, online, self-preserving.
def smart_attributes(reallocated, spare, used, hours, written, read, lowest_read_rate):
    return [
        (1, 0x002F, 100, lowest_read_rate, 0, 50),
        (5, 0x0033, reallocated[0], reallocated[0], reallocated[1], 10),
        (9, 0x0032, 99, 99, hours, 0),
        (12, 0x0032, 99, 99, 418, 0),
        (171, 0x0032, 100, 100, 0, 0),
        (172, 0x0032, 100, 100, 0, 0),
        (174, 0x0032, 100, 100, 37, 0),
        (187, 0x0032, 100, 100, reallocated[1] // 40, 0),
        # 34 Celsius now, 19 lowest and 48 highest in bytes 2 and 4.
        (194, 0x0022, 66, 52, 34 | 19 << 16 | 48 << 32, 0),
        (199, 0x0032, 100, 100, 0, 0),
        (232, 0x0033, spare, spare, spare, 10),
        (233, 0x0032, 100 - used, 100 - used, 0, 0),
        (241, 0x0032, 100, 100, written, 0),
        (242, 0x0032, 100, 100, read, 0),
    ]


def smart_data(attributes):
    s = Structure(512)
    s.put(0, 2, 0x0010)             # revision
    for i, (ident, flags, current, worst, raw, _) in enumerate(attributes):
        at = 2 + 12 * i
        s.put(at, 1, ident)
        s.put(at + 1, 2, flags)
        s.put(at + 3, 1, current)
        s.put(at + 4, 1, worst)
        s.put(at + 5, 6, raw)
    s.put(362, 1, 0x00)             # offline data collection: never started
    s.put(367, 1, 0x7B)             # offline collection capabilities
    s.put(368, 2, 0x0003)           # SMART capability: saves data over power cycles
    s.put(370, 1, 0x01)             # error logging supported
    s.put(372, 1, 2)                # short self-test: 2 minutes
    s.put(373, 1, 10)               # extended self-test: 10 minutes
    return ata_checksummed(s.data)


def smart_thresholds(attributes):
    s = Structure(512)
    s.put(0, 2, 0x0010)
    for i, (ident, _, _, _, _, threshold) in enumerate(attributes):
        s.put(2 + 12 * i, 1, ident)
        s.put(3 + 12 * i, 1, threshold)
    return ata_checksummed(s.data)


def smart_return_status(exceeded):
    """The registers that SMART RETURN STATUS returns, in task file order: Error,
    Count, LBA Low, LBA Mid, LBA High, Device, Status, unused."""
    mid, high = (0xF4, 0x2C) if exceeded else (0x4F, 0xC2)
    return bytes([0x00, 0x00, 0x00, mid, high, 0x40, 0x50, 0x00])


STATISTICS_PAGES = 8                # pages 0 to 7 of the Device Statistics log


def gpl_directory():
    s = Structure(512)
    s.put(0, 2, 0x0001)             # directory version
    s.put(2 * 0x04, 2, STATISTICS_PAGES)
    s.put(2 * 0x07, 2, 1)           # extended self-test log
    s.put(2 * 0x10, 2, 1)           # NCQ command error log
    s.put(2 * 0x30, 2, 9)           # identify device data
    return s.data


def device_statistics(hours, written, read, celsius, highest, used):
    s = Structure(512 * STATISTICS_PAGES)
    pages = [0, 1, 5, 7]

    def header(page):
        s.put(512 * page, 2, 0x0001)   # revision
        s.put(512 * page + 2, 1, page)

    def statistic(page, offset, value, flags=0xC0):   # supported, valid
        s.put(512 * page + offset, 7, value)
        s.put(512 * page + offset + 7, 1, flags)

    header(0)
    s.put(8, 1, len(pages))
    s.raw(9, bytes(pages))
    header(1)
    statistic(1, 8, 418)            # lifetime power-on resets
    statistic(1, 16, hours)
    statistic(1, 24, written)       # logical sectors written
    statistic(1, 32, 187654321)     # write commands
    statistic(1, 40, read)          # logical sectors read
    statistic(1, 48, 298765432)     # read commands
    statistic(1, 56, 0, 0x80)       # date and time stamp: supported, not valid
    header(5)
    statistic(5, 8, celsius)
    statistic(5, 16, celsius - 1)   # average short term
    statistic(5, 24, celsius - 3)   # average long term
    statistic(5, 32, highest)
    statistic(5, 40, 12)            # lowest
    statistic(5, 80, 0)             # minutes over temperature
    statistic(5, 88, 70)            # specified maximum
    statistic(5, 96, 0)             # minutes under temperature
    statistic(5, 104, 0)            # specified minimum
    header(7)
    statistic(7, 8, used, 0xC0 if used < 100 else 0xC8)
    return s.data


def sata_replies(serial, exceeded, attributes, statistics):
    return {
        "ata-cmdec-lba0-count1.bin": ata_identify(serial),
        "ata-cmde5-lba0-count0.bin": b"",
        # SMART: command B0h, LBA Mid/High 4Fh/C2h, the subcommand in Features.
        "ata-cmdb0-lba12734208-count1-featd0.bin": smart_data(attributes),
        "ata-cmdb0-lba12734208-count1-featd1.bin": smart_thresholds(attributes),
        "ata-cmdb0-lba12734208-count0-featda.bin": smart_return_status(exceeded),
        # READ LOG EXT: the log directory, then all pages of Device Statistics.
        "ata-cmd2f-lba0-count1.bin": gpl_directory(),
        "ata-cmd2f-lba4-count%d.bin" % STATISTICS_PAGES: statistics,
    }


def write_image(name, attributes, replies):
    folder = os.path.join(ROOT, name)
    os.makedirs(folder, exist_ok=True)
    for old in os.listdir(folder):
        os.remove(os.path.join(folder, old))
    with open(os.path.join(folder, "attributes.txt"), "w") as f:
        f.write(attributes)
    for file, data in replies.items():
        with open(os.path.join(folder, file), "wb") as f:
            f.write(data)


def identify_name(cns, nsid):
    return "nvme-identify-cns%02x-nsid%08x.bin" % (cns, nsid)


def main():
    write_image("nvme-tamsel-t2",
                "# An invented maker drive: generated by scripts/make-test-images.py\n"
                "Protocol=NVME\nProduct=Tamsel T2\nOEM=Generic\nOCPSupported=True\n",
                {
                    identify_name(0x00, 0xFFFFFFFF): common_namespace(),
                    identify_name(0x00, 1): identify_namespace(),
                    identify_name(0x01, 0): identify_controller(),
                    identify_name(0x02, 0): id_list([1]),
                    identify_name(0x03, 1): namespace_descriptors(),
                    identify_name(0x10, 0): id_list([1]),
                    identify_name(0x11, 1): identify_namespace(),
                    # No namespace 0 exists: the drive's refusal, as the image keeps it.
                    identify_name(0x11, 0).replace(".bin", ".status"):
                        b"NvmeStatus=0x400B\nNvmeResult=0x00000000\n",
                    identify_name(0x12, 1): controller_list([1]),
                    identify_name(0x13, 0): controller_list([1]),
                    identify_name(0x14, 0): primary_controller_capabilities(),
                    identify_name(0x15, 0): controller_list([]),
                    identify_name(0x16, 0): namespace_granularity(),
                    identify_name(0x17, 0): uuid_list(),
                    identify_name(0x1A, 0): id_list([1]),
                    identify_name(0x1C, 0): command_set_vectors(),
                    "nvme-getlog-lid05-nsidffffffff-offset0.bin": command_effects_log(),
                    "nvme-getlog-liddd-nsidffffffff-offset0.bin": marketing_description(),
                    getlog_name(0x01): T2_ERRORS,
                    getlog_name(0x02): T2_SMART,
                    getlog_name(0x02, 1): T2_SMART,
                    getlog_name(0x03): T2_FIRMWARE,
                    getlog_name(0x06): T2_SELF_TESTS,
                })
    write_image("nvme-tamsel-t2-worn",
                "# An invented maker drive with a critical warning: generated by "
                "scripts/make-test-images.py\n"
                "Protocol=NVME\nProduct=Tamsel T2\nOEM=Generic\nOCPSupported=True\n",
                {
                    identify_name(0x00, 0xFFFFFFFF): common_namespace(),
                    identify_name(0x00, 1): identify_namespace(),
                    identify_name(0x01, 0): identify_controller(WORN_SERIAL, 15),
                    identify_name(0x02, 0): id_list([1]),
                    getlog_name(0x01): WORN_ERRORS,
                    getlog_name(0x02): WORN_SMART,
                    getlog_name(0x02, 1): WORN_SMART,
                    getlog_name(0x03): WORN_FIRMWARE,
                    getlog_name(0x06): WORN_SELF_TESTS,
                })
    write_image("sata-corvid-s300",
                "# An invented SATA SSD: generated by scripts/make-test-images.py\nProtocol=ATA\n",
                sata_replies("CVS3A0021847", False,
                             smart_attributes((100, 0), 100, 3, 5231, 20911370240,
                                              31457280000, 100),
                             device_statistics(5231, 20911370240, 31457280000, 34, 52, 3)))
    # Worn out: reallocated sectors past their threshold, a read error rate that once
    # was, and SMART RETURN STATUS reporting the exceeded threshold.
    write_image("sata-corvid-s300-failing",
                "# An invented SATA SSD: generated by scripts/make-test-images.py\nProtocol=ATA\n",
                sata_replies("CVS3A0019203", True,
                             smart_attributes((8, 1712), 12, 87, 31877, 392137728000,
                                              418612736000, 45),
                             device_statistics(31877, 392137728000, 418612736000, 41, 67, 87)))
    return 0


if __name__ == "__main__":
    sys.exit(main())
