#include "devices/NvmePassThrough.h"

namespace orlo::devices {

nvme_passthru_cmd nvmePassThrough(const commands::nvme::Command& command, void* data,
                                  uint32_t length) {
  const commands::nvme::SubmissionEntry& entry = command.submissionEntry;
  nvme_passthru_cmd request{};
  request.opcode = entry.bytes[0];
  request.flags = entry.bytes[1];
  request.nsid = entry.dword(1);
  request.cdw2 = entry.dword(2);
  request.cdw3 = entry.dword(3);
  request.addr = reinterpret_cast<uintptr_t>(data);
  request.data_len = length;
  request.cdw10 = entry.dword(10);
  request.cdw11 = entry.dword(11);
  request.cdw12 = entry.dword(12);
  request.cdw13 = entry.dword(13);
  request.cdw14 = entry.dword(14);
  request.cdw15 = entry.dword(15);
  return request;
}

}  // namespace orlo::devices
