#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "devices/ReplayDevice.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/identify/Identify.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "support/ScratchDirectory.h"

namespace {

using orlo::core::Status;
using orlo::testing::readFile;
namespace properties = orlo::core::properties;

const std::string kImages = std::string(ORLO_TEST_DATA_DIR) + "/images/";

std::shared_ptr<orlo::core::Device> open(const std::string& image, const std::string& makers = "") {
  orlo::devices::VendorList vendors;
  EXPECT_EQ(vendors.add(makers), Status::success());
  std::shared_ptr<orlo::devices::ReplayDevice> device;
  EXPECT_EQ(orlo::devices::ReplayDevice::open(kImages + image, vendors, device), Status::success());
  return device;
}

// Every structure that the toolkit decodes, asked through the front end as a user
// would: with a namespace where the structure is about one, and the toolkit's
// default namespace otherwise.
TEST(IdentifyOnReplay, EveryDecodedStructureComesBackDecoded) {
  const auto device = open("nvme-tamsel-t2");
  struct Case {
    uint8_t cns;
    int64_t namespaceId;  // -1: the toolkit's default
    std::string text;     // a value that the decoded tree shows
  };
  const Case cases[] = {
      {0, -1, "Object"},
      {0, 1, "Object"},
      {1, -1, "TT2A24310057"},
      {2, -1, "Attached Namespace IDs"},
      {3, 1, "Object"},
      {16, -1, "Allocated Namespace IDs"},
      {17, 1, "Object"},
      {18, 1, "Attached Controllers"},
      {19, -1, "All Controllers"},
      {20, -1, "Object"},
      {21, -1, "Object"},
      {22, -1, "Object"},
      {23, -1, "Object"},
      {26, 0, "Object"},
      {28, -1, "Object"},
  };
  for (const Case& c : cases) {
    orlo::core::AttributeCollection attributes;
    orlo::core::writeUInt8(attributes, properties::controllerNamespaceStructure(), c.cns);
    if (c.namespaceId >= 0) {
      orlo::core::writeUInt32(attributes, properties::namespaceId(),
                              static_cast<uint32_t>(c.namespaceId));
    }
    orlo::features::identify::Identify identify(device, attributes);
    const Status status = identify.identify();
    EXPECT_EQ(status, Status::success()) << "CNS " << int(c.cns) << ": " << status.message();
    const auto tree = identify.getXml();
    EXPECT_FALSE(tree->isEmpty()) << "CNS " << int(c.cns);
    std::string xml;
    tree->write(xml);
    EXPECT_NE(xml.find(c.text), std::string::npos) << "CNS " << int(c.cns);
  }
}

TEST(IdentifyOnReplay, AStructureTheDriveRefusesGivesItsStatus) {
  orlo::core::AttributeCollection attributes;
  orlo::core::writeUInt8(attributes, properties::controllerNamespaceStructure(), 3);
  orlo::features::identify::Identify identify(open("nvme-tamsel-t2"), attributes);
  const Status status = identify.identify();  // for all namespaces: no such structure
  EXPECT_EQ(status, Status::nvmeCommandProblem());
  EXPECT_EQ(status.message(),
            "NVMe command reported a problem: Invalid Field in Command (0x4002).");

  orlo::features::identify::Identify ata(open("sata-corvid-s300"), {});
  EXPECT_EQ(ata.identify(), Status::success());
}

TEST(GetLogOnReplay, BothLogPagesOfAMakerDriveDecodeAndDump) {
  const auto device = open("nvme-tamsel-t2", "1e5a");
  struct Case {
    std::string name;
    std::string text;
    std::string reply;
  };
  const Case cases[] = {
      {"CommandEffectsLog", "Admin Command 6 (0x06)", "nvme-getlog-lid05-nsidffffffff-offset0.bin"},
      {"marketingdescription", "Tamsel T2 3.84TB U.2 NVMe SSD, PCIe Gen4 x4, 1 DWPD",
       "nvme-getlog-liddd-nsidffffffff-offset0.bin"},
  };
  for (const Case& c : cases) {
    auto log = orlo::features::nvme_get_log::makeLog(c.name, device, {});
    ASSERT_NE(log, nullptr) << c.name;
    const Status status = log->sendCommand();
    EXPECT_EQ(status, Status::success()) << c.name << ": " << status.message();
    std::string xml;
    log->getXml()->write(xml);
    EXPECT_NE(xml.find(c.text), std::string::npos) << c.name;
    orlo::testing::ScratchDirectory folder;
    const std::string dump = (folder.path() / "log.bin").string();
    EXPECT_EQ(log->writeBinaryToFile(dump), Status::success());
    EXPECT_EQ(readFile(dump), readFile(kImages + "nvme-tamsel-t2/" + c.reply)) << c.name;
  }
  // Scope fields show only on a drive that reports the effects log enhancements.
  auto effects = orlo::features::nvme_get_log::makeLog("CommandEffectsLog", device, {});
  effects->sendCommand();
  std::string xml;
  effects->getXml()->write(xml);
  EXPECT_NE(xml.find("NVM Subsystem Scope"), std::string::npos);
}

TEST(GetLogOnReplay, ADriveOfAnotherMakerIsRefused) {
  auto log =
      orlo::features::nvme_get_log::makeLog("MarketingDescription", open("nvme-tamsel-t2"), {});
  EXPECT_EQ(log->sendCommand(), Status(10, 1, "Drive is not a Veldra SSD."));
}

}  // namespace
