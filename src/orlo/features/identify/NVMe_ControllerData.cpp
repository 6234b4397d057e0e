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

// Every row reads the bytes or bits its label names, unless it says otherwise: where the two
// disagree, the label is what drives have always been shown and stays, and the row names the
// bytes or bits it has always read.

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
    field("Bit 3", "Asymmetric Namespac Access Reporting Supported", decimal).since(kNVMe1_4),
    field("Bit 2", "SR-IOV Virtual Function Association",            decimal).since(kNVMe1_1),
    field("Bit 1", "Multiple NVM Subsystem Controllers",             decimal).since(kNVMe1_1),
    field("Bit 0", "Multiple NVM Subsystem Ports",                   decimal),
};

// The labels run the other way to the bytes read.
constexpr Row kVersion[] = {
    field("Bit 31:24", "Tertiary Version", decimal).readsBits(bits(7, 0)),
    field("Bit 23:16", "Minor Version",    decimal).readsBits(bits(15, 8)),
    field("Bit 15:0",  "Major Version",    decimal).readsBits(bits(31, 16)),
};

constexpr Row kAsynchronousEvents[] = {
    field("Bit 31", "Bit 31 is set to 1 if the controller supports sending Discovery Log Page Change Notifications.", decimal).since(kNVMe2_0).as("discovery_log_change_notices"),
    field("Bit 27", "Bit 27 is set to 1 if the controller supports the Zone Descriptor Changed Notices event and the associated Changed Zone List log page", decimal).since(kNVMe2_0).as("zone_descriptor_changed_notices"),
    field("Bit 15", "Bit 15 is set to 1 if the controller supports the Normal NVM Subsystem Shutdown event.", decimal).since(kNVMe2_0).as("normal_nvm_subsystem_shutdown"),
    field("Bit 14", "Endurance Group Even Aggregate Log Page Change Notices Event Supported", decimal).since(kNVMe1_4),
    field("Bit 13", "LBA Status Information Notices Event Supported",       decimal).since(kNVMe1_4),
    field("Bit 12", "Prodictable Latency Event Aggregate Log Change Notices Event Supported", decimal).since(kNVMe1_4),
    field("Bit 11", "Asymmetric namespace Access Change Notices Supported", decimal).since(kNVMe1_4),
    field("Bit 9",  "Firmware Activation Notices Support",                  decimal).since(kNVMe1_3),
    field("Bit 8",  "Namespace Attribute Changed Support",                  decimal),
};

constexpr Row kControllerAttributes[] = {
    field("Bit 9", "UUID List Support",                           decimal).since(kNVMe1_4),
    field("Bit 8", "SQ Associations Support",                     decimal).since(kNVMe1_4),
    field("Bit 7", "Namespace Granularity Support",               decimal).since(kNVMe1_4),
    field("Bit 6", "Traffic Based Keep Alive Support",            decimal).since(kNVMe1_4),
    field("Bit 5", "Predictable Latency Mode Support",            decimal).since(kNVMe1_4),
    field("Bit 4", "Endurance Groups Support",                    decimal).since(kNVMe1_4),
    field("Bit 3", "Read Recovery Levels Support",                decimal).since(kNVMe1_4),
    field("Bit 2", "NVM Sets Support",                            decimal).since(kNVMe1_4),
    field("Bit 1", "Non-Operational Power State Permissive Mode", decimal),
    field("Bit 0", "128-bit Host Identifier Support",             decimal),
};

