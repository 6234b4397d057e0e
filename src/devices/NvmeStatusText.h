#pragma once

#include <cstdint>
#include <string>

namespace orlo::devices {

// The name of an NVMe completion status, as the kernel hands it back from a
// pass-through command: the status field of completion dword 3 without its phase
// bit (bits 7:0 the status code, 10:8 its type, 13 More, 14 Do Not Retry). The
// name is followed by the whole field in hexadecimal, e.g.
// "Invalid Field in Command (0x4002)"; a code without a name gives its type and
// number instead.
std::string nvmeStatusText(uint16_t statusField);

}  // namespace orlo::devices
