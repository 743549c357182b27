#include "batch/manual_page.h"

#include <cctype>
#include <span>
#include <string_view>

#include "batch/batch_options.h"
#include "batch/commands/commands.h"

namespace tessara {
namespace {

bool IsLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }

// A text that man sets as it stands.
std::string Escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const bool starts_line = result.empty() || result.back() == '\n';
    if (starts_line && (c == '.' || c == '\'')) result += "\\&";
    if (c == '\\') {
      result += "\\e";
    } else if (c == '-') {
      result += "\\-";
    } else {
      result += c;
    }
  }
  return result;
}

// "VAR... [by VAR...]": a word that starts with a capital stands for another and is slanted, every other one is typed
// as it is and bold. What stands around words stays.
std::string Synopsis(std::string_view synopsis) {
  std::string result;
  for (std::size_t at = 0; at < synopsis.size();) {
    std::size_t end = at;
    while (end < synopsis.size() &&
           (IsLetter(synopsis[end]) || synopsis[end] == '-' ||
            (synopsis[end] == '.' && end + 1 < synopsis.size() && IsLetter(synopsis[end + 1])))) {
      ++end;
    }
    if (end == at) {
      result += synopsis[at++];
      continue;
    }
    const bool stands_for_another = std::isupper(static_cast<unsigned char>(synopsis[at])) != 0;
    result += stands_for_another ? "\\fI" : "\\fB";
    result += Escaped(synopsis.substr(at, end - at)) + "\\fR";
    at = end;
  }
  return result;
}

// "the values of the two groups" as "The values of the two groups."
std::string Sentence(std::string_view phrase) {
  std::string sentence(phrase);
  sentence.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(sentence.front())));
  return Escaped(sentence) + ".\n";
}

std::string Option(const OptionRow& row) {
  std::string names;
  if (!ShortName(row).empty()) names = Synopsis(ShortName(row)) + ", ";
  names += Synopsis(LongName(row));
  if (row.takes == OptionValue::kPossible) return names + " [" + Synopsis(row.value) + "]";
  return row.value.empty() ? names : names + " " + Synopsis(row.value);
}

std::string Options(std::span<const OptionRow> rows) {
  std::string text;
  for (const OptionRow& row : rows) text += ".TP\n" + Option(row) + "\n" + Sentence(row.help);
  return text;
}

std::string Command(const CommandRow& row) {
  std::string text = ".TP\n\\fB" + Escaped(row.name) + "\\fR";
  if (!row.synopsis.empty()) text += " " + Synopsis(row.synopsis);
  text += "\n" + Escaped(row.details);
  if (row.more_details) text += ".nf\n" + Escaped(row.more_details()) + ".fi\n";
  if (!row.options.empty()) text += ".RS\n" + Options(row.options) + ".RE\n";
  return text;
}

std::string CommandList(std::span<const CommandRow* const> rows) {
  std::string text;
  for (const CommandRow* row : rows) text += Command(*row);
  return text;
}

constexpr std::string_view kDescription =
    "\\fBtessara\\-cli\\fR runs the operations of Tessara from a shell or a script.\n"
    "It opens \\fIDATA.dcs\\fR, runs the lines of the script and then \\fICOMMAND\\fR, all in one\n"
    "session, and prints the Output Log as it grows: UTF\\-8 with LF line ends.\n"
    "On a terminal the control characters of a text out of a file are shown, not sent.\n"
    ".PP\n"
    "The first word that is no option is taken for a command when a command has that name, else\n"
    "for the data file; a data file with the name of a command is written with a folder ahead of\n"
    "it, as in ./notes.\n"
    "The options below may stand in any place of the command line.\n";

constexpr std::string_view kBehindOptions =
    ".PP\n"
    "With \\fB\\-\\-output\\fR the log is written at the end. What \\fBrecent\\fR, \\fBtab\\-delimited\\fR,\n"
    "\\fBcharts\\fR, \\fBtable page\\fR and \\fBbrevarum\\fR with an option print goes to standard output all the\n"
    "same.\n"
    ".PP\n"
    "Without \\fB\\-\\-overwrite\\fR neither the log nor \\fBprint\\fR replaces the script or a data\n"
    "file that the run has opened or saved, whatever links lead to it, and \\fBsave\\fR does not\n"
    "replace a file that does not look like a data file.\n";

