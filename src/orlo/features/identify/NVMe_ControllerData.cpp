#include "orlo/features/identify/NVMe_ControllerData.h"

#include <algorithm>
#include <string>
#include <utility>

#include "orlo/core/ProductNames.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/Strings.h"
#include "orlo/features/identify/ControllerDataRows.h"

namespace orlo::features::identify::nvme::controllerData {

namespace {

// Where a label and the bits it reads disagree, the label is what drives have always been
// shown and stays; the bits are the ones the row has always read.

// clang-format off
const BitRows kMultiPathIo = {
    {"Bit 3", "Asymmetric Namespac Access Reporting Supported", 3, 3, Decimal, since(V1_4)},
    {"Bit 2", "SR-IOV Virtual Function Association",            2, 2, Decimal, since(V1_1)},
    {"Bit 1", "Multiple NVM Subsystem Controllers",             1, 1, Decimal, since(V1_1)},
    {"Bit 0", "Multiple NVM Subsystem Ports",                   0, 0, Decimal},
};

// The labels run the other way to the bytes read.
const BitRows kVersion = {
    {"Bit 31:24", "Tertiary Version",  7,  0, Decimal},
    {"Bit 23:16", "Minor Version",    15,  8, Decimal},
    {"Bit 15:0",  "Major Version",    31, 16, Decimal},
};

const BitRows kAsynchronousEvents = {
    {"Bit 31", "Bit 31 is set to 1 if the controller supports sending Discovery Log Page Change Notifications.", 31, 31, Decimal, since(V2_0)},
    {"Bit 27", "Bit 27 is set to 1 if the controller supports the Zone Descriptor Changed Notices event and the associated Changed Zone List log page", 27, 27, Decimal, since(V2_0)},
    {"Bit 15", "Bit 15 is set to 1 if the controller supports the Normal NVM Subsystem Shutdown event.", 15, 15, Decimal, since(V2_0)},
    {"Bit 14", "Endurance Group Even Aggregate Log Page Change Notices Event Supported", 14, 14, Decimal, since(V1_4)},
    {"Bit 13", "LBA Status Information Notices Event Supported",                        13, 13, Decimal, since(V1_4)},
    {"Bit 12", "Prodictable Latency Event Aggregate Log Change Notices Event Supported", 12, 12, Decimal, since(V1_4)},
    {"Bit 11", "Asymmetric namespace Access Change Notices Supported",                  11, 11, Decimal, since(V1_4)},
    {"Bit 9",  "Firmware Activation Notices Support",                                    9,  9, Decimal, since(V1_3)},
    {"Bit 8",  "Namespace Attribute Changed Support",                                    8,  8, Decimal},
};

const BitRows kControllerAttributes = {
    {"Bit 9", "UUID List Support",                           9, 9, Decimal, since(V1_4)},
    {"Bit 8", "SQ Associations Support",                     8, 8, Decimal, since(V1_4)},
    {"Bit 7", "Namespace Granularity Support",               7, 7, Decimal, since(V1_4)},
    {"Bit 6", "Traffic Based Keep Alive Support",            6, 6, Decimal, since(V1_4)},
    {"Bit 5", "Predictable Latency Mode Support",            5, 5, Decimal, since(V1_4)},
    {"Bit 4", "Endurance Groups Support",                    4, 4, Decimal, since(V1_4)},
    {"Bit 3", "Read Recovery Levels Support",                3, 3, Decimal, since(V1_4)},
    {"Bit 2", "NVM Sets Support",                            2, 2, Decimal, since(V1_4)},
    {"Bit 1", "Non-Operational Power State Permissive Mode", 1, 1, Decimal},
    {"Bit 0", "128-bit Host Identifier Support",             0, 0, Decimal},
};

// Lowest bit first, unlike the other groups.
const BitRows kReadRecoveryLevels = {
    {"Bit 0",  "Read Recovery Level 0",   0,  0, Decimal},
    {"Bit 1",  "Read Recovery Level 1",   1,  1, Decimal},
    {"Bit 2",  "Read Recovery Level 2",   2,  2, Decimal},
    {"Bit 3",  "Read Recovery Level 3",   3,  3, Decimal},
    {"Bit 4",  "Read Recovery Level 4",   4,  4, Decimal},
    {"Bit 5",  "Read Recovery Level 5",   5,  5, Decimal},
    {"Bit 6",  "Read Recovery Level 6",   6,  6, Decimal},
    {"Bit 7",  "Read Recovery Level 7",   7,  7, Decimal},
    {"Bit 8",  "Read Recovery Level 8",   8,  8, Decimal},
    {"Bit 9",  "Read Recovery Level 9",   9,  9, Decimal},
    {"Bit 10", "Read Recovery Level 10", 10, 10, Decimal},
    {"Bit 11", "Read Recovery Level 11", 11, 11, Decimal},
    {"Bit 12", "Read Recovery Level 12", 12, 12, Decimal},
    {"Bit 13", "Read Recovery Level 13", 13, 13, Decimal},
    {"Bit 14", "Read Recovery Level 14", 14, 14, Decimal},
    {"Bit 15", "Read Recovery Level 15", 15, 15, Decimal},
};

const BitRows kSubsystemReport = {
    {"Bit 1", "NVMe Enclosure",      1, 1, Decimal},
    {"Bit 0", "NVMe Storage Device", 0, 0, Decimal},
};

const BitRows kVpdWriteCycles = {
    {"Bit 7",   "VPD Write Cycle Remaining Valid", 7, 7, Decimal},
    {"Bit 0-6", "VPD Write Cycles Remaining",      6, 0, Hex},
};

const BitRows kManagementEndpoints = {
    {"Bit 1", "PCIe Port Management Endpoint",      1, 1, Decimal},
    {"Bit 0", "SMBus/I2C Port Management Endpoint", 0, 0, Decimal},
};

const BitRows kAdminCommands = {
    {"Bit 9", "Support Get LBA Status",                      9, 9, Decimal, since(V1_3 | V1_4)},
    {"Bit 8", "Support Doorbell Buffer Config",              8, 8, Decimal, since(V1_3)},
    {"Bit 7", "Support Virtualization Management",           7, 7, Decimal, since(V1_3)},
    {"Bit 6", "Support NVMe-MI Send/Receive",                6, 6, Decimal, since(V1_3)},
    {"Bit 5", "Support Directives",                          5, 5, Decimal, since(V1_3)},
    {"Bit 4", "Support Device Self Test",                    4, 4, Decimal, since(V1_3)},
    {"Bit 3", "Support Namespace Management and Attachment", 3, 3, Decimal, since(V1_2)},
    {"Bit 2", "Support Firmware Activate Download",          2, 2, Decimal},
    {"Bit 1", "Support Format NVM",                          1, 1, Decimal},
    {"Bit 0", "Support Security Send Receive",               0, 0, Decimal},
};

const BitRows kFirmwareUpdates = {
    {"Bit 4",   "Firmware Activation with No Reset", 4, 4, Hex, since(V1_2)},
    {"Bit 3:1", "Number FW Slots Support",           3, 1, Hex},
    {"Bit 0",   "Is FW Slot Read Only",              0, 0, Hex},
};

const BitRows kLogPageAttributes = {
    {"Bit 6", "Support Telemetry Data Area 4",                       6, 6, Decimal, since(V2_0)},
    {"Bit 5", "Support Command Effects Log Enhancements (TP 4071b)", 5, 5, Decimal, since(V1_4)},
    {"Bit 4", "Support Persistent Event Log",                        4, 4, Decimal, since(V1_4)},
    {"Bit 3", "Support Telemetry Log",                               3, 3, Decimal, since(V1_4)},
    {"Bit 2", "Support Extended Get Log Page",                       2, 2, Decimal, since(V1_4)},
    {"Bit 1", "Support Commands Effects Log",                        1, 1, Decimal, since(V1_4)},
    {"Bit 0", "Support SMART Per Namespace",                         0, 0, Decimal},
};

const BitRows kAdminVendorSpecific = {
    {"Bit 0", "Admin Vendor Specific CMD Format", 0, 0, Decimal},
};

const BitRows kAutonomousPowerStates = {
    {"Bit 0", "Autonomous Power State Transitions Support", 0, 0, Decimal},
};

const BitRows kReplayProtectedMemory = {
    {"Bit 31:24", "Access Size",           31, 24, Decimal},
    {"Bit 23:16", "Total Size",            23, 16, Decimal},
    {"Bit 5:3",   "Authentication Method",  5,  3, Decimal},
    {"Bit 2:0",   "Number of RPMB Units",   2,  0, Decimal},
};

const BitRows kSelfTestOptions = {
    {"Bit 0", "One Self-Test Operation At A Time", 0, 0, Decimal},
};

const BitRows kThermalManagement = {
    {"Bit 0", "Thermal Management Support", 0, 0, Decimal},
};

const BitRows kSanitize = {
    {"Bit 30-31", "No Deallocate Modifies Media After Sanitize", 31, 30, Decimal, since(V1_4)},
    {"Bit 29",    "No Deallocate Inhibited",                     29, 29, Decimal, since(V1_4)},
    {"Bit 2",     "Overwrite Support",                            2,  2, Decimal},
    {"Bit 1",     "Block Erase Support",                          1,  1, Decimal},
    {"Bit 0",     "Crypto Erase Support",                         0,  0, Decimal},
};

const BitRows kAnaCapabilities = {
    {"Bit 7", "ANAGRPID Non-Zero Value Support",          7, 7, Decimal},
    {"Bit 6", "ANAGRPID Change While Namespace Attached", 6, 6, Decimal},
    {"Bit 4", "ANA Change State Report",                  4, 4, Decimal},
    {"Bit 3", "ANA Persistent Loss State Report",         3, 3, Decimal},
    {"Bit 2", "ANA Inaccesible State Report",             2, 2, Decimal},
    {"Bit 1", "ANA Non-Optimized State Report",           1, 1, Decimal},
    {"Bit 0", "ANA Optimized State Report",               0, 0, Decimal},
};

const BitRows kQueueEntrySize = {
    {"Bit 7:4", "Maximum Entry Size", 7, 4, Hex},
    {"Bit 3:0", "Minimum Entry Size", 3, 0, Hex},
};

const BitRows kNvmCommands = {
    {"Bit 7", "Verify Command Support",              7, 7, ZeroBytes, since(V1_4)},
    {"Bit 6", "Timestamp Feature Support",           6, 6, Hex,       since(V1_3)},
    {"Bit 5", "Reservations Support",                5, 5, Hex,       since(V1_2)},
    {"Bit 4", "Save Field Support",                  4, 4, Hex,       since(V1_2)},
    {"Bit 3", "Write Zeroes Support",                3, 3, Hex,       since(V1_2)},
    {"Bit 2", "Dataset Management Command Support",  2, 2, Hex},
    {"Bit 1", "Write Uncorrectable Command Support", 1, 1, Hex},
    {"Bit 0", "Compare Command Support",             0, 0, Hex},
};

const BitRows kFusedOperations = {
    {"Bit 0", "Compare and Write Fused Operation Support", 0, 0, Hex},
};

const BitRows kFormatNvmAttributes = {
    {"Bit 2", "cryptographic Erase Support",         2, 2, Hex},
    {"Bit 1", "secure Erase All Namespaces Support", 1, 1, Hex},
    {"Bit 0", "format All Namespaces Support",       0, 0, Hex},
};

const BitRows kVolatileWriteCache = {
    {"Bit 1-2", "Flush Command Behavior",       2, 1, Hex},
    {"Bit 0",   "Volatile Write Cache Present", 0, 0, Hex},
};

const BitRows kNvmVendorSpecific = {
    {"Bit 0", "NVM Vendor Specific CMD Format", 0, 0, Hex},
};

// "Bit 1" reads bit 2, so it always repeats "Bit 2".
const BitRows kWriteProtection = {
    {"Bit 2", "Permanent Write Protect State Support",   2, 2, Decimal},
    {"Bit 1", "Write Protect Until Power Cycle Support", 2, 2, Decimal},
    {"Bit 0", "No Write Protect Support",                0, 0, Decimal},
};

const BitRows kSglSupport = {
    {"Bit 21",  "Transport SGL Data Block Descriptor Support",        21, 21, Hex, since(V1_4)},
    {"Bit 20",  "Address Field in SGL Data Block Support",            20, 20, Hex, since(V1_3)},
    {"Bit 19",  "Metadata Pointer Containing SGL Descriptor Support", 19, 19, Hex, since(V1_3)},
    {"Bit 18",  "SGL Data Extended Length Support",                   18, 18, Hex},
    {"Bit 17",  "Byte Aligned Contiguous Buffer Support",             17, 17, Hex},
    {"Bit 16",  "SGL Bit Bucket Descriptor Support",                  16, 16, Hex},
    {"Bit 2",   "Keyed SGL Data Block Descriptor Support",             2,  2, Hex, since(V1_3)},
    {"Bit 0:1", "SGL Support for NVM Command Set",                     1,  0, Hex},
};

// One 32-byte power state descriptor. The four relative rows take the whole byte.
const BitRows kPowerStateDescriptor = {
    {"Bit 183:182", "Active Power Scale",         183, 182, Hex, since(V1_2)},
    {"Bit 178:176", "Active Power Workload",      178, 176, Hex, since(V1_2)},
    {"Bit 175:160", "Active Power",               175, 160, Hex, since(V1_2)},
    {"Bit 151:150", "Idle Power Scale",           151, 150, Hex, since(V1_2)},
    {"Bit 143:128", "Idle Power",                 143, 128, Hex, since(V1_2)},
    {"Bit 124:120", "Relative Write Latency",     127, 120, Hex},
    {"Bit 116:112", "Relative Write Throughput",  119, 112, Hex},
    {"Bit 108:104", "Relative Read Latency",      111, 104, Hex},
    {"Bit 100:96",  "Relative Read Throughput",   103,  96, Hex},
    {"Bit 95:64",   "Exit Latency",                95,  64, Hex},
    {"Bit 63:32",   "Entry Latency",               63,  32, Hex},
    {"Bit 25",      "Non-Operational State",       25,  25, Hex, since(V1_2)},
    {"Bit 24",      "Maximum Power Scale",         24,  24, Hex, since(V1_2)},
    {"Bit 15:0",    "Maximum Power",               15,   0, Hex},
};

// The three reserved fillers each have one row per version; exactly one of them holds, the
// newest version the drive claims choosing it.
const FieldRows kFields = {
    {"Byte 0-1",     "PCI Vendor ID (VID)",                     0,   2, Hex4},
    {"Byte 2-3",     "PCI Subsystem Vendor ID (SSVID)",         2,   2, Hex4},
    {"Byte 4-23",    "Serial Number",                           4,  20, Text},
    {"Byte 24-63",   "Model Number",                           24,  40, Text},
    {"Byte 64-71",   "Firmware Revision",                      64,   8, Text},
    {"Byte 72",      "Recommended Arbitration Burst (RAB)",    72,   1, Hex2},
    {"Byte 73-75",   "IEEE Organization Unique Identifier",    73,   6, StoredBytes},
    {"Byte 76",      "Multi-Path I/O Capabilities",            76,   1, Hex,     always, &kMultiPathIo},
    {"Byte 77",      "Maximum Data Transfer Size",             77,   1, Hex},
    {"Byte 78-79",   "Controller ID",                          78,   2, Decimal, since(V1_1)},
    {"Byte 80-83",   "Version",                                80,   4, Hex4,    since(V1_2), &kVersion},
    {"Byte 84-87",   "RTD3 Resume Latency",                    84,   4, Decimal, since(V1_2)},
    {"Byte 88-91",   "RTD3 Entry Latency",                     88,   4, Decimal, since(V1_2)},
    {"Byte 92-95",   "Optional Asynchronous Events Supported", 92,   4, Hex8,    since(V1_2), &kAsynchronousEvents},
    {"Byte 96-99",   "Controller Attributes",                  96,   4, Hex,     since(V1_3), &kControllerAttributes},
    {"Byte 100-101", "Read Recovery Levels Supported",        100,   2, Decimal, since(V1_3 | V1_4), &kReadRecoveryLevels},
    reserved("Byte 102-110",                                                     since(V1_3 | V1_4)),
    {"Byte 111",     "Controller Type",                       111,   1, Decimal, since(V1_3 | V1_4)},
    reserved("Byte 100-111",                                                     since(V1_3).unless(V1_4)),
    {"Byte 112-127", "FRU Globally Unique Identifier",        112,  16, Hex128,  since(V1_3)},
    {"Byte 128-129", "Command Retry Delay Time 1",            128,   2, Decimal, since(V1_4)},
    {"Byte 130-131", "Command Retry Delay Time 2",            130,   2, Decimal, since(V1_4)},
    {"Byte 132-133", "Command Retry Delay Time 3",            132,   2, Decimal, since(V1_4)},
    reserved("Byte 134-239",                                                     since(V1_4)),
    reserved("Byte 128-239",                                                     since(V1_3).unless(V1_4)),
    reserved("Byte 96-239",                                                      since(V1_2).unless(V1_3 | V1_4)),
    reserved("Byte 80-255",                                                      since(V1_1).unless(V1_2 | V1_3 | V1_4)),
    reserved("Byte 78-255",                                                      always.unless(V1_1 | V1_2 | V1_3 | V1_4)),
    reserved("Byte 240-252",                                                     since(V1_2)),
    {"Byte 253",     "NVM Subsystem Report",                  253,   1, Hex,     since(V1_2), &kSubsystemReport},
    {"Byte 254",     "VPD Write Cycle Information",           254,   1, Hex,     since(V1_2), &kVpdWriteCycles},
    {"Byte 255",     "Management Endpoint Capabilities",      255,   1, Hex,     since(V1_2), &kManagementEndpoints},
    {"Byte 256-257", "Optional Admin Command Support",        256,   2, Hex,     always,      &kAdminCommands},
    {"Byte 258",     "Abort Command Limit",                   258,   1, Hex},
    {"Byte 259",     "Asynchronous Event Request Limit",      259,   1, Hex},
    {"Byte 260",     "Firmware Updates",                      260,   1, Hex,     always,      &kFirmwareUpdates},
    {"Byte 261",     "Log Page Attributes",                   261,   1, Hex,     always,      &kLogPageAttributes},
    {"Byte 262",     "Error Log Page Entries",                262,   1, Hex},
    {"Byte 263",     "Number of Power States Support",        263,   1, Hex},
    {"Byte 264",     "Admin Vendor Specific Cmd Configuration", 264, 1, Hex,     always,      &kAdminVendorSpecific},
    {"Byte 265",     "Autonomous Power State Transition Attributes", 265, 1, Hex, since(V1_2), &kAutonomousPowerStates},
    {"Byte 266-267", "Warning Composite Temperature Threshold", 266, 2, Decimal, since(V1_2)},
    {"Byte 268-269", "Critical Composite Temperature Threshold", 268, 2, Decimal, since(V1_2)},
    {"Byte 270-271", "Maximum Time Firmware Activation",      270,   2, Decimal, since(V1_2)},
    {"Byte 272-275", "Host Memory Buffer Preferred Size",     272,   4, Decimal, since(V1_2)},
    {"Byte 276-279", "Host Memory Buffer Minimum Size",       276,   4, Decimal, since(V1_2)},
    {"Byte 280-295", "Total NVM Capacity",                    280,  16, Hex128,  since(V1_2)},
    {"Byte 296-311", "Unallocated NVM Capacity",              296,  16, Hex128,  since(V1_2)},
    {"Byte 312-315", "Replay Protected Memory Block Support", 312,   4, Hex,     since(V1_2), &kReplayProtectedMemory},
    {"Byte 316-317", "Extended Device Self-Test Time",        316,   2, Decimal, since(V1_3)},
    {"Byte 318",     "Device Self-Test Options",              318,   1, Decimal, since(V1_3), &kSelfTestOptions},
    {"Byte 319",     "Firmware Update Granularity",           319,   1, Decimal, since(V1_3)},
    {"Byte 320-321", "Keep Alive Support",                    320,   2, Decimal, since(V1_3)},
    {"Byte 322-323", "Host Controlled Thermal Management Attributes", 322, 2, Decimal, since(V1_3), &kThermalManagement},
    {"Byte 324-325", "Minimum Thermal Management Temperature", 324,  2, Decimal, since(V1_3)},
    {"Byte 326-327", "Maximum Thermal Management Temperature", 326,  2, Decimal, since(V1_3)},
    {"Byte 328-331", "Sanitize Capabilities",                 328,   4, Hex,     since(V1_3), &kSanitize},
    {"Byte 332-335", "Host Memory Buffer Minimum Descriptor Entry Size", 332, 4, Decimal, since(V1_4)},
    {"Byte 336-337", "Host Memory Maximum Descriptors Entries", 336, 2, Decimal, since(V1_4)},
    {"Byte 338-339", "NVM Set Identifier Maximum",            338,   2, Decimal, since(V1_4)},
    {"Byte 340-341", "Endurance Group Identifier Maximum",    340,   2, Decimal, since(V1_4)},
    {"Byte 342",     "ANA Transition Time",                   342,   1, Decimal, since(V1_4)},
    {"Byte 342",     "ANA Transition Time",                   343,   1, Hex2,    since(V1_4), &kAnaCapabilities},
    {"Byte 344-347", "ANA Group Identifier Maximum",          344,   4, Decimal, since(V1_4)},
    {"Byte 348-451", "Number of ANA Group Identifiers",       348,   4, Decimal, since(V1_4)},
    {"Byte 352-355", "Persistent Event Log Size",             352,   4, Decimal, since(V1_4)},
    reserved("Byte 356-511",                                                     since(V1_4)),
    reserved("Byte 332-511",                                                     since(V1_3).unless(V1_4)),
    reserved("Byte 316-511",                                                     since(V1_2).unless(V1_3 | V1_4)),
    reserved("Byte 265-511",                                                     always.unless(V1_2 | V1_3 | V1_4)),
    {"Byte 512",     "Submission Queue Entry Size",           512,   1, Hex,     always,      &kQueueEntrySize},
    {"Byte 513",     "Completion Queue Entry Size",           513,   1, Hex,     always,      &kQueueEntrySize},
    {"Byte 514-515", "Maximum Outstanding Commands",          514,   2, Decimal, always,      nullptr, since(V1_3)},
    {"Byte 516-519", "Number of Namespaces",                  516,   4, Hex},
    {"Byte 520-521", "Optional NVM Command Support",          520,   2, Hex,     always,      &kNvmCommands},
    {"Byte 522-523", "Fused Operation Support",               522,   2, Hex,     always,      &kFusedOperations},
    {"Byte 524",     "Format NVM Attributes",                 524,   1, Hex,     always,      &kFormatNvmAttributes},
    {"Byte 525",     "Volatile Write Cache",                  525,   1, Hex,     always,      &kVolatileWriteCache},
    {"Byte 526-527", "Atomic Write Unit Normal",              526,   2, Hex},
    {"Byte 528-529", "Atomic Write Unit Power Fail",          528,   2, Hex},
    {"Byte 530",     "NVM Vendor Specific Command Configuration", 530, 1, Hex,   always,      &kNvmVendorSpecific},
    {"Byte 531",     "Namespace Write Protection Capabilities", 531, 1, Decimal, since(V1_2), &kWriteProtection, since(V1_4)},
    {"Byte 532-533", "Atomic Compare and Write Unit",         532,   2, Decimal, since(V1_2)},
    reserved("Byte 534-535",                                                     since(V1_2)),
    {"Byte 536-539", "SGL Support",                           536,   4, Hex,     since(V1_2), &kSglSupport},
    {"Byte 540-543", "Maximum Number of Allowed Namespaces",  540,   4, Decimal, since(V1_4)},
    reserved("Byte 544-767",                                                     since(V1_4)),
    reserved("Byte 540-767",                                                     since(V1_3).unless(V1_4)),
    reserved("Byte 540-2047",                                                    since(V1_2).unless(V1_3 | V1_4)),
    reserved("Byte 531-2047",                                                    always.unless(V1_2 | V1_3 | V1_4)),
    {"Byte 768-1023", "NVM Subsystem NVMe Qualified name",    768, 256, Text,    since(V1_3)},
    reserved("Byte 1024-2047",                                                   since(V1_3)),
};

// Shown only for the two editions of the first family.
const FieldRows kPcieRefclk = {
    {"Byte 3072", "Auto Detected PCIe Refclk", 3072, 1, Decimal},
};

const FieldRows kVeldraFields = {
    {"Byte 3075",      "Stripe Size",                      3075,  1, StripeSize},
    {"Byte 3076-3095", "Standardized Failure Mode String", 3076, 20, FailureMode},
    {"Byte 3096",      "Current PCIe Link Speed",          3096,  1, Decimal},
    {"Byte 3097",      "Negotiated PCIe Link Width",       3097,  1, Decimal},
    {"Byte 3098",      "Security Capabilities",            3098,  1, Decimal},
    {"Byte 3099",      "Security Status",                  3099,  1, Decimal},
    {"Byte 3100-3107", "Bootloader Revision",              3100,  8, Text},
};

const FieldRows kBridgeFields = {
    {"Byte 3840",      "Bridge Current Temp",              3840, 1, Hex},
    {"Byte 3841",      "Bridge Over Temp Last",            3841, 1, Hex},
    {"Byte 3842",      "Bridge Over Temp Life",            3842, 1, Hex},
    {"Byte 3843",      "Bridge Min Temp Life",             3843, 1, Hex},
    {"Byte 3844",      "Bridge Max Temp Life",             3844, 1, Hex},
    {"Byte 3904",      "Bridge EEPROM Version",            3904, 1, Hex},
    {"Byte 3905-3912", "Core Firmware Revision",           3905, 8, Text},
    {"Byte 3913-3914", "Bridge EEPROM Device ID",          3913, 2, Hex},
    {"Byte 3936",      "This Port Current Link Speed",     3936, 1, Hex},
    {"Byte 3937",      "This Port Negotiated Link Width",  3937, 1, Hex},
    {"Byte 3938",      "Other Port Current Link Speed",    3938, 1, Hex},
    {"Byte 3939",      "Other Port Negotiated Link Width", 3939, 1, Hex},
    {"Byte 3940",      "Background Link Speed",            3940, 1, Hex},
    {"Byte 3941",      "Background Link Width",            3941, 1, Hex},
};

// The blank that opens " Byte 3114-3115" has always been there.
const FieldRows kOemFields = {
    {"Byte 3108-3109",  "Vendor ID",           3108,  2, Hex},
    {"Byte 3110-3111",  "Device ID",           3110,  2, Hex},
    {"Byte 3112-3113",  "Subsystem Vendor ID", 3112,  2, Hex},
    {" Byte 3114-3115", "Subsystem ID",        3114,  2, Hex},
    {"Byte 3116-3123",  "Oracle Part Number",  3116,  8, Text},
    {"Byte 3124-3139",  "Oracle Model Number", 3124, 16, Text},
};
// clang-format on

constexpr uint32_t kStructureSize = 4096;
constexpr uint32_t kPowerStatesOffset = 2048;
constexpr uint32_t kPowerStateSize = 32;
constexpr uint32_t kPowerStateCountOffset = 263;

Versions versionsOf(const core::AttributeCollection& attributes) {
  namespace properties = core::properties;
  const std::pair<core::Attribute, Version> kVersionAttributes[] = {
      {properties::nvme1Point1OrGreater(), V1_1}, {properties::nvme1Point2OrGreater(), V1_2},
      {properties::nvme1Point3OrGreater(), V1_3}, {properties::nvme1Point4OrGreater(), V1_4},
      {properties::nvme2Point0OrGreater(), V2_0},
  };
  Versions versions = 0;
  for (const auto& [descriptor, version] : kVersionAttributes) {
    if (core::readBool(attributes, descriptor)) {
      versions |= version;
    }
  }
  return versions;
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload,
                                                  const core::AttributeCollection& attributes) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kStructureSize) {
    return root;
  }
  root->attribute("name") = "Identify Controller";
  root->attribute("key") = root->getAttribute("name");
  const Versions versions = versionsOf(attributes);

