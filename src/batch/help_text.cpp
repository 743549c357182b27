#include "batch/help_text.h"

#include <string_view>

#include "batch/batch_options.h"
#include "batch/commands/commands.h"

namespace tessara {
namespace {

constexpr std::size_t kNameColumn = 22;

std::string Padded(std::string text, std::size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text;
}

// "  -s, --script FILE     run the commands of FILE, one a line"
std::string OptionLine(const OptionRow& row) {
  std::string name = ShortName(row).empty() ? "    " : std::string(ShortName(row)) + ", ";
  name += LongName(row);
  if (!row.value.empty())
    name += row.takes == OptionValue::kPossible ? " [" + std::string(row.value) + "]" : " " + std::string(row.value);
  return "  " + Padded(name, kNameColumn) + "  " + std::string(row.help) + "\n";
}

}  // namespace

std::string VersionText() { return "tessara-cli " TESSARA_VERSION "\n"; }

std::string ProgramHelp() {
  std::string text =
      "tessara-cli: statistics without a window\n"
      "\n"
      "Usage: tessara-cli [OPTIONS] [DATA.dcs] [COMMAND [ARGUMENT...]]\n"
      "\n"
      "Opens DATA.dcs, runs the commands of a script and then COMMAND, and prints the Output Log.\n"
      "\n"
      "Options:\n";
  for (const OptionRow& row : ProgramOptions()) text += OptionLine(row);
  text += "\nCommands:\n";
  for (const CommandRow* row : Commands()) {
    text += "  " + Padded(std::string(row->name), kNameColumn) + "  " + std::string(row->summary) + "\n";
  }
  text +=
      "\n"
      "A script has one command a line; a line that starts with # says nothing. Double quotes hold\n"
      "a word with blanks together. A variable is named by its heading, or by #N, its column number.\n"
      "\n"
      "Exit status: 0 all well, 1 a command was refused, 2 a line that could not be understood.\n"
      "\n"
      "Examples:\n"
      "  tessara-cli survey.dcs frequencies SEX SMOKE --dispersion\n"
      "  tessara-cli --script lesson3.txt -o lesson3-log.txt\n"
      "\n"
      "tessara-cli --help COMMAND tells more of a command.\n";
  return text;
}

std::string CommandHelp(const CommandRow& command) {
  std::string text =
      std::string(command.name) + ": " + std::string(command.summary) + "\n\nUsage: " + std::string(command.name);
  if (!command.synopsis.empty()) text += " " + std::string(command.synopsis);
  text += "\n\n" + std::string(command.details);
  if (command.more_details) text += command.more_details();
  if (!command.options.empty()) text += "\nOptions:\n";
  for (const OptionRow& row : command.options) text += OptionLine(row);
  text += "\nExample:\n  " + std::string(command.example) + "\n";
  return text;
}

}  // namespace tessara
