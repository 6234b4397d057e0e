#pragma once

// The parts that every feature draws on. Each source unit has its own copy;
// parts are compared by name, never by address.

#include <string>

#include "plugins/plugin.cliframework/CommandSpecPart.h"
#include "plugins/plugin.cliframework/OptionCommandSpecPart.h"
#include "plugins/plugin.cliframework/PropertyCommandSpecPart.h"
#include "plugins/plugin.cliframework/TargetCommandSpecPart.h"

namespace plugin::cli {

namespace parts {
const std::string ssdValueName = "Index|SerialNumber|PhysicalPath";
const std::string ssdDescription = "Device index, serial number, or physical path.";
const std::string ssdIdentifier = "SSD identifier";
const std::string namespaceDescription = "Namespace value.";
const std::string outputDescription = "Change the output format. One of \"text\", or \"json\".";
}  // namespace parts

// clang-format off
//                                                                      name            required value name            value req. description                                common short
const CommandSpecPart ssdTargetRequired       = TargetCommandSpecPart(  "-ssd",         true,  parts::ssdValueName,  false, parts::ssdDescription,                     false, "");
const CommandSpecPart ssdTarget               = TargetCommandSpecPart(  "-ssd",         false, parts::ssdValueName,  false, parts::ssdDescription,                     false, "");
const CommandSpecPart ssdTargetRequiredValue  = TargetCommandSpecPart(  "-ssd",         true,  parts::ssdValueName,  true,  parts::ssdDescription,                     false, "");
const CommandSpecPart ssdTargetValue          = TargetCommandSpecPart(  "-ssd",         false, parts::ssdValueName,  true,  parts::ssdDescription,                     false, "");
const CommandSpecPart ssdOption               = OptionCommandSpecPart(  "-ssd",         false, parts::ssdIdentifier, false, parts::ssdDescription,                     false, "");
const CommandSpecPart ssdOptionRequired       = OptionCommandSpecPart(  "-ssd",         true,  parts::ssdIdentifier, false, parts::ssdDescription,                     false, "");
const CommandSpecPart namespaceOption         = OptionCommandSpecPart(  "-namespace",   false, "Namespace",          false, parts::namespaceDescription,               false, "");
const CommandSpecPart namespacePart           = CommandSpecPart(        "-namespace",   false, "Namespace",          true,  parts::namespaceDescription,               false, "");
const CommandSpecPart allOption               = OptionCommandSpecPart(  "-all",         false, "",                   false, "Display all possible attributes.",        true,  "-a");
const CommandSpecPart displayOption           = OptionCommandSpecPart(  "-display",     false, "Property1,...",      true,  "Specify which attributes are displayed.", true,  "");
const CommandSpecPart forceOption             = OptionCommandSpecPart(  "-force",       false, "",                   false, "Force the operation",                     true,  "-f");
const CommandSpecPart outputOption            = OptionCommandSpecPart(  "-output",      false, "text|json",          true,  parts::outputDescription,                  true,  "");
const CommandSpecPart helpOption              = OptionCommandSpecPart(  "-help",        false, "",                   false, "Display help for the command.",           true,  "-h");
const CommandSpecPart sourcePart              = CommandSpecPart(        "-source",      false, "path",               true,  "Path to the source file.",                false, "");
const CommandSpecPart sourcePartRequired      = CommandSpecPart(        "-source",      true,  "path",               true,  "Path to the source file.",                false, "");
const CommandSpecPart destinationPart         = CommandSpecPart(        "-destination", false, "path",               true,  "Path to the destination file.",           false, "");
const CommandSpecPart destinationPartRequired = CommandSpecPart(        "-destination", true,  "path",               true,  "Path to the destination file.",           false, "");
const CommandSpecPart verbProperty            = PropertyCommandSpecPart("Verb",         false, "verb",               true,  "Commands with verb to show help on.",     false, "");
const CommandSpecPart nameProperty            = PropertyCommandSpecPart("Name",         false, "name",               true,  "Commands to show help on.",               false, "");
// clang-format on

}  // namespace plugin::cli
