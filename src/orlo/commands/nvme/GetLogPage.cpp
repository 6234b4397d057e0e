#include "orlo/commands/nvme/GetLogPage.h"

namespace orlo::commands::nvme {

GetLogPage::GetLogPage() : ReadCommand("GetLogPage") {
  submissionEntry.bytes[0] = layout::kGetLogPageOpcode;
  admin = true;
}

}  // namespace orlo::commands::nvme
