#pragma once

#include <string>
#include <vector>

// The lines written to standard error. The cmdlet's and the PowerShell engine's
// own texts are kept word for word, so that people who know them recognise them;
// the others are this program's own.
namespace orlo::tools::powershell::messages {

// Parameter binding, as the engine words it.
std::string termNotRecognized(const std::string& word);
std::string optionNotSupported(const std::string& word);
std::string noCommand();
std::string parameterNotFound(const std::string& name);
std::string parameterAmbiguous(const std::string& name, const std::vector<std::string>& matches);
std::string missingArgument(const std::string& parameter, const std::string& type);
std::string parameterBoundTwice(const std::string& parameter);
std::string switchValueInvalid(const std::string& parameter, const std::string& value);
std::string parameterSetUnresolved();
std::string positionalNotFound(const std::string& argument);
std::string missingMandatory(const std::vector<std::string>& parameters);
std::string missingListArgument();
std::string notAString(const std::string& parameter);
std::string emptyArgument(const std::string& parameter);
std::string compressionLevelInvalid(const std::string& value);

// The cmdlet's own.
std::string pathNotFound(const std::string& path);
std::string duplicatePath(const std::string& parameter, const std::string& path);
std::string archiveExists(const std::string& archive);
std::string archiveReadOnly(const std::string& archive);

// Ours, where the cmdlet would lose data or has nothing to say.
std::string pathUnreadable(const std::string& path, const std::string& reason);
std::string notFileOrFolder(const std::string& path);
std::string nameNotUtf8(const std::string& path);
std::string nameUnsafe(const std::string& path, const std::string& name);
std::string archiveIsFolder(const std::string& archive);
std::string archiveNotAFile(const std::string& archive);
std::string nothingToAdd(const std::string& archive);
std::string archiveInvalid(const std::string& archive, const std::string& reason);
std::string archiveEntryUnsafe(const std::string& archive, const std::string& name);
std::string archiveNotWritten(const std::string& archive, const std::string& reason);
std::string archiveNotLocked(const std::string& archive, const std::string& reason);
std::string interrupted(const std::string& archive, const std::string& signal);

}  // namespace orlo::tools::powershell::messages
