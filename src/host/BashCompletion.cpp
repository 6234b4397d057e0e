#include "host/BashCompletion.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <vector>

#include "host/HostSettings.h"
#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

namespace {

using plugin::cli::CommandSpecPart;

// Words in the order first met, each once.
class WordList {
 public:
  void add(const std::string& word) {
    if (!word.empty() && std::find(words_.begin(), words_.end(), word) == words_.end()) {
      words_.push_back(word);
    }
  }
  std::string joined() const {
    std::string text;
    for (const auto& word : words_) text += (text.empty() ? "" : " ") + word;
    return text;
  }

 private:
  std::vector<std::string> words_;
};

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

// What the script offers after a word whose value is written `valueName`.
std::string kindOf(const std::string& name, const std::string& valueName) {
  if (name == plugin::cli::ssdTargetRequired.name) return "drives";
  if (valueName.find('|') != std::string::npos) {
    std::string choices = "choices";
    for (const auto& choice : orlo::core::strings::split(valueName, "|")) choices += " " + choice;
    return choices;
  }
  if (valueName == "path") return "files";
  if (valueName == "directory") return "directories";
  return "none";
}

std::string lower(const std::string& text) {
  std::string result = text;
  std::transform(result.begin(), result.end(), result.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return result;
}

void writeTable(std::ostream& out, const std::string& name,
                const std::map<std::string, std::string>& entries) {
  out << "declare -gA " << name << "=(\n";
  for (const auto& [key, value] : entries) {
    out << "  [" << quoted(key) << "]=" << quoted(value) << "\n";
  }
  out << ")\n";
}

// The completion itself, which reads the tables above it. The words are taken from
// the line up to the cursor, split at blanks only, since bash's own words are split at
// "=" too; orlo refuses blanks in paths, so no quoting is lost.
const char* const completionFunctions = R"(
# Offers what follows a word that takes a value: $1 the orlo completed, $2 the kind of
# value ("choices A B...", "files", "directories", "drives" or "none"), $3 its start.
_orlo_value() {
  local -a kind
  read -ra kind <<<"$2"
  local choice drive
  case ${kind[0]-} in
    choices)
      for choice in "${kind[@]:1}"; do
        [[ ${choice,,} == "${3,,}"* ]] && COMPREPLY+=("$choice")
      done ;;
    files)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$3") ;;
    directories | drives)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$3") ;;
  esac
  if [[ ${kind[0]-} == drives ]]; then
    # What -ssd takes of each drive that orlo lists.
    while IFS= read -r drive; do
      [[ $drive == "$3"* ]] && COMPREPLY+=("$drive")
    done < <("$1" show -ssd 2>/dev/null | sed -n 's/^ *\(Index\|Path\|Serial Number\): //p')
  fi
  return 0
}