  addFields(*root, payload, kFields, versions);

  // The count has no bound of its own; the descriptors stop where the payload does.
  const uint32_t count =
      std::min<uint32_t>(payload.data()[kPowerStateCountOffset] + 1u,
                         (payload.size() - kPowerStatesOffset) / kPowerStateSize);
  for (uint32_t i = 0; i < count; ++i) {
    const uint32_t start = kPowerStatesOffset + kPowerStateSize * i;
    addField(*root, payload,
             "Byte " + std::to_string(start) + "-" + std::to_string(start + kPowerStateSize - 1),
             "Power State " + std::to_string(i) + " Descriptor", start, kPowerStateSize, Empty,
             &kPowerStateDescriptor, versions);
  }

  namespace products = core::products;
  const std::string product = core::readString(attributes, core::properties::product());
  if (core::readBool(attributes, core::properties::veldraNVMe())) {
    if (core::strings::contains(product, products::ProductFamilyOneRefresh, true) ||
        core::strings::contains(product, products::ProductFamilyOneRR, true)) {
      addFields(*root, payload, kPcieRefclk, versions);
    }
    addFields(*root, payload, kVeldraFields, versions);
  }
  if (product == products::ProductFamilyThree || product == products::ProductFamilyFourDP) {
    addFields(*root, payload, kBridgeFields, versions);
  }
  if (core::strings::contains(product, products::ProductFamilyFour, true) &&
      core::readString(attributes, core::properties::oem()) == "Oracle") {
    addFields(*root, payload, kOemFields, versions);
  }
  return root;
}

}  // namespace orlo::features::identify::nvme::controllerData
