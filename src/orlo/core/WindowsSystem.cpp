#ifdef _WIN32

#include "orlo/core/WindowsSystem.h"

// clang-format off
#include <windows.h>
#include <cfgmgr32.h>
// clang-format on

#ifdef _MSC_VER
#pragma comment(lib, "cfgmgr32.lib")
#pragma comment(lib, "advapi32.lib")
#pragma comment(lib, "version.lib")
#endif

#include <string>

#include "orlo/core/Logging.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Strings.h"

namespace orlo::core {

namespace {

constexpr REGSAM kReadAccess = 131097;
constexpr UINT kPathCharacters = 260;

// The product version of kernel32.dll as "major.minor.build.revision", or empty.
std::string readKernelVersion() {
  char directory[kPathCharacters] = {};
  const UINT length = GetSystemDirectoryA(directory, kPathCharacters);
  if (length == 0 || length >= kPathCharacters) return "";
  const std::string file = strings::sanitize(std::string(directory, length)) + "\\kernel32.dll";
  DWORD handle = 0;
  const DWORD size = GetFileVersionInfoSizeA(file.c_str(), &handle);
  if (size == 0) return "";
  Payload block(size);
  if (!GetFileVersionInfoA(file.c_str(), 0, size, block.data())) return "";
  VS_FIXEDFILEINFO* info = nullptr;
  UINT infoSize = 0;
  if (!VerQueryValueA(block.data(), "\\", reinterpret_cast<void**>(&info), &infoSize) ||
      info == nullptr) {
    return "";
  }
  return std::to_string(HIWORD(info->dwProductVersionMS)) + "." +
         std::to_string(LOWORD(info->dwProductVersionMS)) + "." +
         std::to_string(HIWORD(info->dwProductVersionLS)) + "." +
         std::to_string(LOWORD(info->dwProductVersionLS));
}

}  // namespace

Status WindowsSystem::rescan() const {
  DEVINST root = 0;
  if (CM_Locate_DevNode_ExA(&root, nullptr, 0, nullptr) != CR_SUCCESS ||
      CM_Reenumerate_DevNode_Ex(root, 0, nullptr) != CR_SUCCESS) {
    return Status(39, "System rescan failed.");
  }
  return Status::success();
}

std::string WindowsSystem::getOperatingSystem() const {
  // The key's presence is the whole test: a WinPE key, even an empty one, means WinPE.
  HKEY key = nullptr;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\WinPE\\",
                    0, kReadAccess, &key) == ERROR_SUCCESS) {
    RegCloseKey(key);
    return "WindowsPE";
  }
  return "Windows";
}

std::string WindowsSystem::getDistribution(DistributionInfo& info) const {
  info.name.clear();
  info.version.clear();
  return "";
}

std::string WindowsSystem::getVersion() const {
  // An empty text means "not read yet", so a failed read is tried again next time.
  static std::string version;
  if (version.empty()) version = readKernelVersion();
  ORLO_LOG(info, "Kernel Version = " << version);
  return version;
}

bool WindowsSystem::matchesPlatform(std::string) const {
  return false;
}

}  // namespace orlo::core

#endif
