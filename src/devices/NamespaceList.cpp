#include "devices/NamespaceList.h"

#include "orlo/core/LittleEndian.h"

namespace orlo::devices {

std::vector<uint32_t> listedNamespaces(const core::Payload& list) {
  std::vector<uint32_t> namespaces;
  for (std::size_t at = 0; at + 4 <= list.size() && namespaces.size() < kMostImagedNamespaces;
       at += 4) {
    const uint32_t id = core::le::read32(list.data() + at);
    if (id == 0) break;
    namespaces.push_back(id);
  }
  return namespaces;
}

}  // namespace orlo::devices
