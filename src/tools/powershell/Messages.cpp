#include "Messages.h"

namespace orlo::tools::powershell::messages {

namespace {

// PowerShell names the command that failed in front of the message.
std::string fromCmdlet(const std::string& text) {
  return "Compress-Archive : " + text;
}

std::string joined(const std::vector<std::string>& words, const std::string& before) {
  std::string text;
  for (const auto& word : words) text += (text.empty() ? "" : " ") + before + word;
  return text;
}

}  // namespace

std::string termNotRecognized(const std::string& word) {
  return word + " : The term '" + word +
         "' is not recognized as the name of a cmdlet, function, script file, or operable "
         "program. Check the spelling of the name, or if a path was included, verify that the "
         "path is correct and try again.";
}

std::string optionNotSupported(const std::string& word) {
  return "powershell: '" + word +
         "' is not supported; this powershell runs only the Compress-Archive cmdlet, given as "
         "its first word.";
}

std::string noCommand() {
  return "powershell: no command given; this powershell runs only the Compress-Archive cmdlet.";
}

std::string parameterNotFound(const std::string& name) {
  return fromCmdlet("A parameter cannot be found that matches parameter name '" + name + "'.");
}

std::string parameterAmbiguous(const std::string& name, const std::vector<std::string>& matches) {
  return fromCmdlet("Parameter cannot be processed because the parameter name '" + name +
                    "' is ambiguous. Possible matches include: " + joined(matches, "-") + ".");
}

std::string missingArgument(const std::string& parameter, const std::string& type) {
  return fromCmdlet("Missing an argument for parameter '" + parameter +
                    "'. Specify a parameter of type '" + type + "' and try again.");
}

std::string parameterBoundTwice(const std::string& parameter) {
  return fromCmdlet("Cannot bind parameter because parameter '" + parameter +
                    "' is specified more than once. To provide multiple values to parameters "
                    "that can accept multiple values, use the array syntax. For example, "
                    "\"-parameter value1,value2,value3\".");
}

std::string switchValueInvalid(const std::string& parameter, const std::string& value) {
  return fromCmdlet("Cannot process argument transformation on parameter '" + parameter +
                    "'. Cannot convert value \"" + value +
                    "\" to type \"System.Management.Automation.SwitchParameter\".");
}

std::string parameterSetUnresolved() {
  return fromCmdlet("Parameter set cannot be resolved using the specified named parameters.");
}

std::string positionalNotFound(const std::string& argument) {
  return fromCmdlet("A positional parameter cannot be found that accepts argument '" + argument +
                    "'.");
}

std::string missingMandatory(const std::vector<std::string>& parameters) {
  return fromCmdlet("Cannot process command because of one or more missing mandatory parameters: " +
                    joined(parameters, "") + ".");
}

std::string missingListArgument() {
  return fromCmdlet("Missing argument in parameter list.");
}

std::string notAString(const std::string& parameter) {
  return fromCmdlet(
      "Cannot convert 'System.Object[]' to the type 'System.String' required by "
      "parameter '" +
      parameter + "'. Specified method is not supported.");
}

std::string emptyArgument(const std::string& parameter) {
  return fromCmdlet("Cannot bind argument to parameter '" + parameter +
                    "' because it is an empty string.");
}

std::string compressionLevelInvalid(const std::string& value) {
  return fromCmdlet("Cannot validate argument on parameter 'CompressionLevel'. The argument \"" +
                    value +
                    "\" does not belong to the set \"Optimal,NoCompression,Fastest\" specified "
                    "by the ValidateSet attribute. Supply an argument that is in the set and "
                    "then try the command again.");
}

std::string pathNotFound(const std::string& path) {
  return fromCmdlet("The path '" + path +
                    "' either does not exist or is not a valid file system path.");
}

std::string duplicatePath(const std::string& parameter, const std::string& path) {
  return fromCmdlet("The input to " + parameter + " parameter contains a duplicate path '" + path +
                    "'. Provide a unique set of paths as input to " + parameter + " parameter.");
}

std::string archiveExists(const std::string& archive) {
  return fromCmdlet("The archive file " + archive +
                    " already exists. Use the -Update parameter to update the existing archive "
                    "file or use the -Force parameter to overwrite the existing archive file.");
}

std::string archiveReadOnly(const std::string& archive) {
  return fromCmdlet("The attributes of the archive file " + archive +
                    " is set to 'ReadOnly' hence it cannot be updated. If you intend to update "
                    "the existing archive file, remove the 'ReadOnly' attribute on the archive "
                    "file else use -Force parameter to override and create a new archive file.");
}

std::string pathUnreadable(const std::string& path, const std::string& reason) {
  return fromCmdlet("The path '" + path + "' cannot be read (" + reason +
                    "). Nothing was written.");
}

std::string notFileOrFolder(const std::string& path) {
  return fromCmdlet("The path '" + path +
                    "' is neither a file nor a folder and cannot be read into an archive. "
                    "Nothing was written.");
}

std::string nameNotUtf8(const std::string& path) {
  return fromCmdlet("The name of '" + path +
                    "' is not valid UTF-8 and cannot be stored in the archive. Nothing was "
                    "written.");
}

std::string nameUnsafe(const std::string& path, const std::string& name) {
  return fromCmdlet("The path '" + path + "' would be stored under the name '" + name +
                    "', which leaves the folder the archive is extracted to. Nothing was "
                    "written.");
}

std::string archiveIsFolder(const std::string& archive) {
  return fromCmdlet("The archive file " + archive + " is a folder, not a file.");
}

std::string archiveNotAFile(const std::string& archive) {
  return fromCmdlet("The archive file " + archive +
                    " is not a regular file (a device, a pipe or a socket). It was left as it "
                    "was.");
}

std::string nothingToAdd(const std::string& archive) {
  return fromCmdlet(
      "The paths name no file and no empty folder, so there is nothing to add to "
      "the archive file " +
      archive + ". Nothing was written.");
}

std::string archiveInvalid(const std::string& archive, const std::string& reason) {
  return fromCmdlet("The archive file " + archive + " is not a valid zip archive (" + reason +
                    "). It was left as it was.");
}

std::string archiveEntryUnsafe(const std::string& archive, const std::string& name) {
  return fromCmdlet("The archive file " + archive + " holds an entry named '" + name +
                    "', which leaves the folder the archive is extracted to. It was left as it "
                    "was.");
}

std::string archiveNotWritten(const std::string& archive, const std::string& reason) {
  return fromCmdlet("The archive file " + archive + " could not be written (" + reason + ").");
}

std::string archiveNotLocked(const std::string& archive, const std::string& reason) {
  return fromCmdlet("The archive file " + archive + " could not be locked against other updates (" +
                    reason + "). It was left as it was.");
}

std::string interrupted(const std::string& archive, const std::string& signal) {
  if (archive.empty()) return fromCmdlet("Stopped by a signal (" + signal + ").");
  return fromCmdlet("Stopped by a signal (" + signal + "). The archive file " + archive +
                    " was left as it was.");
}

}  // namespace orlo::tools::powershell::messages
