#pragma once

// Words that the host's parser and help, and the plug-ins, share. Each source
// unit has its own copy; they are compared by text.

#include <string>

namespace plugin::cli {

namespace verbs {
const std::string show = "show";
const std::string start = "start";
const std::string create = "create";
const std::string dump = "dump";
const std::string set = "set";
const std::string load = "load";
const std::string remove = "delete";
const std::string help = "help";
const std::string version = "version";
const std::string reset = "reset";
const std::string update = "update";
}  // namespace verbs

namespace formats {
const std::string text = "text";
const std::string xml = "xml";
const std::string json = "json";
// JSON of the labelled elements, as the text and the CSV show them.
const std::string jsonTree = "jsontree";
const std::string csv = "csv";
}  // namespace formats

namespace words {
const std::string command = "Command";
const std::string name = "Name";
const std::string verb = "Verb";
const std::string description = "Description";
const std::string synopsis = "Synopsis";
const std::string options = "Options";
const std::string option = "Option";
const std::string targets = "Targets";
const std::string target = "Target";
const std::string properties = "Properties";
const std::string help = "Help";
const std::string usage = "Usage";
const std::string property = "Property";
const std::string required = "Required";
const std::string trueWord = "True";
const std::string falseWord = "False";
const std::string value = "Value";
const std::string valueRequired = "ValueRequired";
}  // namespace words

namespace messages {
const std::string noResults = "No results";
const std::string noCommandsToDisplay = "No commands to display";
const std::string usageLine = "<verb>[<options>][<targets>][<properties>]";
}  // namespace messages

}  // namespace plugin::cli
