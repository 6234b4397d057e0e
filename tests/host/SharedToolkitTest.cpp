#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "orlo/features/feature/UUID/RegisteredGUIDs.h"

namespace {

// The drives' UUID lists are kept once for the process: each installed plug-in finds
// the table in the toolkit's shared library that this program has loaded too, and
// has no copy of its own.
TEST(SharedToolkit, EveryPluginUsesTheProcessesOneUuidTable) {
  Dl_info table{};
  Dl_info toolkit{};
  ASSERT_NE(dladdr(&orlo::features::uuid::registeredGUIDs, &table), 0);
  ASSERT_NE(
      dladdr(reinterpret_cast<void*>(&orlo::features::uuid::registerSupportedGUIDs), &toolkit), 0);
  void* loaded = dlopen(toolkit.dli_fname, RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(loaded, nullptr) << toolkit.dli_fname;
  void* const inToolkit = dlsym(loaded, table.dli_sname);
  ASSERT_NE(inToolkit, nullptr);
  for (const std::string plugin : {"libupdate_ir.so", "libdevice_features.so"}) {
    const std::string path = std::string(ORLO_STAGE_DIR) + "/lib/orlo/plugins/" + plugin;
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    EXPECT_EQ(dlsym(library, table.dli_sname), inToolkit) << plugin;
    dlclose(library);
  }
  dlclose(loaded);
}

}  // namespace