// Lowest bit first, unlike the other groups.
constexpr Row kReadRecoveryLevels[] = {
    field("Bit 0",  "Read Recovery Level 0",  decimal),
    field("Bit 1",  "Read Recovery Level 1",  decimal),
    field("Bit 2",  "Read Recovery Level 2",  decimal),
    field("Bit 3",  "Read Recovery Level 3",  decimal),
    field("Bit 4",  "Read Recovery Level 4",  decimal),
    field("Bit 5",  "Read Recovery Level 5",  decimal),
    field("Bit 6",  "Read Recovery Level 6",  decimal),
    field("Bit 7",  "Read Recovery Level 7",  decimal),
    field("Bit 8",  "Read Recovery Level 8",  decimal),
    field("Bit 9",  "Read Recovery Level 9",  decimal),
    field("Bit 10", "Read Recovery Level 10", decimal),
    field("Bit 11", "Read Recovery Level 11", decimal),
    field("Bit 12", "Read Recovery Level 12", decimal),
    field("Bit 13", "Read Recovery Level 13", decimal),
    field("Bit 14", "Read Recovery Level 14", decimal),
    field("Bit 15", "Read Recovery Level 15", decimal),
};

constexpr Row kSubsystemReport[] = {
    field("Bit 1", "NVMe Enclosure",      decimal),
    field("Bit 0", "NVMe Storage Device", decimal),
};

constexpr Row kVpdWriteCycles[] = {
    field("Bit 7",   "VPD Write Cycle Remaining Valid", decimal),
    field("Bit 0-6", "VPD Write Cycles Remaining",      hex()),
};

constexpr Row kManagementEndpoints[] = {
    field("Bit 1", "PCIe Port Management Endpoint",      decimal),
    field("Bit 0", "SMBus/I2C Port Management Endpoint", decimal),
};

constexpr Row kAdminCommands[] = {
    field("Bit 9", "Support Get LBA Status",                      decimal).since(kNVMe1_3 | kNVMe1_4),
    field("Bit 8", "Support Doorbell Buffer Config",              decimal).since(kNVMe1_3),
    field("Bit 7", "Support Virtualization Management",           decimal).since(kNVMe1_3),
    field("Bit 6", "Support NVMe-MI Send/Receive",                decimal).since(kNVMe1_3),
    field("Bit 5", "Support Directives",                          decimal).since(kNVMe1_3),
    field("Bit 4", "Support Device Self Test",                    decimal).since(kNVMe1_3),
    field("Bit 3", "Support Namespace Management and Attachment", decimal).since(kNVMe1_2),
    field("Bit 2", "Support Firmware Activate Download",          decimal),
    field("Bit 1", "Support Format NVM",                          decimal),
    field("Bit 0", "Support Security Send Receive",               decimal),
};

constexpr Row kFirmwareUpdates[] = {
    field("Bit 4",   "Firmware Activation with No Reset", hex()).since(kNVMe1_2),
    field("Bit 3:1", "Number FW Slots Support",           hex()),
    field("Bit 0",   "Is FW Slot Read Only",              hex()),
};

constexpr Row kLogPageAttributes[] = {
    field("Bit 6", "Support Telemetry Data Area 4",                       decimal).since(kNVMe2_0),
    field("Bit 5", "Support Command Effects Log Enhancements (TP 4071b)", decimal).since(kNVMe1_4),
    field("Bit 4", "Support Persistent Event Log",                        decimal).since(kNVMe1_4),
    field("Bit 3", "Support Telemetry Log",                               decimal).since(kNVMe1_4),
    field("Bit 2", "Support Extended Get Log Page",                       decimal).since(kNVMe1_4),
    field("Bit 1", "Support Commands Effects Log",                        decimal).since(kNVMe1_4),
    field("Bit 0", "Support SMART Per Namespace",                         decimal),
};

constexpr Row kAdminVendorSpecific[] = {
    field("Bit 0", "Admin Vendor Specific CMD Format", decimal),
};

constexpr Row kAutonomousPowerStates[] = {
    field("Bit 0", "Autonomous Power State Transitions Support", decimal),
};

constexpr Row kReplayProtectedMemory[] = {
    field("Bit 31:24", "Access Size",           decimal),
    field("Bit 23:16", "Total Size",            decimal),
    field("Bit 5:3",   "Authentication Method", decimal),
    field("Bit 2:0",   "Number of RPMB Units",  decimal),
};

