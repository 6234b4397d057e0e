#include "orlo/features/identify/NVMe_ControllerData.h"

#include <string>

#include "orlo/core/ProductNames.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/Strings.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"

namespace orlo::features::identify::nvme::controllerData {

namespace {

using namespace table;

// Where a label and the bytes or bits it reads disagree, the label is what drives have always
// been shown and stays; the bytes and bits are the ones the row has always read.

// "Verify Command Support" has always been shown as a run of zero bytes as long as its bit.
constexpr const char* kZeroRunWords[] = {"0x", "0x00"};
constexpr Words kZeroRun = replacing(kZeroRunWords);

constexpr const char* kStripeSizeWords[] = {
    " (Driver assisted striping not supported by FW)",
    " (8 KiB of user data)",
    " (16 KiB of user data)",
    " (32 KiB of user data)",
    " (64 KiB of user data)",
    " (128 KiB of user data)",
};
constexpr Words kStripeSize = appended(kStripeSizeWords, " (Unknown)");

// clang-format off
constexpr Row kMultiPathIo[] = {
    field("Bit 3", "Asymmetric Namespac Access Reporting Supported", bit(3), decimal).since(kNVMe1_4),
    field("Bit 2", "SR-IOV Virtual Function Association",            bit(2), decimal).since(kNVMe1_1),
    field("Bit 1", "Multiple NVM Subsystem Controllers",             bit(1), decimal).since(kNVMe1_1),
    field("Bit 0", "Multiple NVM Subsystem Ports",                   bit(0), decimal),
};

// The labels run the other way to the bytes read.
constexpr Row kVersion[] = {
    field("Bit 31:24", "Tertiary Version", bits(7, 0),   decimal),
    field("Bit 23:16", "Minor Version",    bits(15, 8),  decimal),
    field("Bit 15:0",  "Major Version",    bits(31, 16), decimal),
};

constexpr Row kAsynchronousEvents[] = {
    field("Bit 31", "Bit 31 is set to 1 if the controller supports sending Discovery Log Page Change Notifications.", bit(31), decimal).since(kNVMe2_0).as("discovery_log_change_notices"),
    field("Bit 27", "Bit 27 is set to 1 if the controller supports the Zone Descriptor Changed Notices event and the associated Changed Zone List log page", bit(27), decimal).since(kNVMe2_0).as("zone_descriptor_changed_notices"),
    field("Bit 15", "Bit 15 is set to 1 if the controller supports the Normal NVM Subsystem Shutdown event.", bit(15), decimal).since(kNVMe2_0).as("normal_nvm_subsystem_shutdown"),
    field("Bit 14", "Endurance Group Even Aggregate Log Page Change Notices Event Supported", bit(14), decimal).since(kNVMe1_4),
    field("Bit 13", "LBA Status Information Notices Event Supported",       bit(13), decimal).since(kNVMe1_4),
    field("Bit 12", "Prodictable Latency Event Aggregate Log Change Notices Event Supported", bit(12), decimal).since(kNVMe1_4),
    field("Bit 11", "Asymmetric namespace Access Change Notices Supported", bit(11), decimal).since(kNVMe1_4),
    field("Bit 9",  "Firmware Activation Notices Support",                  bit(9),  decimal).since(kNVMe1_3),
    field("Bit 8",  "Namespace Attribute Changed Support",                  bit(8),  decimal),
};

constexpr Row kControllerAttributes[] = {
    field("Bit 9", "UUID List Support",                           bit(9), decimal).since(kNVMe1_4),
    field("Bit 8", "SQ Associations Support",                     bit(8), decimal).since(kNVMe1_4),
    field("Bit 7", "Namespace Granularity Support",               bit(7), decimal).since(kNVMe1_4),
    field("Bit 6", "Traffic Based Keep Alive Support",            bit(6), decimal).since(kNVMe1_4),
    field("Bit 5", "Predictable Latency Mode Support",            bit(5), decimal).since(kNVMe1_4),
    field("Bit 4", "Endurance Groups Support",                    bit(4), decimal).since(kNVMe1_4),
    field("Bit 3", "Read Recovery Levels Support",                bit(3), decimal).since(kNVMe1_4),
    field("Bit 2", "NVM Sets Support",                            bit(2), decimal).since(kNVMe1_4),
    field("Bit 1", "Non-Operational Power State Permissive Mode", bit(1), decimal),
    field("Bit 0", "128-bit Host Identifier Support",             bit(0), decimal),
};

// Lowest bit first, unlike the other groups.
constexpr Row kReadRecoveryLevels[] = {
    field("Bit 0",  "Read Recovery Level 0",  bit(0),  decimal),
    field("Bit 1",  "Read Recovery Level 1",  bit(1),  decimal),
    field("Bit 2",  "Read Recovery Level 2",  bit(2),  decimal),
    field("Bit 3",  "Read Recovery Level 3",  bit(3),  decimal),
    field("Bit 4",  "Read Recovery Level 4",  bit(4),  decimal),
    field("Bit 5",  "Read Recovery Level 5",  bit(5),  decimal),
    field("Bit 6",  "Read Recovery Level 6",  bit(6),  decimal),
    field("Bit 7",  "Read Recovery Level 7",  bit(7),  decimal),
    field("Bit 8",  "Read Recovery Level 8",  bit(8),  decimal),
    field("Bit 9",  "Read Recovery Level 9",  bit(9),  decimal),
    field("Bit 10", "Read Recovery Level 10", bit(10), decimal),
    field("Bit 11", "Read Recovery Level 11", bit(11), decimal),
    field("Bit 12", "Read Recovery Level 12", bit(12), decimal),
    field("Bit 13", "Read Recovery Level 13", bit(13), decimal),
    field("Bit 14", "Read Recovery Level 14", bit(14), decimal),
    field("Bit 15", "Read Recovery Level 15", bit(15), decimal),
};

constexpr Row kSubsystemReport[] = {
    field("Bit 1", "NVMe Enclosure",      bit(1), decimal),
    field("Bit 0", "NVMe Storage Device", bit(0), decimal),
};

constexpr Row kVpdWriteCycles[] = {
    field("Bit 7",   "VPD Write Cycle Remaining Valid", bit(7),     decimal),
    field("Bit 0-6", "VPD Write Cycles Remaining",      bits(6, 0), hex()),
};

constexpr Row kManagementEndpoints[] = {
    field("Bit 1", "PCIe Port Management Endpoint",      bit(1), decimal),
    field("Bit 0", "SMBus/I2C Port Management Endpoint", bit(0), decimal),
};

constexpr Row kAdminCommands[] = {
    field("Bit 9", "Support Get LBA Status",                      bit(9), decimal).since(kNVMe1_3 | kNVMe1_4),
    field("Bit 8", "Support Doorbell Buffer Config",              bit(8), decimal).since(kNVMe1_3),
    field("Bit 7", "Support Virtualization Management",           bit(7), decimal).since(kNVMe1_3),
    field("Bit 6", "Support NVMe-MI Send/Receive",                bit(6), decimal).since(kNVMe1_3),
    field("Bit 5", "Support Directives",                          bit(5), decimal).since(kNVMe1_3),
    field("Bit 4", "Support Device Self Test",                    bit(4), decimal).since(kNVMe1_3),
    field("Bit 3", "Support Namespace Management and Attachment", bit(3), decimal).since(kNVMe1_2),
    field("Bit 2", "Support Firmware Activate Download",          bit(2), decimal),
    field("Bit 1", "Support Format NVM",                          bit(1), decimal),
    field("Bit 0", "Support Security Send Receive",               bit(0), decimal),
};

constexpr Row kFirmwareUpdates[] = {
    field("Bit 4",   "Firmware Activation with No Reset", bit(4),     hex()).since(kNVMe1_2),
    field("Bit 3:1", "Number FW Slots Support",           bits(3, 1), hex()),
    field("Bit 0",   "Is FW Slot Read Only",              bit(0),     hex()),
};

constexpr Row kLogPageAttributes[] = {
    field("Bit 6", "Support Telemetry Data Area 4",                       bit(6), decimal).since(kNVMe2_0),
    field("Bit 5", "Support Command Effects Log Enhancements (TP 4071b)", bit(5), decimal).since(kNVMe1_4),
    field("Bit 4", "Support Persistent Event Log",                        bit(4), decimal).since(kNVMe1_4),
    field("Bit 3", "Support Telemetry Log",                               bit(3), decimal).since(kNVMe1_4),
    field("Bit 2", "Support Extended Get Log Page",                       bit(2), decimal).since(kNVMe1_4),
    field("Bit 1", "Support Commands Effects Log",                        bit(1), decimal).since(kNVMe1_4),
    field("Bit 0", "Support SMART Per Namespace",                         bit(0), decimal),
};

constexpr Row kAdminVendorSpecific[] = {
    field("Bit 0", "Admin Vendor Specific CMD Format", bit(0), decimal),
};

constexpr Row kAutonomousPowerStates[] = {
    field("Bit 0", "Autonomous Power State Transitions Support", bit(0), decimal),
};

constexpr Row kReplayProtectedMemory[] = {
    field("Bit 31:24", "Access Size",           bits(31, 24), decimal),
    field("Bit 23:16", "Total Size",            bits(23, 16), decimal),
    field("Bit 5:3",   "Authentication Method", bits(5, 3),   decimal),
    field("Bit 2:0",   "Number of RPMB Units",  bits(2, 0),   decimal),
};

constexpr Row kSelfTestOptions[] = {
    field("Bit 0", "One Self-Test Operation At A Time", bit(0), decimal),
};

constexpr Row kThermalManagement[] = {
    field("Bit 0", "Thermal Management Support", bit(0), decimal),
};

constexpr Row kSanitize[] = {
    field("Bit 30-31", "No Deallocate Modifies Media After Sanitize", bits(31, 30), decimal).since(kNVMe1_4),
    field("Bit 29",    "No Deallocate Inhibited",                     bit(29),      decimal).since(kNVMe1_4),
    field("Bit 2",     "Overwrite Support",                           bit(2),       decimal),
    field("Bit 1",     "Block Erase Support",                         bit(1),       decimal),
    field("Bit 0",     "Crypto Erase Support",                        bit(0),       decimal),
};

constexpr Row kAnaCapabilities[] = {
    field("Bit 7", "ANAGRPID Non-Zero Value Support",          bit(7), decimal),
    field("Bit 6", "ANAGRPID Change While Namespace Attached", bit(6), decimal),
    field("Bit 4", "ANA Change State Report",                  bit(4), decimal),
    field("Bit 3", "ANA Persistent Loss State Report",         bit(3), decimal),
    field("Bit 2", "ANA Inaccesible State Report",             bit(2), decimal),
    field("Bit 1", "ANA Non-Optimized State Report",           bit(1), decimal),
    field("Bit 0", "ANA Optimized State Report",               bit(0), decimal),
};

constexpr Row kQueueEntrySize[] = {
    field("Bit 7:4", "Maximum Entry Size", bits(7, 4), hex()),
    field("Bit 3:0", "Minimum Entry Size", bits(3, 0), hex()),
};

constexpr Row kNvmCommands[] = {
    field("Bit 7", "Verify Command Support",              bit(7), hex()).since(kNVMe1_4).named(kZeroRun),
    field("Bit 6", "Timestamp Feature Support",           bit(6), hex()).since(kNVMe1_3),
    field("Bit 5", "Reservations Support",                bit(5), hex()).since(kNVMe1_2),
    field("Bit 4", "Save Field Support",                  bit(4), hex()).since(kNVMe1_2),
    field("Bit 3", "Write Zeroes Support",                bit(3), hex()).since(kNVMe1_2),
    field("Bit 2", "Dataset Management Command Support",  bit(2), hex()),
    field("Bit 1", "Write Uncorrectable Command Support", bit(1), hex()),
    field("Bit 0", "Compare Command Support",             bit(0), hex()),
};

constexpr Row kFusedOperations[] = {
    field("Bit 0", "Compare and Write Fused Operation Support", bit(0), hex()),
};

constexpr Row kFormatNvmAttributes[] = {
    field("Bit 2", "cryptographic Erase Support",         bit(2), hex()),
    field("Bit 1", "secure Erase All Namespaces Support", bit(1), hex()),
    field("Bit 0", "format All Namespaces Support",       bit(0), hex()),
};

constexpr Row kVolatileWriteCache[] = {
    field("Bit 1-2", "Flush Command Behavior",       bits(2, 1), hex()),
    field("Bit 0",   "Volatile Write Cache Present", bit(0),     hex()),
};

constexpr Row kNvmVendorSpecific[] = {
    field("Bit 0", "NVM Vendor Specific CMD Format", bit(0), hex()),
};

// "Bit 1" reads bit 2, so it always repeats "Bit 2".
constexpr Row kWriteProtection[] = {
    field("Bit 2", "Permanent Write Protect State Support",   bit(2), decimal),
    field("Bit 1", "Write Protect Until Power Cycle Support", bit(2), decimal),
    field("Bit 0", "No Write Protect Support",                bit(0), decimal),
};

constexpr Row kSglSupport[] = {
    field("Bit 21",  "Transport SGL Data Block Descriptor Support",        bit(21),    hex()).since(kNVMe1_4),
    field("Bit 20",  "Address Field in SGL Data Block Support",            bit(20),    hex()).since(kNVMe1_3),
    field("Bit 19",  "Metadata Pointer Containing SGL Descriptor Support", bit(19),    hex()).since(kNVMe1_3),
    field("Bit 18",  "SGL Data Extended Length Support",                   bit(18),    hex()),
    field("Bit 17",  "Byte Aligned Contiguous Buffer Support",             bit(17),    hex()),
    field("Bit 16",  "SGL Bit Bucket Descriptor Support",                  bit(16),    hex()),
    field("Bit 2",   "Keyed SGL Data Block Descriptor Support",            bit(2),     hex()).since(kNVMe1_3),
    field("Bit 0:1", "SGL Support for NVM Command Set",                    bits(1, 0), hex()),
};

// One 32-byte power state descriptor. The four relative rows take the whole byte.
constexpr Row kPowerStateDescriptor[] = {
    field("Bit 183:182", "Active Power Scale",        bits(183, 182), hex()).since(kNVMe1_2),
    field("Bit 178:176", "Active Power Workload",     bits(178, 176), hex()).since(kNVMe1_2),
    field("Bit 175:160", "Active Power",              bits(175, 160), hex()).since(kNVMe1_2),
    field("Bit 151:150", "Idle Power Scale",          bits(151, 150), hex()).since(kNVMe1_2),
    field("Bit 143:128", "Idle Power",                bits(143, 128), hex()).since(kNVMe1_2),
    field("Bit 124:120", "Relative Write Latency",    bits(127, 120), hex()),
    field("Bit 116:112", "Relative Write Throughput", bits(119, 112), hex()),
    field("Bit 108:104", "Relative Read Latency",     bits(111, 104), hex()),
    field("Bit 100:96",  "Relative Read Throughput",  bits(103, 96),  hex()),
    field("Bit 95:64",   "Exit Latency",              bits(95, 64),   hex()),
    field("Bit 63:32",   "Entry Latency",             bits(63, 32),   hex()),
    field("Bit 25",      "Non-Operational State",     bit(25),        hex()).since(kNVMe1_2),
    field("Bit 24",      "Maximum Power Scale",       bit(24),        hex()).since(kNVMe1_2),
    field("Bit 15:0",    "Maximum Power",             bits(15, 0),    hex()),
};

// The three reserved fillers each have one row per version; exactly one of them holds, the
// newest version the drive claims choosing it.
constexpr Row kFields[] = {
    field("Byte 0-1",      "PCI Vendor ID (VID)",                              range(0, 1),      hex(4)),
    field("Byte 2-3",      "PCI Subsystem Vendor ID (SSVID)",                  range(2, 3),      hex(4)),
    field("Byte 4-23",     "Serial Number",                                    range(4, 23),     text).as("sn"),
    field("Byte 24-63",    "Model Number",                                     range(24, 63),    text).as("mn"),
    field("Byte 64-71",    "Firmware Revision",                                range(64, 71),    text).as("fr"),
    field("Byte 72",       "Recommended Arbitration Burst (RAB)",              byte(72),         hex(2)),
    field("Byte 73-75",    "IEEE Organization Unique Identifier",              range(73, 78),    longHex).as("ieee"),
    group("Byte 76",       "Multi-Path I/O Capabilities",                      byte(76),         hex(),   kMultiPathIo).as("cmic"),
    field("Byte 77",       "Maximum Data Transfer Size",                       byte(77),         hex()).as("mdts"),
    field("Byte 78-79",    "Controller ID",                                    range(78, 79),    decimal).since(kNVMe1_1).as("cntlid"),
    group("Byte 80-83",    "Version",                                          range(80, 83),    hex(4),  kVersion).since(kNVMe1_2).as("ver"),
    field("Byte 84-87",    "RTD3 Resume Latency",                              range(84, 87),    decimal).since(kNVMe1_2).as("rtd3r"),
    field("Byte 88-91",    "RTD3 Entry Latency",                               range(88, 91),    decimal).since(kNVMe1_2).as("rtd3e"),
    group("Byte 92-95",    "Optional Asynchronous Events Supported",           range(92, 95),    hex(8),  kAsynchronousEvents).since(kNVMe1_2).as("oaes"),
    group("Byte 96-99",    "Controller Attributes",                            range(96, 99),    hex(),   kControllerAttributes).since(kNVMe1_3).as("ctratt"),
    group("Byte 100-101",  "Read Recovery Levels Supported",                   range(100, 101),  decimal, kReadRecoveryLevels).since(kNVMe1_3 | kNVMe1_4).as("rrls"),
    reserved("Byte 102-110").since(kNVMe1_3 | kNVMe1_4),
    field("Byte 111",      "Controller Type",                                  byte(111),        decimal).since(kNVMe1_3 | kNVMe1_4).as("cntrltype"),
    reserved("Byte 100-111").since(kNVMe1_3).until(kNVMe1_4),
    field("Byte 112-127",  "FRU Globally Unique Identifier",                   range(112, 127),  hex128).since(kNVMe1_3).as("fguid"),
    field("Byte 128-129",  "Command Retry Delay Time 1",                       range(128, 129),  decimal).since(kNVMe1_4).as("crdt1"),
    field("Byte 130-131",  "Command Retry Delay Time 2",                       range(130, 131),  decimal).since(kNVMe1_4).as("crdt2"),
    field("Byte 132-133",  "Command Retry Delay Time 3",                       range(132, 133),  decimal).since(kNVMe1_4).as("crdt3"),
    reserved("Byte 134-239").since(kNVMe1_4),
    reserved("Byte 128-239").since(kNVMe1_3).until(kNVMe1_4),
    reserved("Byte 96-239").since(kNVMe1_2).until(kNVMe1_3 | kNVMe1_4),
    reserved("Byte 80-255").since(kNVMe1_1).until(kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    reserved("Byte 78-255").until(kNVMe1_1 | kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    reserved("Byte 240-252").since(kNVMe1_2),
    group("Byte 253",      "NVM Subsystem Report",                             byte(253),        hex(),   kSubsystemReport).since(kNVMe1_2).as("nvmsr"),
    group("Byte 254",      "VPD Write Cycle Information",                      byte(254),        hex(),   kVpdWriteCycles).since(kNVMe1_2).as("vwci"),
    group("Byte 255",      "Management Endpoint Capabilities",                 byte(255),        hex(),   kManagementEndpoints).since(kNVMe1_2).as("mec"),
    group("Byte 256-257",  "Optional Admin Command Support",                   range(256, 257),  hex(),   kAdminCommands).as("oacs"),
    field("Byte 258",      "Abort Command Limit",                              byte(258),        hex()).as("acl"),
    field("Byte 259",      "Asynchronous Event Request Limit",                 byte(259),        hex()).as("aerl"),
    group("Byte 260",      "Firmware Updates",                                 byte(260),        hex(),   kFirmwareUpdates).as("frmw"),
    group("Byte 261",      "Log Page Attributes",                              byte(261),        hex(),   kLogPageAttributes).as("lpa"),
    field("Byte 262",      "Error Log Page Entries",                           byte(262),        hex()).as("elpe"),
    field("Byte 263",      "Number of Power States Support",                   byte(263),        hex()).as("npss"),
    group("Byte 264",      "Admin Vendor Specific Cmd Configuration",          byte(264),        hex(),   kAdminVendorSpecific).as("avscc"),
    group("Byte 265",      "Autonomous Power State Transition Attributes",     byte(265),        hex(),   kAutonomousPowerStates).since(kNVMe1_2).as("apsta"),
    field("Byte 266-267",  "Warning Composite Temperature Threshold",          range(266, 267),  decimal).since(kNVMe1_2).as("wctemp"),
    field("Byte 268-269",  "Critical Composite Temperature Threshold",         range(268, 269),  decimal).since(kNVMe1_2).as("cctemp"),
    field("Byte 270-271",  "Maximum Time Firmware Activation",                 range(270, 271),  decimal).since(kNVMe1_2).as("mtfa"),
    field("Byte 272-275",  "Host Memory Buffer Preferred Size",                range(272, 275),  decimal).since(kNVMe1_2).as("hmpre"),
    field("Byte 276-279",  "Host Memory Buffer Minimum Size",                  range(276, 279),  decimal).since(kNVMe1_2).as("hmmin"),
    field("Byte 280-295",  "Total NVM Capacity",                               range(280, 295),  hex128).since(kNVMe1_2).as("tnvmcap"),
    field("Byte 296-311",  "Unallocated NVM Capacity",                         range(296, 311),  hex128).since(kNVMe1_2).as("unvmcap"),
    group("Byte 312-315",  "Replay Protected Memory Block Support",            range(312, 315),  hex(),   kReplayProtectedMemory).since(kNVMe1_2).as("rpmbs"),
    field("Byte 316-317",  "Extended Device Self-Test Time",                   range(316, 317),  decimal).since(kNVMe1_3).as("edstt"),
    group("Byte 318",      "Device Self-Test Options",                         byte(318),        decimal, kSelfTestOptions).since(kNVMe1_3).as("dsto"),
    field("Byte 319",      "Firmware Update Granularity",                      byte(319),        decimal).since(kNVMe1_3).as("fwug"),
    field("Byte 320-321",  "Keep Alive Support",                               range(320, 321),  decimal).since(kNVMe1_3).as("kas"),
    group("Byte 322-323",  "Host Controlled Thermal Management Attributes",    range(322, 323),  decimal, kThermalManagement).since(kNVMe1_3).as("hctma"),
    field("Byte 324-325",  "Minimum Thermal Management Temperature",           range(324, 325),  decimal).since(kNVMe1_3).as("mntmt"),
    field("Byte 326-327",  "Maximum Thermal Management Temperature",           range(326, 327),  decimal).since(kNVMe1_3).as("mxtmt"),
    group("Byte 328-331",  "Sanitize Capabilities",                            range(328, 331),  hex(),   kSanitize).since(kNVMe1_3).as("sanicap"),
    field("Byte 332-335",  "Host Memory Buffer Minimum Descriptor Entry Size", range(332, 335),  decimal).since(kNVMe1_4).as("hmminds"),
    field("Byte 336-337",  "Host Memory Maximum Descriptors Entries",          range(336, 337),  decimal).since(kNVMe1_4).as("hmmaxd"),
    field("Byte 338-339",  "NVM Set Identifier Maximum",                       range(338, 339),  decimal).since(kNVMe1_4).as("nsetidmax"),
    field("Byte 340-341",  "Endurance Group Identifier Maximum",               range(340, 341),  decimal).since(kNVMe1_4).as("endgidmax"),
    field("Byte 342",      "ANA Transition Time",                              byte(342),        decimal).since(kNVMe1_4).as("anatt"),
    group("Byte 342",      "ANA Transition Time",                              byte(343),        hex(2),  kAnaCapabilities).since(kNVMe1_4).as("anacap"),
    field("Byte 344-347",  "ANA Group Identifier Maximum",                     range(344, 347),  decimal).since(kNVMe1_4).as("anagrpmax"),
    field("Byte 348-451",  "Number of ANA Group Identifiers",                  range(348, 351),  decimal).since(kNVMe1_4).as("nanagrpid"),
    field("Byte 352-355",  "Persistent Event Log Size",                        range(352, 355),  decimal).since(kNVMe1_4).as("pels"),
    reserved("Byte 356-511").since(kNVMe1_4),
    reserved("Byte 332-511").since(kNVMe1_3).until(kNVMe1_4),
    reserved("Byte 316-511").since(kNVMe1_2).until(kNVMe1_3 | kNVMe1_4),
    reserved("Byte 265-511").until(kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    group("Byte 512",      "Submission Queue Entry Size",                      byte(512),        hex(),   kQueueEntrySize).as("sqes"),
    group("Byte 513",      "Completion Queue Entry Size",                      byte(513),        hex(),   kQueueEntrySize).as("cqes"),
    field("Byte 514-515",  "Maximum Outstanding Commands",                     range(514, 515),  decimal).since(kNVMe1_3).as("maxcmd"),
    reserved("Byte 514-515").until(kNVMe1_3),
    field("Byte 516-519",  "Number of Namespaces",                             range(516, 519),  hex()).as("nn"),
    group("Byte 520-521",  "Optional NVM Command Support",                     range(520, 521),  hex(),   kNvmCommands).as("oncs"),
    group("Byte 522-523",  "Fused Operation Support",                          range(522, 523),  hex(),   kFusedOperations).as("fuses"),
    group("Byte 524",      "Format NVM Attributes",                            byte(524),        hex(),   kFormatNvmAttributes).as("fna"),
    group("Byte 525",      "Volatile Write Cache",                             byte(525),        hex(),   kVolatileWriteCache).as("vwc"),
    field("Byte 526-527",  "Atomic Write Unit Normal",                         range(526, 527),  hex()).as("awun"),
    field("Byte 528-529",  "Atomic Write Unit Power Fail",                     range(528, 529),  hex()).as("awupf"),
    group("Byte 530",      "NVM Vendor Specific Command Configuration",        byte(530),        hex(),   kNvmVendorSpecific).as("nvscc"),
    group("Byte 531",      "Namespace Write Protection Capabilities",          byte(531),        decimal, kWriteProtection).since(kNVMe1_2 | kNVMe1_4).as("nwpc"),
    reserved("Byte 531").since(kNVMe1_2).until(kNVMe1_4),
    field("Byte 532-533",  "Atomic Compare and Write Unit",                    range(532, 533),  decimal).since(kNVMe1_2).as("acwu"),
    reserved("Byte 534-535").since(kNVMe1_2),
    group("Byte 536-539",  "SGL Support",                                      range(536, 539),  hex(),   kSglSupport).since(kNVMe1_2).as("sgls"),
    field("Byte 540-543",  "Maximum Number of Allowed Namespaces",             range(540, 543),  decimal).since(kNVMe1_4).as("mnan"),
    reserved("Byte 544-767").since(kNVMe1_4),
    reserved("Byte 540-767").since(kNVMe1_3).until(kNVMe1_4),
    reserved("Byte 540-2047").since(kNVMe1_2).until(kNVMe1_3 | kNVMe1_4),
    reserved("Byte 531-2047").until(kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    field("Byte 768-1023", "NVM Subsystem NVMe Qualified name",                range(768, 1023), text).since(kNVMe1_3).as("subnqn"),
    reserved("Byte 1024-2047").since(kNVMe1_3),
};

// Shown only for the two editions of the first family.
constexpr Row kPcieRefclk[] = {
    field("Byte 3072", "Auto Detected PCIe Refclk", byte(3072), decimal),
};

constexpr Row kVeldraFields[] = {
    field("Byte 3075",      "Stripe Size",                      byte(3075),        decimal).named(kStripeSize),
    field("Byte 3076-3095", "Standardized Failure Mode String", range(3076, 3095), textOr("Healthy")),
    field("Byte 3096",      "Current PCIe Link Speed",          byte(3096),        decimal),
    field("Byte 3097",      "Negotiated PCIe Link Width",       byte(3097),        decimal),
    field("Byte 3098",      "Security Capabilities",            byte(3098),        decimal),
    field("Byte 3099",      "Security Status",                  byte(3099),        decimal),
    field("Byte 3100-3107", "Bootloader Revision",              range(3100, 3107), text),
};

constexpr Row kBridgeFields[] = {
    field("Byte 3840",      "Bridge Current Temp",              byte(3840),        hex()),
    field("Byte 3841",      "Bridge Over Temp Last",            byte(3841),        hex()),
    field("Byte 3842",      "Bridge Over Temp Life",            byte(3842),        hex()),
    field("Byte 3843",      "Bridge Min Temp Life",             byte(3843),        hex()),
    field("Byte 3844",      "Bridge Max Temp Life",             byte(3844),        hex()),
    field("Byte 3904",      "Bridge EEPROM Version",            byte(3904),        hex()),
    field("Byte 3905-3912", "Core Firmware Revision",           range(3905, 3912), text),
    field("Byte 3913-3914", "Bridge EEPROM Device ID",          range(3913, 3914), hex()),
    field("Byte 3936",      "This Port Current Link Speed",     byte(3936),        hex()),
    field("Byte 3937",      "This Port Negotiated Link Width",  byte(3937),        hex()),
    field("Byte 3938",      "Other Port Current Link Speed",    byte(3938),        hex()),
    field("Byte 3939",      "Other Port Negotiated Link Width", byte(3939),        hex()),
    field("Byte 3940",      "Background Link Speed",            byte(3940),        hex()),
    field("Byte 3941",      "Background Link Width",            byte(3941),        hex()),
};

// The blank that opens " Byte 3114-3115" has always been there.
constexpr Row kOemFields[] = {
    field("Byte 3108-3109",  "Vendor ID",           range(3108, 3109), hex()),
    field("Byte 3110-3111",  "Device ID",           range(3110, 3111), hex()),
    field("Byte 3112-3113",  "Subsystem Vendor ID", range(3112, 3113), hex()),
    field(" Byte 3114-3115", "Subsystem ID",        range(3114, 3115), hex()),
    field("Byte 3116-3123",  "Oracle Part Number",  range(3116, 3123), text),
    field("Byte 3124-3139",  "Oracle Model Number", range(3124, 3139), text),
};
// clang-format on

constexpr uint32_t kPowerStateCountByte = 263;
constexpr uint32_t kFirstPowerState = 2048;
constexpr uint32_t kPowerStateSize = 32;

// As many descriptors as byte 263 says plus one. The count has no bound of its own; the walk
// stops where the payload does.
void addPowerStates(core::xml::XmlObject& root, const Source& source) {
  const ListWalk descriptors{kFirstPowerState, kPowerStateSize,
                             source.payload.data()[kPowerStateCountByte] + 1u};
  descriptors.walk(source.payload.size(), [&](uint32_t offset, uint32_t index) {
    const std::string name =
        "Byte " + std::to_string(offset) + "-" + std::to_string(offset + kPowerStateSize - 1);
    const std::string description = "Power State " + std::to_string(index) + " Descriptor";
    addFields(root,
              group(name.c_str(), description.c_str(), Bytes{offset, kPowerStateSize}, empty,
                    kPowerStateDescriptor)
                  .as("psds")
                  .repeated(),
              source);
    return true;
  });
}

// Which vendor blocks a drive has follows from its `VeldraNVMe`, `Product` and `OEM`
// attributes, never from its NVMe version.
void addVendorFields(core::xml::XmlObject& root, const Source& source,
                     const core::AttributeCollection& attributes) {
  namespace products = core::products;
  const std::string product = core::readString(attributes, core::properties::product());
  if (core::readBool(attributes, core::properties::veldraNVMe())) {
    if (core::strings::contains(product, products::ProductFamilyOneRefresh, true) ||
        core::strings::contains(product, products::ProductFamilyOneRR, true)) {
      addFields(root, kPcieRefclk, source);
    }
    addFields(root, kVeldraFields, source);
  }
  if (product == products::ProductFamilyThree || product == products::ProductFamilyFourDP) {
    addFields(root, kBridgeFields, source);
  }
  if (core::strings::contains(product, products::ProductFamilyFour, true) &&
      core::readString(attributes, core::properties::oem()) == "Oracle") {
    addFields(root, kOemFields, source);
  }
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload,
                                                  const core::AttributeCollection& attributes) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kReplySize) {
    return root;
  }
  nameRoot(*root, "Identify Controller");
  const Source source{payload, 0, versionsOf(attributes)};
  addFields(*root, kFields, source);
  addPowerStates(*root, source);
  addVendorFields(*root, source, attributes);
  return root;
}

}  // namespace orlo::features::identify::nvme::controllerData
