#!/usr/bin/env python3
"""Writes the device images under tests/data/images: two invented drives, with
the bytes that real drives of their kind would answer, for the replay backend's
tests and as samples. Run it again after changing it; it rewrites both images.

  nvme-tamsel-t2     "Tamsel T2 3.84TB U.2": an NVMe 2.0 controller with one
                     namespace, namespace management, a UUID list, and the log
                     pages 5 (Commands Supported and Effects) and 221 (Marketing
                     Description); it refuses the allocated namespace structure
                     (CNS 11h) of namespace 0 with Invalid Namespace or Format,
                     which the image keeps
  sata-corvid-s300   "Corvid S300 512GB": a SATA SSD (ACS-4), IDENTIFY DEVICE and
                     CHECK POWER MODE; READ DMA has no reply, so it is refused

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


def identify_controller():
    s = Structure(4096)
    s.put(0, 2, VENDOR_ID)          # VID
    s.put(2, 2, VENDOR_ID)          # SSVID
    s.text(4, 20, NVME_SERIAL)      # SN
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
    s.put(262, 1, 63)               # ELPE: 64 entries
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
    s.raw(768, ("nqn.2024-01.invalid.tamsel:nvme:" + NVME_SERIAL).encode("ascii"))  # SUBNQN
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


def ata_identify():
    words = [0] * 256

    def text(first, count, value):
        padded = value.ljust(2 * count).encode("ascii")
        for i in range(count):
            words[first + i] = padded[2 * i] << 8 | padded[2 * i + 1]

    sectors = 1000215216            # 512 GB in 512-byte sectors
    words[0] = 0x0040               # general configuration: ATA device
    words[1], words[3], words[6] = 16383, 16, 63
    text(10, 10, "CVS3A0021847")    # serial number
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
                })
    write_image("sata-corvid-s300",
                "# An invented SATA SSD: generated by scripts/make-test-images.py\nProtocol=ATA\n",
                {
                    "ata-cmdec-lba0-count1.bin": ata_identify(),
                    "ata-cmde5-lba0-count0.bin": b"",
                })
    return 0


if __name__ == "__main__":
    sys.exit(main())
