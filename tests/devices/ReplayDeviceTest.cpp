#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "devices/DeviceImage.h"
#include "devices/ImageCapture.h"
#include "devices/NvmeProtocolResult.h"
#include "devices/RegularFile.h"
#include "devices/ReplayDevice.h"
#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/Completion.h"
#include "orlo/commands/ata/ReadDMA.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/feature/UUID/GUID16.h"
#include "support/FakeDevice.h"
#include "support/ScratchDirectory.h"

namespace {

using orlo::core::Status;
using orlo::devices::ReplayDevice;
using orlo::devices::VendorList;
using orlo::testing::readFile;
namespace properties = orlo::core::properties;

const std::string kImages = std::string(ORLO_TEST_DATA_DIR) + "/images/";
const std::string kNvmeImage = kImages + "nvme-tamsel-t2";
const std::string kSataImage = kImages + "sata-corvid-s300";

std::shared_ptr<ReplayDevice> open(const std::string& image, const std::string& makers = "") {
  VendorList vendors;
  if (!makers.empty()) {
    EXPECT_EQ(vendors.add(makers), Status::success());
  }
  std::shared_ptr<ReplayDevice> device;
  const Status status = ReplayDevice::open(image, vendors, device);
  EXPECT_EQ(status, Status::success()) << status.message();
  return device;
}

TEST(ReplayDevice, NvmeAttributesComeFromIdentifyControllerThenTheImage) {
  const auto device = open(kNvmeImage);
  const auto& a = device->attributes;
  EXPECT_EQ(orlo::core::readString(a, properties::serialNumber()), "TT2A24310057");
  EXPECT_EQ(orlo::core::readString(a, properties::modelNumber()), "Tamsel T2 3.84TB U.2");
  EXPECT_EQ(orlo::core::readString(a, properties::firmware()), "T2F10310");
  EXPECT_EQ(orlo::core::readString(a, properties::product()), "Tamsel T2");  // stated
  EXPECT_TRUE(orlo::core::readBool(a, properties::nvme2Point0OrGreater()));
  EXPECT_TRUE(orlo::core::readBool(a, properties::namespaceManagementSupported()));
  EXPECT_TRUE(orlo::core::readBool(a, properties::uuidSupported()));
  EXPECT_TRUE(orlo::core::readBool(a, properties::supportCommandEffectsLogEnhancements()));
  EXPECT_FALSE(orlo::core::readBool(a, properties::veldra()));
  EXPECT_TRUE(device->supportsProtocol("NVME"));
  EXPECT_FALSE(device->supportsProtocol("ATA"));

  const auto maker = open(kNvmeImage, "0x1e5a");
  EXPECT_TRUE(orlo::core::readBool(maker->attributes, properties::veldra()));
  EXPECT_TRUE(orlo::core::readBool(maker->attributes, properties::veldraNVMe()));
}

TEST(ReplayDevice, AnswersFromTheImageAndRefusesWhatItHasNoReplyFor) {
  const auto device = open(kNvmeImage);
  orlo::commands::nvme::Identify controller;
  controller.setCns(1);
  controller.submissionEntry.setDword(1, 0xFFFFFFFF);  // not used by this structure
  const auto record = device->send(controller);
  EXPECT_EQ(record.status, Status::success());
  ASSERT_EQ(record.outputPayload.size(), 4096u);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(record.outputPayload.data()), 4096),
            readFile(kNvmeImage + "/nvme-identify-cns01-nsid00000000.bin"));
  ASSERT_NE(record.command, nullptr);
  EXPECT_EQ(record.command->name(), "Identify");

  orlo::commands::ata::CheckPowerMode ata;
  EXPECT_EQ(device->send(ata).status, Status(35, ""));
}