constexpr Row kSelfTestOptions[] = {
    field("Bit 0", "One Self-Test Operation At A Time", decimal),
};

constexpr Row kThermalManagement[] = {
    field("Bit 0", "Thermal Management Support", decimal),
};

constexpr Row kSanitize[] = {
    field("Bit 30-31", "No Deallocate Modifies Media After Sanitize", decimal).since(kNVMe1_4),
    field("Bit 29",    "No Deallocate Inhibited",                     decimal).since(kNVMe1_4),
    field("Bit 2",     "Overwrite Support",                           decimal),
    field("Bit 1",     "Block Erase Support",                         decimal),
    field("Bit 0",     "Crypto Erase Support",                        decimal),
};

constexpr Row kAnaCapabilities[] = {
    field("Bit 7", "ANAGRPID Non-Zero Value Support",          decimal),
    field("Bit 6", "ANAGRPID Change While Namespace Attached", decimal),
    field("Bit 4", "ANA Change State Report",                  decimal),
    field("Bit 3", "ANA Persistent Loss State Report",         decimal),
    field("Bit 2", "ANA Inaccesible State Report",             decimal),
    field("Bit 1", "ANA Non-Optimized State Report",           decimal),
    field("Bit 0", "ANA Optimized State Report",               decimal),
};

constexpr Row kQueueEntrySize[] = {
    field("Bit 7:4", "Maximum Entry Size", hex()),
    field("Bit 3:0", "Minimum Entry Size", hex()),
};

constexpr Row kNvmCommands[] = {
    field("Bit 7", "Verify Command Support",              hex()).since(kNVMe1_4).named(kZeroRun),
    field("Bit 6", "Timestamp Feature Support",           hex()).since(kNVMe1_3),
    field("Bit 5", "Reservations Support",                hex()).since(kNVMe1_2),
    field("Bit 4", "Save Field Support",                  hex()).since(kNVMe1_2),
    field("Bit 3", "Write Zeroes Support",                hex()).since(kNVMe1_2),
    field("Bit 2", "Dataset Management Command Support",  hex()),
    field("Bit 1", "Write Uncorrectable Command Support", hex()),
    field("Bit 0", "Compare Command Support",             hex()),
};

constexpr Row kFusedOperations[] = {
    field("Bit 0", "Compare and Write Fused Operation Support", hex()),
};

constexpr Row kFormatNvmAttributes[] = {
    field("Bit 2", "cryptographic Erase Support",         hex()),
    field("Bit 1", "secure Erase All Namespaces Support", hex()),
    field("Bit 0", "format All Namespaces Support",       hex()),
};

constexpr Row kVolatileWriteCache[] = {
    field("Bit 1-2", "Flush Command Behavior",       hex()),
    field("Bit 0",   "Volatile Write Cache Present", hex()),
};

constexpr Row kNvmVendorSpecific[] = {
    field("Bit 0", "NVM Vendor Specific CMD Format", hex()),
};

// "Bit 1" reads bit 2, so it always repeats "Bit 2".
constexpr Row kWriteProtection[] = {
    field("Bit 2", "Permanent Write Protect State Support",   decimal),
    field("Bit 1", "Write Protect Until Power Cycle Support", decimal).readsBits(bit(2)),
    field("Bit 0", "No Write Protect Support",                decimal),
};

constexpr Row kSglSupport[] = {
    field("Bit 21",  "Transport SGL Data Block Descriptor Support",        hex()).since(kNVMe1_4),
    field("Bit 20",  "Address Field in SGL Data Block Support",            hex()).since(kNVMe1_3),
    field("Bit 19",  "Metadata Pointer Containing SGL Descriptor Support", hex()).since(kNVMe1_3),
    field("Bit 18",  "SGL Data Extended Length Support",                   hex()),
    field("Bit 17",  "Byte Aligned Contiguous Buffer Support",             hex()),
    field("Bit 16",  "SGL Bit Bucket Descriptor Support",                  hex()),
    field("Bit 2",   "Keyed SGL Data Block Descriptor Support",            hex()).since(kNVMe1_3),
    field("Bit 0:1", "SGL Support for NVM Command Set",                    hex()),
};

