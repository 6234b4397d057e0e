#include "orlo/core/System.h"

#ifdef _WIN32
#include "orlo/core/WindowsSystem.h"
#else
#include "orlo/core/LinuxSystem.h"
#endif

namespace orlo::core {

std::shared_ptr<System> makeSystem() {
#ifdef _WIN32
  return std::make_shared<WindowsSystem>();
#else
  return std::make_shared<LinuxSystem>();
#endif
}

}  // namespace orlo::core