TEST(ReplayDevice, SataDriveTakesItsAttributesFromTheImageAndRefusesUserData) {
  const auto device = open(kSataImage);
  EXPECT_EQ(orlo::core::readString(device->attributes, properties::serialNumber()), "CVS3A0021847");
  EXPECT_EQ(orlo::core::readString(device->attributes, properties::firmware()), "CV1.04A");

  orlo::commands::ata::ReadDMA readDma;  // user data is never captured
  const auto refused = device->send(readDma);
  EXPECT_EQ(refused.status, Status::retrieveDataFailed());
  EXPECT_EQ(refused.status.message(),
            "ATA command reported a problem: Aborted Command (Status 0x51, Error 0x04).");
}

TEST(ReplayDevice, ImageProblemsAreNamed) {
  struct Case {
    std::string attributes;
    std::string message;
  };
  const Case cases[] = {
      {"Protocol=SCSI\n", "line 1: the protocol is NVME or ATA."},
      {"Protocol=ATA\nColour=red\n", "line 2: no device attribute is named Colour."},
      {"Protocol=ATA\nNamespaceId=one\n", "line 2: \"one\" is no uint32."},
      {"# no protocol\nCSMI=False\n", "it names no Protocol."},
      {"Protocol=NVME\n", "has no Identify reply: NVMe command reported a problem"},
  };
  for (const Case& c : cases) {
    orlo::testing::ScratchDirectory image;
    std::ofstream(image.path() / "attributes.txt") << c.attributes;
    std::shared_ptr<ReplayDevice> device;
    const Status status = ReplayDevice::open(image.path().string(), VendorList(), device);
    EXPECT_NE(status, Status::success());
    EXPECT_NE(status.message().find(c.message), std::string::npos) << status.message();
    EXPECT_EQ(device, nullptr);
  }
}

TEST(ReplayDevice, CaptureOfAReplayedDriveReplaysAlike) {
  for (const std::string& source : {kNvmeImage, kSataImage}) {
    const auto original = open(source, "1e5a");
    orlo::testing::ScratchDirectory copy;
    ASSERT_EQ(orlo::devices::captureImage(*original, copy.path().string()), Status::success());
    const std::string attributes = readFile((copy.path() / "attributes.txt").string());
    EXPECT_EQ(attributes.find("Veldra"), std::string::npos) << "left to the vendor list";

    const auto replayed = open(copy.path().string(), "1e5a");
    EXPECT_EQ(replayed->attributes.size(), original->attributes.size());
    for (const auto& [name, attribute] : original->attributes) {
      const auto found = replayed->attributes.find(name);
      ASSERT_NE(found, replayed->attributes.end()) << name;
      EXPECT_EQ(found->second.asString(), attribute.asString()) << name;
    }
    for (const auto& entry : std::filesystem::directory_iterator(source)) {
      if (entry.path().filename() == "attributes.txt") continue;
      EXPECT_EQ(readFile((copy.path() / entry.path().filename()).string()),
                readFile(entry.path().string()))
          << entry.path();
    }
  }
}