// One 32-byte power state descriptor. The four relative rows take the whole byte.
constexpr Row kPowerStateDescriptor[] = {
    field("Bit 183:182", "Active Power Scale",        hex()).since(kNVMe1_2),
    field("Bit 178:176", "Active Power Workload",     hex()).since(kNVMe1_2),
    field("Bit 175:160", "Active Power",              hex()).since(kNVMe1_2),
    field("Bit 151:150", "Idle Power Scale",          hex()).since(kNVMe1_2),
    field("Bit 143:128", "Idle Power",                hex()).since(kNVMe1_2),
    field("Bit 124:120", "Relative Write Latency",    hex()).readsBits(bits(127, 120)),
    field("Bit 116:112", "Relative Write Throughput", hex()).readsBits(bits(119, 112)),
    field("Bit 108:104", "Relative Read Latency",     hex()).readsBits(bits(111, 104)),
    field("Bit 100:96",  "Relative Read Throughput",  hex()).readsBits(bits(103, 96)),
    field("Bit 95:64",   "Exit Latency",              hex()),
    field("Bit 63:32",   "Entry Latency",             hex()),
    field("Bit 25",      "Non-Operational State",     hex()).since(kNVMe1_2),
    field("Bit 24",      "Maximum Power Scale",       hex()).since(kNVMe1_2),
    field("Bit 15:0",    "Maximum Power",             hex()),
};

constexpr uint32_t kPowerStateCountByte = 263;
constexpr uint32_t kFirstPowerState = 2048;
constexpr uint32_t kPowerStateSize = 32;

