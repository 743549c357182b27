#include "batch/completion.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <vector>

#include "batch/batch_options.h"
#include "batch/commands/commands.h"

namespace tessara {
namespace {

std::string Listed(std::span<const OptionRow> rows) {
  std::string list;
  for (const OptionRow& row : rows) list += (list.empty() ? "" : " ") + std::string(LongName(row));
  return list;
}

// "new|save|...", the names with something between them.
std::string CommandNames(std::string_view between) {
  std::string list;
  for (const CommandRow* row : Commands()) {
    if (!list.empty()) list += between;
    list += row->name;
  }
  return list;
}

// A line of the choice by command for each command that has options which the program has not.
std::string OptionsByCommand() {
  std::string lines;
  for (const CommandRow* row : Commands()) {
    std::vector<OptionRow> own;
    std::ranges::copy_if(row->options, std::back_inserter(own), [](const OptionRow& option) {
      return std::ranges::find(ProgramOptions(), option.names, &OptionRow::names) == ProgramOptions().end();
    });
    if (!own.empty()) lines += "    " + std::string(row->name) + ") options+=' " + Listed(own) + "' ;;\n";
  }
  return lines;
}

}  // namespace

std::string CompletionScript() {
  return "# Completes the words of tessara-cli in bash.\n"
         "_tessara_cli() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} command='' options='" +
         Listed(ProgramOptions()) +
         "' i\n"
         "  for ((i = 1; i < COMP_CWORD; ++i)); do\n"
         "    case ${COMP_WORDS[i]} in\n"
         "    " +
         CommandNames("|") +
         ") command=${COMP_WORDS[i]}; break ;;\n"
         "    esac\n"
         "  done\n"
         "  case $command in\n" +
         OptionsByCommand() +
         "  esac\n"
         "  if [[ $word == -* ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$word\")\n"
         "  elif [[ -z $command ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W '" +
         CommandNames(" ") +
         "' -- \"$word\"; compgen -f -- \"$word\")\n"
         "  else\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
         "  fi\n"
         "}\n"
         "complete -o filenames -F _tessara_cli tessara-cli\n";
}

}  // namespace tessara