TEST(ImageCapture, AsksEachLogPageWithItsIndexLengthAndNamespaces) {
  orlo::core::Payload uuids(4096);  // the reversed vendor GUID as third entry: index 3
  const auto& guid = orlo::features::uuid::VendorGUIDReversed;
  for (int entry = 0; entry < 3; ++entry) uuids[32 * (entry + 1) + 16] = 0x11;
  std::copy(guid.begin(), guid.end(), uuids.data() + 32 * 3 + 16);
  orlo::test::FakeDevice drive;
  // Four error log entries, and SMART / Health Information per namespace.
  orlo::core::writeUInt8(drive.attributes, properties::errorLogPageEntries(), 3);
  orlo::core::writeUInt8(drive.attributes, properties::smartPerNamespace(), 1);
  orlo::core::writeUInt32(drive.attributes, properties::namespaceId(), 7);
  drive.answer(orlo::test::FakeDevice::nvme([](const orlo::commands::nvme::Command& command) {
                 return command.submissionEntry.bytes[0] == 6 &&
                        command.submissionEntry.dword(10) == 23;
               }),
               {Status::success(), uuids, nullptr});
  orlo::testing::ScratchDirectory image;
  EXPECT_EQ(orlo::devices::captureImage(drive, image.path().string()), Status::success());

  // Log and namespace, to UUID index and bytes.
  std::map<std::pair<uint32_t, uint32_t>, std::pair<uint32_t, uint64_t>> logs;
  for (std::size_t i = 0; i < drive.sent.size(); ++i) {
    const auto& command = drive.sentNvme(i);
    const auto& entry = command.submissionEntry;
    if (entry.bytes[0] != 2) continue;
    logs[{entry.dword(10) & 0xFF, entry.dword(1)}] = {entry.dword(14), command.transferBytes};
    EXPECT_EQ((entry.dword(10) >> 16) + 1, command.transferBytes / 4);
  }
  const uint32_t all = 0xFFFFFFFF;
  EXPECT_EQ(logs, (decltype(logs){{{1, all}, {0, 256}},
                                  {{2, all}, {0, 512}},
                                  {{2, 7}, {0, 512}},
                                  {{3, all}, {0, 512}},
                                  {{5, all}, {0, 4096}},
                                  {{6, all}, {0, 564}},
                                  {{221, all}, {3, 512}}}));
}

TEST(ImageCapture, RecordsAllocatedNamespacesThatNoControllerHasAttached) {
  const auto list = [](std::initializer_list<uint8_t> ids) {
    orlo::core::Payload data(4096);
    std::size_t at = 0;
    for (const uint8_t id : ids) data[4 * at++] = id;
    return data;
  };
  const auto identify = [](uint32_t cns, uint32_t namespaceId) {
    return orlo::test::FakeDevice::nvme([=](const orlo::commands::nvme::Command& command) {
      return command.submissionEntry.bytes[0] == 6 && command.submissionEntry.dword(10) == cns &&
             command.submissionEntry.dword(1) == namespaceId;
    });
  };
  orlo::core::Payload detached(4096);
  detached[0] = 0x2A;
  orlo::test::FakeDevice drive;
  drive.answer(identify(2, 0), {Status::success(), list({1}), nullptr});
  drive.answer(identify(16, 0), {Status::success(), list({1, 2}), nullptr});
  drive.answer(identify(17, 2), {Status::success(), detached, nullptr});
  orlo::testing::ScratchDirectory image;
  EXPECT_EQ(orlo::devices::captureImage(drive, image.path().string()), Status::success());
  EXPECT_EQ(readFile((image.path() / "nvme-identify-cns11-nsid00000002.bin").string()),
            std::string(reinterpret_cast<const char*>(detached.data()), detached.size()));
}

TEST(ImageCapture, KeepsTheCompletionsThatTheDriveRefusedWith) {
  const auto refusedWith = [](std::shared_ptr<const orlo::core::ProtocolResult> result) {
    Status status = Status::success();
    result->fillStatus(status);
    return orlo::test::FakeDevice::Reply{status, orlo::core::Payload(), result};
  };
  orlo::commands::ata::TaskFile fault;
  fault.command = 0x71;
  orlo::test::FakeDevice nvme;
  nvme.answer(orlo::test::FakeDevice::nvme([](const orlo::commands::nvme::Command& command) {
                return command.submissionEntry.bytes[0] == 6 &&
                       command.submissionEntry.dword(10) == 0 &&
                       command.submissionEntry.dword(1) == 0;
              }),
              refusedWith(std::make_shared<orlo::devices::NvmeProtocolResult>(0x400B, 7)));
  orlo::test::FakeDevice ata({"ATA"});
  ata.answer("CheckPowerMode",
             refusedWith(std::make_shared<orlo::commands::ata::Completion>(fault)));
  // Both drives' other commands fail in the host, without a completion to keep.
  const struct {
    orlo::test::FakeDevice& drive;
    std::string file;
    std::string text;
  } cases[] = {
      {nvme, "nvme-identify-cns00-nsid00000000.status",
       "NvmeStatus=0x400B\nNvmeResult=0x00000007\n"},
      {ata, "ata-cmde5-lba0-count0.status", "AtaStatus=0x71\nAtaError=0x00\n"},
  };
  for (const auto& c : cases) {
    orlo::testing::ScratchDirectory image;
    EXPECT_EQ(orlo::devices::captureImage(c.drive, image.path().string()), Status::success());
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(image.path())) {
      files.insert(entry.path().filename().string());
    }
    EXPECT_EQ(files, (std::set<std::string>{"attributes.txt", c.file}));
    EXPECT_EQ(readFile((image.path() / c.file).string()), c.text);
  }
}

