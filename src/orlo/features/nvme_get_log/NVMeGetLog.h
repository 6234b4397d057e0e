#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/Feature.h"
#include "orlo/features/Json.h"
#include "orlo/features/feature/UUID/UUIDManager.h"

namespace orlo::features::nvme_get_log {

// The NumDWORDs that reads a structure of `bytes` bytes: its size in dwords, rounded up,
// less one.
constexpr uint32_t numDWORDsFor(uint32_t bytes) {
  return (bytes + 3) / 4 - 1;
}

// Reads one log page from an NVMe drive with one Get Log Page command built from the
// feature's attributes, and keeps the bytes for getXml and writeBinaryToFile. Subclasses
// fix the log and show its bytes their own way.
class NVMeGetLog : public Feature {
 public:
  // A record of the drive's reserved log entries; kept for the subclasses that list them.
  struct ReservedEntry {
    uint8_t bytes[24];
  };

  // The caller's attributes are copied; LogId, LogName and NumDWORDs are set from the
  // arguments, NamespaceSpecific is reset and NamespaceId follows from it, so a log goes to
  // the broadcast namespace unless a caller writes NamespaceId afterwards. Logs below 192
  // accept the drive's standard and vendor UUIDs.
  NVMeGetLog(const std::shared_ptr<core::Device>& device, uint8_t logId, uint32_t numDWORDs,
             std::string logName, const core::AttributeCollection& attributes);
  ~NVMeGetLog() override;

  // Whether the drive may be asked, first deciding UUIDIndex for a drive with a UUID list
  // when the caller gave none. The result is also kept with setStatus.
  virtual core::Status canRun();
  // canRun, then one Get Log Page; on success the returned bytes replace the payload, on
  // failure the earlier payload stays. A failure that the drive explains at the protocol
  // level reports the drive's reason.
  virtual core::Status sendCommand();
  virtual const core::Payload& getPayload();
  // What writeBinaryToFile writes.
  virtual const core::Payload& getBinaryData();
  // The bytes as one hexadecimal property; an empty object while there are none.
  virtual std::unique_ptr<core::xml::XmlObject> getXml();
  virtual core::Status reservedOperation();
  // Writes the binary data to `fileName`, truncating it. Status 168 when nothing could be
  // written, an empty payload included (the file is then left empty).
  virtual core::Status writeBinaryToFile(std::string fileName);
  virtual uint8_t getUUIDIndex();

  uint8_t getLogId();

  std::shared_ptr<core::Device> device;
  core::Payload payload;
  std::shared_ptr<uuid::UUIDManager> uuidManager;
  Json jsonDocument;
  std::vector<ReservedEntry> reservedEntries;

 private:
  // Whether `index` is the drive's index of one of the GUIDs in the manager's list.
  bool isAcceptedIndex(uint8_t index);
};

}  // namespace orlo::features::nvme_get_log
