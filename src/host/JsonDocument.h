#pragma once

#include <string>
#include <vector>

#include "host/ExitCode.h"
#include "orlo/core/xml/XmlObject.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// What `orlo ... -output json` writes to the standard output: one JSON document, an
// object, whatever the command and however it ended, ending with a line feed. Members
// whose names start with a capital letter are the host's:
//   a result that renders as a named value ("Result": {...}) is the member of that
//   name; a result that renders as an object is the document itself;
//   "Output": the lines that the plug-in printed while it ran, when it printed any;
//   "Error" and "ExitCode": why the command line was refused or the plug-in failed;
//   "Help": the help text.
// The toolkit's writer gives a line feed, tab, carriage return, backspace or form feed
// in a string as a backslash and the byte itself, and passes bytes that are not UTF-8;
// both are written here as JSON has them.
std::string jsonDocument(const plugin::cli::ResultBase& result,
                         const std::vector<std::string>& printed);

// The keyed form of a decoded tree, which scripts read by key (see Keyed in XmlElement.h):
// an object of the root's keyed children, with "Output" as above.
std::string keyedDocument(const core::xml::XmlObject& tree,
                          const std::vector<std::string>& printed);

std::string jsonFailure(const std::string& message, ExitCode code,
                        const std::vector<std::string>& printed);

std::string jsonHelp(const std::string& help);

}  // namespace orlo::host