constexpr std::string_view kScripts =
    "A script line is a command and its words, split at blanks.\n"
    "Double quotes hold a word with blanks together and may stand anywhere in a word;\n"
    "\\(dq\\(dq inside them is a quote.\n"
    "An empty line and a line that starts with # do nothing.\n"
    "Scripts and arguments are UTF\\-8; a script that is not valid UTF\\-8 is taken as code page\n"
    "1252.\n"
    "Lines end in LF or CR LF.\n"
    "Data, control variable and log stay from line to line.\n"
    ".PP\n"
    "Options stand anywhere behind the command, each with its name in full: \\fB\\-\\-max 20\\fR or\n"
    "\\fB\\-\\-max=20\\fR.\n"
    "The value of an option may start with a sign.\n"
    "A word \\fB\\-\\-\\fR ends the options of a line.\n"
    ".PP\n"
    "A variable is named by its exact name in the heading row, the first of that name in column\n"
    "order, or by #\\fIN\\fR, its column number.\n"
    "\\fBby\\fR stands between the first and the second list of variables.\n";

constexpr std::string_view kExitStatus =
    ".TP\n0\nAll well.\n"
    ".TP\n1\n"
    "A command ended in a message box of refusal or of warning, which goes to standard error as\n"
    "\\(lqTitle: text\\(rq, or in the error frame of a report.\n"
    "The script runs on.\n"
    ".TP\n2\n"
    "A line that cannot be understood, an unknown variable, a file that cannot be opened, standard\n"
    "output and the file of \\fB\\-\\-output\\fR among them, a file that must not be replaced, or a\n"
    "command that the memory does not suffice for.\n"
    "Standard error tells \\(lqFILE:LINE: what is wrong\\(rq, or \\(lqtessara\\-cli: what is wrong\\(rq\n"
    "for the command line.\n"
    "The run ends there; the log so far is printed or written.\n"
    ".PP\n"
    "A line \\(lqtessara\\-cli: note: text\\(rq on standard error helps, refuses nothing and changes no\n"
    "status.\n";

constexpr std::string_view kExamples =
    "Frequencies of two variables with their index of dispersion:\n"
    ".PP\n.nf\n.RS\n"
    "tessara\\-cli survey.dcs frequencies SEX SMOKE \\-\\-dispersion\n"
    ".RE\n.fi\n.PP\n"
    "A script from standard input, its log in a file:\n"
    ".PP\n.nf\n.RS\n"
    "tessara\\-cli \\-s \\- \\-o log.txt <<END\n"
    "open survey.dcs\n"
    "control AGE \\-\\-gt 40\n"
    "descriptives WEIGHT \\-\\-chart\n"
    "print report.pdf\n"
    "END\n"
    ".RE\n.fi\n";

std::string Section(std::string_view heading, std::string_view text) {
  return ".SH " + std::string(heading) + "\n" + std::string(text);
}

}  // namespace

std::string ManualPage() {
  return ".\\\" Made by tessara-cli --man out of the rows of its options and commands.\n"
         ".TH TESSARA\\-CLI 1 \"\" Tessara \"User Commands\"\n" +
         Section("NAME", "tessara\\-cli \\- statistics without a window\n") +
         Section("SYNOPSIS",
                 "\\fBtessara\\-cli\\fR " + Synopsis("[OPTION...] [DATA.dcs] [COMMAND [ARGUMENT...]]") + "\n") +
         Section("DESCRIPTION", kDescription) +
         Section("OPTIONS", Options(ProgramOptions()) + std::string(kBehindOptions)) + Section("SCRIPTS", kScripts) +
         Section("COMMANDS", CommandList(Commands())) + Section("EXIT STATUS", kExitStatus) +
         Section("EXAMPLES", kExamples);
}

}  // namespace tessara