_orlo() {
  local line=${COMP_LINE:0:COMP_POINT} cur= prev= verb= word given i
  local -a words offered=()
  read -ra words <<<"$line"
  if [[ $line != *[[:space:]] && ${#words[@]} -gt 1 ]]; then
    cur=${words[-1]}
    unset 'words[-1]'
  fi
  ((${#words[@]} > 1)) && prev=${words[-1],,}
  # The verb is the first word that is neither a flag of orlo's nor that flag's value.
  for ((i = 1; i < ${#words[@]}; i++)); do
    word=${words[i],,}
    if [[ " $_orlo_flags " == *" $word "* ]]; then
      ((i++))
    else
      verb=$word
      break
    fi
  done
  [[ " $_orlo_help " == *" $verb "* ]] && verb=help
  COMPREPLY=()
  if [[ $cur == *=* ]]; then
    word=${cur%%=*}
    word=${word,,}
    [[ $verb == help ]] && word="help $word"
    _orlo_value "$1" "${_orlo_kinds[$word]-}" "${cur#*=}"
    # Where bash splits words at "=", it replaces only the value.
    [[ $COMP_WORDBREAKS == *=* ]] || COMPREPLY=("${COMPREPLY[@]/#/${cur%%=*}=}")
    return 0
  fi
  if [[ $prev == -* && -n ${_orlo_kinds[$prev]-} ]]; then
    _orlo_value "$1" "${_orlo_kinds[$prev]}" "$cur"
    return 0
  fi
  local candidates=$_orlo_verbs
  [[ -n $verb ]] && candidates=${_orlo_words[$verb]-}
  [[ $cur == -* ]] && candidates+=" $_orlo_flags"
  for word in $candidates; do
    # A word given already is not offered again; a property counts by its name.
    for given in "${words[@]:1}"; do
      given=${given,,}
      [[ ${word,,} == "$given" || ($word == *= && ${given%%=*}= == "${word,,}") ]] && continue 2
    done
    [[ ${word,,} == "${cur,,}"* ]] && offered+=("$word")
  done
  COMPREPLY=("${offered[@]}")
  [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]] && compopt -o nospace 2>/dev/null
  return 0
}
complete -F _orlo orlo
)";

}  // namespace

std::string writeBashCompletion(const plugin::cli::CommandSpecs& specs) {
  WordList verbs, names, flags;
  std::map<std::string, WordList> words;
  std::map<std::string, std::string> kinds;
  // The first that names a word decides its value: the host's flags, which the host
  // takes out of the line before any command sees it, then the commands in order.
  for (const auto& flag : hostFlags) {
    flags.add(flag.name);
    kinds.emplace(flag.name, kindOf(flag.name, flag.valueName));
  }
  for (const auto& spec : specs) {
    verbs.add(spec->verb);
    names.add(spec->name);
    WordList& taken = words[lower(spec->verb)];
    for (const auto* list : {&spec->options, &spec->targets, &spec->properties}) {
      for (const auto& part : list->elements) {
        const bool property = part->partType.kind == CommandSpecPart::propertyKind;
        taken.add(property ? part->name + "=" : part->name);
        taken.add(part->shortName);
        if (!part->valueName.empty())
          kinds.emplace(lower(part->name), kindOf(part->name, part->valueName));
      }
    }
  }
  WordList& help = words[plugin::cli::verbs::help];
  for (const auto& spec : specs) help.add(spec->verb);
  for (const auto& spec : specs) help.add(spec->name);
  help.add(plugin::cli::verbProperty.name + "=");
  help.add(plugin::cli::nameProperty.name + "=");
  kinds.emplace("help " + lower(plugin::cli::verbProperty.name), "choices " + verbs.joined());
  kinds.emplace("help " + lower(plugin::cli::nameProperty.name), "choices " + names.joined());
  verbs.add(plugin::cli::verbs::help);

  std::map<std::string, std::string> wordTable;
  for (const auto& [verb, list] : words) wordTable[verb] = list.joined();
  std::ostringstream out;
  out << "# bash completion for orlo, written from its command specifications.\n\n";
  out << "# The verbs; the flags of orlo itself; what asks for help in place of a verb.\n";
  out << "_orlo_verbs=" << quoted(verbs.joined()) << "\n";
  out << "_orlo_flags=" << quoted(lower(flags.joined())) << "\n";
  out << "_orlo_help="
      << quoted(lower(plugin::cli::verbs::help + " " + plugin::cli::helpOption.name + " " +
                      plugin::cli::helpOption.shortName))
      << "\n";
  out << "# The words of each verb's commands (a property with its \"=\"), by the verb in\n"
         "# lower case.\n";
  writeTable(out, "_orlo_words", wordTable);
  out << "# What follows each word that takes a value, by the word in lower case (a\n"
         "# property without its \"=\"; those of help after \"help \").\n";
  writeTable(out, "_orlo_kinds", kinds);
  out << completionFunctions;
  return out.str();
}

}  // namespace orlo::host
