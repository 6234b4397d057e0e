#include <filesystem>
#include <string>

#include "InstalledOrlo.h"
#include "support/ZipArchive.h"

namespace device_commands {
namespace {

using Reports = InstalledOrlo;
using orlo::testing::ZipEntries;

const std::string formats[] = {"text", "json", "xml", "csv"};

TEST_F(Reports, PlayEachImageBackAsTheImageItselfInEveryFormat) {
  const Words lines[] = {
      {"show"},
      {"show", "ControllerNamespaceStructure=1"},
      {"show", "NamespaceId=1"},
      {"show", "LogName=CommandEffectsLog", "-maker-vendors", imageVendor},
      {"health"},
  };
  for (const auto& image : std::filesystem::directory_iterator(ORLO_IMAGES_DIR)) {
    const std::string source = image.path().string();
    const std::string report = scratch / (image.path().filename().string() + ".zip");
    const auto written = orlo({"report", "-ssd", source, "-destination", report});
    ASSERT_EQ(written.exitCode, 0) << source << written.out << written.err;
    for (const Words& line : lines) {
      for (const std::string& format : formats) {
        Words words = line;
        words.insert(words.begin() + 1, {"-ssd", source, "-output", format});
        const auto direct = orlo(words);
        words[2] = report;
        const auto replayed = orlo(words);
        EXPECT_EQ(replayed.out, direct.out) << source << " " << line.back() << " " << format;
        EXPECT_EQ(replayed.exitCode, direct.exitCode) << source << " " << line.back();
      }
    }
    // What the report holds beside the image is what orlo shows.
    const ZipEntries entries = orlo::testing::readZip(report);
    const std::string health = "/health.txt";
    std::size_t checked = 0;
    for (const auto& [name, bytes] : entries) {
      if (name.size() < health.size() ||
          name.compare(name.size() - health.size(), health.size(), health) != 0) {
        continue;
      }
      EXPECT_EQ(bytes, orlo({"health", "-ssd", source}).out) << source;
      ++checked;
    }
    EXPECT_EQ(checked, 1u) << source;
    for (const char* name : {"system.txt", "drives.txt", "drives.json", "orlo.log"}) {
      EXPECT_NE(entries.count(name), 0u) << source << " " << name;
    }
  }
}

TEST_F(Reports, KeepAnExistingDestinationUnlessForcedAndLeaveNoStaging) {
  const std::string tmp = scratch / "tmp";
  std::filesystem::create_directory(tmp);
  const std::string env = "TMPDIR=" + orlo::testing::shellQuoted(tmp);
  const std::string report = scratch / "ir.zip";
  orlo::testing::writeFile(report, "an older report");

  const auto refused = orlo({"report", "-ssd", sataImage, "-destination", report}, env);
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_EQ(refused.out, "Result: The destination " + report + " exists; -force replaces it.\n");
  EXPECT_EQ(orlo::testing::readFile(report), "an older report");

  const auto forced = orlo({"report", "-ssd", sataImage, "-destination", report, "-force"}, env);
  EXPECT_EQ(forced.exitCode, 0) << forced.out << forced.err;
  EXPECT_EQ(orlo({"show", "-ssd", report}).out, orlo({"show", "-ssd", sataImage}).out);
  // Refused before anything ran, as the update's destination is.
  EXPECT_EQ(orlo({"report", "-ssd", sataImage, "-destination", scratch / "a,b.zip"}).exitCode, 2);
  EXPECT_TRUE(std::filesystem::is_empty(tmp));
}

TEST_F(Reports, OfSeveralDrivesPlayTheChosenOneBack) {
  const std::string nvme = scratch / "nvme.zip";
  const std::string sata = scratch / "sata.zip";
  ASSERT_EQ(orlo({"report", "-ssd", nvmeImage, "-destination", nvme}).exitCode, 0);
  ASSERT_EQ(orlo({"report", "-ssd", sataImage, "-destination", sata}).exitCode, 0);
  // Two drives in one report, as orlo writes one on a machine with both.
  ZipEntries both = orlo::testing::readZip(nvme);
  for (const auto& [name, bytes] : orlo::testing::readZip(sata)) {
    const std::string prefix = "drives/0-";
    if (name.compare(0, prefix.size(), prefix) == 0)
      both["drives/1-" + name.substr(prefix.size())] = bytes;
  }
  const std::string report = scratch / "both.zip";
  orlo::testing::writeZip(report, both);

  const std::string sataShown = orlo({"show", "-ssd", sataImage}).out;
  EXPECT_EQ(orlo({"show", "-ssd", report + ":1"}).out, sataShown);
  EXPECT_EQ(orlo({"show", "-ssd", report + ":CVS3A0021847"}).out, sataShown);
  EXPECT_EQ(orlo({"show", "-ssd", report + ":0"}).out, orlo({"show", "-ssd", nvmeImage}).out);

  const auto unchosen = orlo({"show", "-ssd", report});
  EXPECT_EQ(unchosen.exitCode, 1);
  EXPECT_EQ(unchosen.out, "Result: The incident report " + report +
                              " holds several drives; choose one as -ssd " + report +
                              ":INDEX or :SERIAL, one of 0 (TT2A24310057), 1 (CVS3A0021847).\n");
  EXPECT_EQ(orlo({"show", "-ssd", report + ":2"}).exitCode, 1);

  // A reply larger than any drive's, and an archive cut short, fail and say so.
  ZipEntries large = orlo::testing::readZip(sata);
  large["drives/0-CVS3A0021847/image/ata-cmdec-lba0-count1.bin"] = std::string((16 << 20) + 1, 'x');
  const std::string oversized = scratch / "large.zip";
  orlo::testing::writeZip(oversized, large);
  const auto tooLarge = orlo({"show", "-ssd", oversized});
  EXPECT_EQ(tooLarge.exitCode, 1);
  EXPECT_NE(tooLarge.out.find("is larger than"), std::string::npos) << tooLarge.out;
  const std::string cut = scratch / "cut.zip";
  orlo::testing::writeFile(cut, orlo::testing::readFile(sata).substr(0, 1000));
  const auto damaged = orlo({"show", "-ssd", cut});
  EXPECT_EQ(damaged.exitCode, 1);
  EXPECT_NE(damaged.out.find("cannot be read as a zip archive"), std::string::npos) << damaged.out;
}

}  // namespace
}  // namespace device_commands
