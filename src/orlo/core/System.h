#pragma once

#include <memory>
#include <string>

#include "orlo/core/DistributionInfo.h"
#include "orlo/core/Status.h"

namespace orlo::core {

// The toolkit's small view of the platform: which operating system runs the library,
// the kernel's version, and a request to look for devices again. Each platform has
// its own form. Objects are made by std::make_shared and released through the shared
// pointer, which knows the concrete form, so the interface has no virtual destructor.
class System {
 public:
  // Asks the operating system to enumerate its devices again; status 39 when it cannot.
  virtual Status rescan() const = 0;
  virtual std::string getOperatingSystem() const = 0;
  // Fills (and first clears) `info`, and gives the distribution's name.
  virtual std::string getDistribution(DistributionInfo& info) const = 0;
  // The kernel's version as text, computed once per process; empty if it cannot be read.
  virtual std::string getVersion() const = 0;
  // Whether `name` is the name of the distribution that runs the library.
  virtual bool matchesPlatform(std::string name) const = 0;

 protected:
  System() = default;
  System(const System&) = default;
  System& operator=(const System&) = default;
  ~System() = default;
};

// The form of System for the platform the library was built for.
std::shared_ptr<System> makeSystem();

}  // namespace orlo::core