TEST(ReplayDevice, FailsAsTheImageKeptTheDrivesRefusal) {
  orlo::commands::nvme::Identify noNamespace;  // CNS 0 of namespace 0
  orlo::commands::ata::CheckPowerMode checkPowerMode;
  const std::string nvmeFile = "/nvme-identify-cns00-nsid00000000.status";
  const std::string ataFile = "/ata-cmde5-lba0-count0.status";
  const Status bad = orlo::devices::DeviceImage::badRefusal("", "");
  const struct {
    std::string image;
    std::string file;
    std::string text;  // empty: a folder in the file's place
    Status status;
    std::string message;
  } cases[] = {
      {kNvmeImage, nvmeFile, "# kept\nNvmeStatus=0x400b\n\nNvmeResult=0x0\n",
       Status::nvmeCommandProblem(),
       "NVMe command reported a problem: Invalid Namespace or Format (0x400B)."},
      {kSataImage, ataFile, "AtaError=0x00\nAtaStatus=0x71\n", Status::retrieveDataFailed(),
       "ATA command reported a problem: Device Fault (Status 0x71, Error 0x00)."},
      {kNvmeImage, nvmeFile, "NvmeStatus=0x0\nNvmeResult=0x0\n", bad, "is no failure."},
      {kNvmeImage, nvmeFile, "NvmeStatus=0x14002\nNvmeResult=0x0\n", bad, "expected NvmeStatus"},
      {kNvmeImage, nvmeFile, "NvmeStatus=4002\nNvmeResult=0x0\n", bad, "expected NvmeStatus"},
      {kNvmeImage, nvmeFile, "NvmeStatus=0x4002\nAtaError=0x04\n", bad, "expected NvmeStatus"},
      {kNvmeImage, nvmeFile, "NvmeStatus=0x4002\nNvmeStatus=0x4002\n", bad,
       "\"NvmeStatus=0x4002\" is no field of its own."},
      {kSataImage, ataFile, "AtaStatus=0x51\n", bad, "expected NvmeStatus"},
      {kSataImage, ataFile, "", orlo::devices::notRegularFile("", ""), "is a directory"},
  };
  for (const auto& c : cases) {
    orlo::testing::ScratchDirectory copy;
    std::filesystem::copy(c.image, copy.path(), std::filesystem::copy_options::recursive);
    const std::string file = copy.path().string() + c.file;
    std::filesystem::remove(std::filesystem::path(file).replace_extension(".bin"));
    if (c.text.empty()) {
      std::filesystem::create_directory(file);
    } else {
      orlo::testing::writeFile(file, c.text);
    }
    orlo::core::Command& command = c.image == kNvmeImage
                                       ? static_cast<orlo::core::Command&>(noNamespace)
                                       : static_cast<orlo::core::Command&>(checkPowerMode);
    const auto record = open(copy.path().string())->send(command);
    EXPECT_EQ(record.status, c.status) << c.text;
    EXPECT_NE(record.status.message().find(c.message), std::string::npos)
        << c.text << record.status.message();
  }
}

}  // namespace
