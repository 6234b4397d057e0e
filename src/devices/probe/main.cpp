// orlo-probe: opens drives through the device backends and prints what they
// answered, for checks of the backends on real or emulated drives.
//
//   orlo-probe [-sys DIR] [-vendors IDS] list
//   orlo-probe [-sys DIR] [-vendors IDS] show -ssd X
//   orlo-probe [-sys DIR] [-vendors IDS] identify -ssd X
//   orlo-probe [-sys DIR] [-vendors IDS] capture -ssd X -image DIR
//
// "show" prints the protocol and the device attributes, one "Name=value" a line;
// "identify" prints Identify Controller or IDENTIFY DEVICE as 16-bit words, eight
// a line, as the kernel's ata_device "id" file shows them.
#include <cstdio>
#include <iostream>
#include <map>
#include <string>

#include "devices/DeviceImage.h"
#include "devices/DriveChoice.h"
#include "devices/DriveDiscovery.h"
#include "devices/ImageCapture.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/LittleEndian.h"

namespace {

using orlo::core::Status;

int fail(const std::string& message) {
  std::cerr << "orlo-probe: " << message << "\n";
  return 1;
}

int list(const orlo::devices::DriveOptions& options) {
  for (const auto& drive : orlo::devices::discoverDrives(options.sysRoot)) {
    std::cout << drive.index << "\t" << drive.path << "\t" << drive.protocol << "\t" << drive.model
              << "\t" << drive.serial << "\t" << drive.firmware << "\n";
  }
  return 0;
}

int show(orlo::core::Device& device) {
  std::cout << "Protocol=" << (device.supportsProtocol("NVME") ? "NVME" : "ATA") << "\n";
  std::map<std::string, std::string> sorted;
  for (const auto& [name, attribute] : device.attributes) sorted[name] = attribute.asString();
  for (const auto& [name, value] : sorted) std::cout << name << "=" << value << "\n";
  return 0;
}

int identify(orlo::core::Device& device) {
  orlo::commands::nvme::Identify controller;
  controller.setCns(1);
  orlo::commands::ata::IdentifyDevice ataIdentify;
  orlo::core::Command& command = device.supportsProtocol("NVME")
                                     ? static_cast<orlo::core::Command&>(controller)
                                     : static_cast<orlo::core::Command&>(ataIdentify);
  const orlo::core::CommandRecord record = device.send(command);
  if (!orlo::core::succeeded(record.status)) return fail(record.status.message());
  const orlo::core::Payload& data = record.outputPayload;
  for (uint32_t word = 0; 2 * word + 1 < data.size(); ++word) {
    std::printf("%04x%c", orlo::core::le::read16(data.data() + 2 * word),
                (word + 1) % 8 ? ' ' : '\n');
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  orlo::devices::DriveOptions options;
  std::string verb, ssd, image;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const bool hasValue = i + 1 < argc;
    if (word == "-sys" && hasValue) {
      options.sysRoot = argv[++i];
    } else if (word == "-vendors" && hasValue) {
      const Status status = options.makers.add(argv[++i]);
      if (!orlo::core::succeeded(status)) return fail(status.message());
    } else if (word == "-ssd" && hasValue) {
      ssd = argv[++i];
    } else if (word == "-image" && hasValue) {
      image = argv[++i];
    } else if (verb.empty() && word[0] != '-') {
      verb = word;
    } else {
      return fail("unexpected argument " + word);
    }
  }
  if (verb == "list") return list(options);
  if (verb != "show" && verb != "identify" && verb != "capture") {
    return fail(
        "usage: orlo-probe [-sys DIR] [-vendors IDS] list | show -ssd X | identify -ssd X "
        "| capture -ssd X -image DIR");
  }
  std::shared_ptr<orlo::core::Device> device;
  const Status opened = orlo::devices::openDrive(ssd, options, device);
  if (!orlo::core::succeeded(opened)) return fail(opened.message());
  if (verb == "show") return show(*device);
  if (verb == "identify") return identify(*device);
  if (image.empty()) return fail("capture needs -image DIR");
  const Status captured = orlo::devices::captureImage(*device, image);
  return orlo::core::succeeded(captured) ? 0 : fail(captured.message());
}
