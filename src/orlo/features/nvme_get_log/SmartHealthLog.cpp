#include "orlo/features/nvme_get_log/SmartHealthLog.h"

#include "orlo/features/nvme_get_log/LogTree.h"
#include "orlo/features/nvme_get_log/SmartHealthRows.h"

namespace orlo::features::nvme_get_log::smartHealth {

std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload) {
  auto root = namedObject("SMART / Health Information Log (Log ID = 2)");
  if (holdsLog(*root, payload, kLogSize)) addFields(*root, kRows, Source{payload, 0, 0});
  return root;
}

}  // namespace orlo::features::nvme_get_log::smartHealth