// The reserved fillers have one row per version; exactly one of them holds, the newest
// version the drive claims choosing it, so that each version's rows cover the bytes before
// the power states once.
constexpr Row kFields[] = {
    field("Byte 0-1",      "PCI Vendor ID (VID)",                              hex(4)),
    field("Byte 2-3",      "PCI Subsystem Vendor ID (SSVID)",                  hex(4)),
    field("Byte 4-23",     "Serial Number",                                    text).as("sn"),
    field("Byte 24-63",    "Model Number",                                     text).as("mn"),
    field("Byte 64-71",    "Firmware Revision",                                text).as("fr"),
    field("Byte 72",       "Recommended Arbitration Burst (RAB)",              hex(2)),
    // Shows the three bytes after its own as well.
    field("Byte 73-75",    "IEEE Organization Unique Identifier",              longHex).readsPast(range(73, 78)).as("ieee"),
    group("Byte 76",       "Multi-Path I/O Capabilities",                      hex(),   kMultiPathIo).as("cmic"),
    field("Byte 77",       "Maximum Data Transfer Size",                       hex()).as("mdts"),
    field("Byte 78-79",    "Controller ID",                                    decimal).since(kNVMe1_1).as("cntlid"),
    group("Byte 80-83",    "Version",                                          hex(4),  kVersion).since(kNVMe1_2).as("ver"),
    field("Byte 84-87",    "RTD3 Resume Latency",                              decimal).since(kNVMe1_2).as("rtd3r"),
    field("Byte 88-91",    "RTD3 Entry Latency",                               decimal).since(kNVMe1_2).as("rtd3e"),
    group("Byte 92-95",    "Optional Asynchronous Events Supported",           hex(8),  kAsynchronousEvents).since(kNVMe1_2).as("oaes"),
    group("Byte 96-99",    "Controller Attributes",                            hex(),   kControllerAttributes).since(kNVMe1_3).as("ctratt"),
    group("Byte 100-101",  "Read Recovery Levels Supported",                   decimal, kReadRecoveryLevels).since(kNVMe1_3 | kNVMe1_4).as("rrls"),
    reserved("Byte 102-110").since(kNVMe1_3 | kNVMe1_4),
    field("Byte 111",      "Controller Type",                                  decimal).since(kNVMe1_3 | kNVMe1_4).as("cntrltype"),
    reserved("Byte 100-111").since(kNVMe1_3).until(kNVMe1_4),
    field("Byte 112-127",  "FRU Globally Unique Identifier",                   hex128).since(kNVMe1_3).as("fguid"),
    field("Byte 128-129",  "Command Retry Delay Time 1",                       decimal).since(kNVMe1_4).as("crdt1"),
    field("Byte 130-131",  "Command Retry Delay Time 2",                       decimal).since(kNVMe1_4).as("crdt2"),
    field("Byte 132-133",  "Command Retry Delay Time 3",                       decimal).since(kNVMe1_4).as("crdt3"),
    reserved("Byte 134-239").since(kNVMe1_4),
    reserved("Byte 128-239").since(kNVMe1_3).until(kNVMe1_4),
    reserved("Byte 96-239").since(kNVMe1_2).until(kNVMe1_3 | kNVMe1_4),
    reserved("Byte 80-255").since(kNVMe1_1).until(kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    reserved("Byte 78-255").until(kNVMe1_1 | kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    reserved("Byte 240-252").since(kNVMe1_2),
    group("Byte 253",      "NVM Subsystem Report",                             hex(),   kSubsystemReport).since(kNVMe1_2).as("nvmsr"),
    group("Byte 254",      "VPD Write Cycle Information",                      hex(),   kVpdWriteCycles).since(kNVMe1_2).as("vwci"),
    group("Byte 255",      "Management Endpoint Capabilities",                 hex(),   kManagementEndpoints).since(kNVMe1_2).as("mec"),
    group("Byte 256-257",  "Optional Admin Command Support",                   hex(),   kAdminCommands).as("oacs"),
    field("Byte 258",      "Abort Command Limit",                              hex()).as("acl"),
    field("Byte 259",      "Asynchronous Event Request Limit",                 hex()).as("aerl"),
    group("Byte 260",      "Firmware Updates",                                 hex(),   kFirmwareUpdates).as("frmw"),
    group("Byte 261",      "Log Page Attributes",                              hex(),   kLogPageAttributes).as("lpa"),
    field("Byte 262",      "Error Log Page Entries",                           hex()).as("elpe"),
    field("Byte 263",      "Number of Power States Support",                   hex()).as("npss"),
    group("Byte 264",      "Admin Vendor Specific Cmd Configuration",          hex(),   kAdminVendorSpecific).as("avscc"),
    group("Byte 265",      "Autonomous Power State Transition Attributes",     hex(),   kAutonomousPowerStates).since(kNVMe1_2).as("apsta"),
    field("Byte 266-267",  "Warning Composite Temperature Threshold",          decimal).since(kNVMe1_2).as("wctemp"),
    field("Byte 268-269",  "Critical Composite Temperature Threshold",         decimal).since(kNVMe1_2).as("cctemp"),
    field("Byte 270-271",  "Maximum Time Firmware Activation",                 decimal).since(kNVMe1_2).as("mtfa"),
    field("Byte 272-275",  "Host Memory Buffer Preferred Size",                decimal).since(kNVMe1_2).as("hmpre"),
    field("Byte 276-279",  "Host Memory Buffer Minimum Size",                  decimal).since(kNVMe1_2).as("hmmin"),
    field("Byte 280-295",  "Total NVM Capacity",                               hex128).since(kNVMe1_2).as("tnvmcap"),
    field("Byte 296-311",  "Unallocated NVM Capacity",                         hex128).since(kNVMe1_2).as("unvmcap"),
    group("Byte 312-315",  "Replay Protected Memory Block Support",            hex(),   kReplayProtectedMemory).since(kNVMe1_2).as("rpmbs"),
    field("Byte 316-317",  "Extended Device Self-Test Time",                   decimal).since(kNVMe1_3).as("edstt"),
    group("Byte 318",      "Device Self-Test Options",                         decimal, kSelfTestOptions).since(kNVMe1_3).as("dsto"),
    field("Byte 319",      "Firmware Update Granularity",                      decimal).since(kNVMe1_3).as("fwug"),
    field("Byte 320-321",  "Keep Alive Support",                               decimal).since(kNVMe1_3).as("kas"),
    group("Byte 322-323",  "Host Controlled Thermal Management Attributes",    decimal, kThermalManagement).since(kNVMe1_3).as("hctma"),
    field("Byte 324-325",  "Minimum Thermal Management Temperature",           decimal).since(kNVMe1_3).as("mntmt"),
    field("Byte 326-327",  "Maximum Thermal Management Temperature",           decimal).since(kNVMe1_3).as("mxtmt"),
    group("Byte 328-331",  "Sanitize Capabilities",                            hex(),   kSanitize).since(kNVMe1_3).as("sanicap"),
    field("Byte 332-335",  "Host Memory Buffer Minimum Descriptor Entry Size", decimal).since(kNVMe1_4).as("hmminds"),
    field("Byte 336-337",  "Host Memory Maximum Descriptors Entries",          decimal).since(kNVMe1_4).as("hmmaxd"),
    field("Byte 338-339",  "NVM Set Identifier Maximum",                       decimal).since(kNVMe1_4).as("nsetidmax"),
    field("Byte 340-341",  "Endurance Group Identifier Maximum",               decimal).since(kNVMe1_4).as("endgidmax"),
    field("Byte 342",      "ANA Transition Time",                              decimal).since(kNVMe1_4).as("anatt"),
    // The capabilities are labelled and described as the byte before them.
    group("Byte 342",      "ANA Transition Time",                              hex(2),  kAnaCapabilities).readsBytes(byte(343)).since(kNVMe1_4).as("anacap"),
    field("Byte 344-347",  "ANA Group Identifier Maximum",                     decimal).since(kNVMe1_4).as("anagrpmax"),
    // Four bytes, whatever the label's second number says.
    field("Byte 348-451",  "Number of ANA Group Identifiers",                  decimal).readsBytes(range(348, 351)).since(kNVMe1_4).as("nanagrpid"),
    field("Byte 352-355",  "Persistent Event Log Size",                        decimal).since(kNVMe1_4).as("pels"),
    reserved("Byte 356-511").since(kNVMe1_4),
    reserved("Byte 332-511").since(kNVMe1_3).until(kNVMe1_4),
    reserved("Byte 316-511").since(kNVMe1_2).until(kNVMe1_3 | kNVMe1_4),
    reserved("Byte 265-511").until(kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    group("Byte 512",      "Submission Queue Entry Size",                      hex(),   kQueueEntrySize).as("sqes"),
    group("Byte 513",      "Completion Queue Entry Size",                      hex(),   kQueueEntrySize).as("cqes"),
    field("Byte 514-515",  "Maximum Outstanding Commands",                     decimal).since(kNVMe1_3).as("maxcmd"),
    reserved("Byte 514-515").until(kNVMe1_3),
    field("Byte 516-519",  "Number of Namespaces",                             hex()).as("nn"),
    group("Byte 520-521",  "Optional NVM Command Support",                     hex(),   kNvmCommands).as("oncs"),
    group("Byte 522-523",  "Fused Operation Support",                          hex(),   kFusedOperations).as("fuses"),
    group("Byte 524",      "Format NVM Attributes",                            hex(),   kFormatNvmAttributes).as("fna"),
    group("Byte 525",      "Volatile Write Cache",                             hex(),   kVolatileWriteCache).as("vwc"),
    field("Byte 526-527",  "Atomic Write Unit Normal",                         hex()).as("awun"),
    field("Byte 528-529",  "Atomic Write Unit Power Fail",                     hex()).as("awupf"),
    group("Byte 530",      "NVM Vendor Specific Command Configuration",        hex(),   kNvmVendorSpecific).as("nvscc"),
    group("Byte 531",      "Namespace Write Protection Capabilities",          decimal, kWriteProtection).since(kNVMe1_2 | kNVMe1_4).as("nwpc"),
    reserved("Byte 531").since(kNVMe1_2).until(kNVMe1_4),
    field("Byte 532-533",  "Atomic Compare and Write Unit",                    decimal).since(kNVMe1_2).as("acwu"),
    reserved("Byte 534-535").since(kNVMe1_2),
    group("Byte 536-539",  "SGL Support",                                      hex(),   kSglSupport).since(kNVMe1_2).as("sgls"),
    field("Byte 540-543",  "Maximum Number of Allowed Namespaces",             decimal).since(kNVMe1_4).as("mnan"),
    reserved("Byte 544-767").since(kNVMe1_4),
    reserved("Byte 540-767").since(kNVMe1_3).until(kNVMe1_4),
    reserved("Byte 540-2047").since(kNVMe1_2).until(kNVMe1_3 | kNVMe1_4),
    reserved("Byte 531-2047").until(kNVMe1_2 | kNVMe1_3 | kNVMe1_4),
    field("Byte 768-1023", "NVM Subsystem NVMe Qualified name",                text).since(kNVMe1_3).as("subnqn"),
    reserved("Byte 1024-2047").since(kNVMe1_3),
};

static_assert(tilesEachVersion(kFields, kFirstPowerState));

// Shown only for the two editions of the first family.
constexpr Row kPcieRefclk[] = {
    field("Byte 3072", "Auto Detected PCIe Refclk", decimal),
};

constexpr Row kVeldraFields[] = {
    field("Byte 3075",      "Stripe Size",                      decimal).named(kStripeSize),
    field("Byte 3076-3095", "Standardized Failure Mode String", textOr("Healthy")),
    field("Byte 3096",      "Current PCIe Link Speed",          decimal),
    field("Byte 3097",      "Negotiated PCIe Link Width",       decimal),
    field("Byte 3098",      "Security Capabilities",            decimal),
    field("Byte 3099",      "Security Status",                  decimal),
    field("Byte 3100-3107", "Bootloader Revision",              text),
};

constexpr Row kBridgeFields[] = {
    field("Byte 3840",      "Bridge Current Temp",              hex()),
    field("Byte 3841",      "Bridge Over Temp Last",            hex()),
    field("Byte 3842",      "Bridge Over Temp Life",            hex()),
    field("Byte 3843",      "Bridge Min Temp Life",             hex()),
    field("Byte 3844",      "Bridge Max Temp Life",             hex()),
    field("Byte 3904",      "Bridge EEPROM Version",            hex()),
    field("Byte 3905-3912", "Core Firmware Revision",           text),
    field("Byte 3913-3914", "Bridge EEPROM Device ID",          hex()),
    field("Byte 3936",      "This Port Current Link Speed",     hex()),
    field("Byte 3937",      "This Port Negotiated Link Width",  hex()),
    field("Byte 3938",      "Other Port Current Link Speed",    hex()),
    field("Byte 3939",      "Other Port Negotiated Link Width", hex()),
    field("Byte 3940",      "Background Link Speed",            hex()),
    field("Byte 3941",      "Background Link Width",            hex()),
};

// The blank that opens " Byte 3114-3115" has always been there.
constexpr Row kOemFields[] = {
    field("Byte 3108-3109",  "Vendor ID",           hex()),
    field("Byte 3110-3111",  "Device ID",           hex()),
    field("Byte 3112-3113",  "Subsystem Vendor ID", hex()),
    field(" Byte 3114-3115", "Subsystem ID",        hex()),
    field("Byte 3116-3123",  "Oracle Part Number",  text),
    field("Byte 3124-3139",  "Oracle Model Number", text),
};
// clang-format on

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
