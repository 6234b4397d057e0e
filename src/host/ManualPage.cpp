#include "host/ManualPage.h"

#include <sstream>
#include <vector>

#include "host/HelpWriter.h"
#include "host/HostSettings.h"
#include "host/InstallLayout.h"
#include "host/PartUsage.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

namespace {

using plugin::cli::CommandSpec;
using plugin::cli::CommandSpecPartList;
namespace words = plugin::cli::words;

const std::string prefix = "PREFIX";

std::string bold(const std::string& text) {
  return "\\fB" + roffText(text) + "\\fR";
}

// A paragraph under a tag that stands on the line above it.
void writeItem(std::ostream& out, const std::string& tag, const std::string& text) {
  out << ".TP\n" << tag << "\n" << roffText(text) << "\n";
}

// Lines that the page keeps as they are: usages, synopses, commands to type.
void writeVerbatim(std::ostream& out, const std::vector<std::string>& lines) {
  out << ".PP\n.nf\n";
  for (const auto& line : lines) out << roffText(line) << "\n";
  out << ".fi\n";
}

// A synopsis fills the lines like prose, but never breaks between a part's name and
// its value: "-ssd <Index|SerialNumber|PhysicalPath>" stays whole.
void writeSynopsis(std::ostream& out, const std::string& synopsis) {
  std::string roff = roffText(synopsis);
  for (auto blank = roff.find(" <"); blank != std::string::npos; blank = roff.find(" <", blank)) {
    roff.replace(blank, 1, "\\ ");
    blank += 3;
  }
  out << ".PP\n" << roff << "\n";
}

void writeParts(std::ostream& out, const std::string& title, const CommandSpecPartList& parts) {
  if (parts.elements.empty()) return;
  out << ".PP\n" << roffText(title) << ":\n.RS\n";
  for (const auto& part : parts.elements) {
    std::string tag = bold(usageOf(*part));
    if (!part->shortName.empty()) tag += ", " + bold(part->shortName);
    if (part->required) tag += " (required)";
    writeItem(out, tag, part->description);
  }
  out << ".RE\n";
}

// A rule of the help is an item that starts with "- " and goes on in the indented
// lines below it; the page fills each into one bullet paragraph.
void writeRules(std::ostream& out, const std::string& rules) {
  std::istringstream in(rules);
  std::string item;
  const auto flush = [&] {
    if (!item.empty()) out << ".IP \\(bu 2\n" << roffText(item) << "\n";
    item.clear();
  };
  for (std::string line; std::getline(in, line);) {
    const bool starts = line.rfind("- ", 0) == 0;
    if (starts) flush();
    const auto text = line.find_first_not_of(starts ? "- " : " ");
    if (text != std::string::npos) item += (item.empty() ? "" : " ") + line.substr(text);
  }
  flush();
}

void writeCommand(std::ostream& out, const CommandSpec& spec) {
  out << ".SS\n" << roffText(spec.name + " (" + spec.verb + ")") << "\n";
  out << roffText(spec.description) << "\n";
  writeSynopsis(out, synopsisOf(spec));
  writeParts(out, words::options, spec.options);
  writeParts(out, words::targets, spec.targets);
  writeParts(out, words::properties, spec.properties);
  const std::vector<std::string> rules = refusalsOf(spec);
  if (rules.empty()) return;
  out << ".PP\n" << roffText(refusalsHeading) << ":\n.RS\n";
  for (const auto& rule : rules) writeRules(out, rule);
  out << ".RE\n";
}

}  // namespace

std::string roffText(const std::string& text) {
  std::string roff;
  bool lineStart = true;
  for (const char c : text) {
    if (lineStart && (c == '.' || c == '\'')) roff += "\\&";
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else {
      roff += c;
    }
    lineStart = c == '\n';
  }
  return roff;
}

std::string writeManualPage(const plugin::cli::CommandSpecs& specs, const std::string& dataFolder) {
  const InstallLayout layout(prefix);
  const std::string data = prefix + "/" + dataFolder;
  std::ostringstream out;
  out << ".TH ORLO 1 \"\" \"orlo " << ORLO_VERSION << "\" \"User Commands\"\n";
  // Names such as ControllerNamespaceStructure are typed as written: never hyphenated,
  // and lines are not stretched around them.
  out << ".nh\n.ad l\n";
  out << ".SH NAME\norlo \\- look after solid\\-state drives and their incident reports\n";
  out << ".SH SYNOPSIS\n";
  writeVerbatim(out, usageLines());
  out << ".SH DESCRIPTION\n"
      << roffText(
             "orlo loads its plug-ins, reads the command line against their commands and its "
             "own, runs the command chosen and writes its result. A command line reads "
             "orlo <verb> [-option [value]]... [Name=Value]...: options are known by their "
             "name or short name in any case, and a word that starts with \"-\" is never a "
             "value. \"orlo help\" shows what this page shows of the commands; \"orlo help "
             "<verb>\" and \"orlo <verb> ... -help\" narrow it down.")
      << "\n";
  out << ".SH OPTIONS\n" << roffText("These flags of orlo itself stand anywhere on the line.\n");
  for (const auto& flag : hostFlags) {
    writeItem(out, bold(flag.name) + " " + roffText(std::string("<") + flag.valueName + ">"),
              flag.description);
  }
  out << ".SH COMMANDS\n";
  for (const auto& spec : specs) writeCommand(out, *spec);
  out << ".SH EXIT STATUS\n";
  writeItem(out, "0", "The command's result is a success, or help was shown.");
  writeItem(out, "1",
            "The command ran and failed, or the standard output could not be written (a full "
            "disk, a closed pipe).");
  writeItem(out, "2",
            "The command line was refused before anything ran: an unknown command, option or "
            "property, a missing required option or value, an unsafe path, a bad flag of "
            "orlo's, a help request that picks no command.");
  writeItem(out, "3", "A plug-in could not be loaded, or an exception left a plug-in.");
  writeItem(out, "4",
            "The command ran, and the drive reports a failure or a critical warning of its "
            "own (orlo health).");
  out << ".SH FILES\n"
      << roffText(prefix +
                  " is the folder above the one that holds the orlo program: /usr for "
                  "/usr/bin/orlo.\n");
  writeItem(out, bold(layout.pluginDirectory().string()),
            "The plug-ins: every library there is loaded, unless -plugin-dir names another "
            "folder.");
  writeItem(out, bold(layout.providerDirectory().string()),
            "The programs that plug-ins run, such as powershell, which updates the "
            "incident-report archive. orlo puts this folder first on PATH before a command runs.");
  writeItem(out, bold(data + "/samples"), "A sample incident report and a file to add to it.");
  writeItem(out, bold(data + "/images"),
            "Device images of four invented drives, two NVMe and two SATA, which -ssd takes "
            "in place of a drive.");
  out << ".SH EXAMPLES\n";
  writeVerbatim(out, {
                         "cp " + data + "/samples/incident-report.zip report.zip",
                         "orlo update -destination report.zip \\",
                         "    -source " + data + "/samples/drive-notes.txt",
                         "orlo show -ssd",
                         "orlo show -ssd " + data + "/images/nvme-tamsel-t2 -output json",
                         "orlo help update",
                     });
  return out.str();
}

}  // namespace orlo::host
