#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/features/nvme_get_log/NVMeGetLog.h"

namespace orlo::features::nvme_get_log {

// One of the log pages that every NVMe drive keeps about itself, and how it is shown.
struct DriveLogPage {
  const std::string* name;
  const char* description;
  commands::nvme::layout::LogPage page;
  std::unique_ptr<core::xml::XmlObject> (*decode)(const core::Payload&);
  // Read for the caller's NamespaceId where the drive keeps it per namespace.
  bool perNamespace;
};

// A log page of the drive's own (SMART / Health Information, Error Information, Firmware
// Slot Information, Device Self-test): any NVMe drive is asked for it, with no UUID
// selection, and the whole page is read, an Error Information log as many entries as the
// drive keeps. A drive that refuses the page gives its own reason.
class NVMeDriveLog : public NVMeGetLog {
 public:
  NVMeDriveLog(const std::shared_ptr<core::Device>& device, const DriveLogPage& kind,
               const core::AttributeCollection& attributes);
  ~NVMeDriveLog() override;

  // Only that the drive speaks NVMe.
  core::Status canRun() override;
  std::unique_ptr<core::xml::XmlObject> getXml() override;
  uint8_t getUUIDIndex() override;

 private:
  const DriveLogPage& kind_;
};

}  // namespace orlo::features::nvme_get_log
