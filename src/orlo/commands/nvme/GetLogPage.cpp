#include "orlo/commands/nvme/GetLogPage.h"

namespace orlo::commands::nvme {

GetLogPage::GetLogPage() : ReadCommand("GetLogPage") {
  submissionEntry.bytes[0] = 2;
  admin = true;
}

}  // namespace orlo::commands::nvme
