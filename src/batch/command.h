#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "batch/batch_platform.h"
#include "batch/command_words.h"
#include "batch/log_stream.h"
#include "platform/settings_store.h"
#include "shell/session.h"

// The commands of the batch program, as data: what each is called, takes and does.

namespace tessara {

// Exit statuses. A higher one wins over a lower one.
enum class BatchStatus {
  kAllWell = 0,
  kRefused = 1,        // some command ended in a message box of refusal or in the error frame
  kNotUnderstood = 2,  // a line that cannot be understood, an unknown variable, a file that cannot be opened
};

struct CommandResult {
  BatchStatus status = BatchStatus::kAllWell;
  std::string error;  // what is wrong, UTF-8; only with kNotUnderstood
};

inline CommandResult Done() { return {}; }
inline CommandResult NotUnderstood(std::string what) { return {BatchStatus::kNotUnderstood, std::move(what)}; }

struct CommandRow;

// One run of the batch program: the session, and what stands around it.
struct Batch {
  Batch(LogStream& the_stream, std::optional<std::uint64_t> seed);
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;

  LogStream& stream;
  BatchPlatform platform;
  MemorySettingsStore settings_store;
  Session session;
  std::map<const CommandRow*, WordParser> parsers;  // of the commands that a script has used
};

struct CommandRow {
  std::string_view name;
  std::string_view synopsis;  // what follows the name
  std::string_view summary;   // a few words
  std::string_view details;   // lines, each ended by LF
  std::string_view example;
  std::span<const OptionRow> options;
  std::size_t most_words = 0;
  std::string_view first_word;  // what is missing when there is no word at all; empty when none is needed
  CommandResult (*run)(Batch& batch, const CommandWords& words) = nullptr;
  std::string (*more_details)() = nullptr;  // lines that follow the details, made from a table; none for most
};

// All commands, in the order of the help.
std::span<const CommandRow> Commands();
const CommandRow* FindCommand(std::string_view name);
// Whether the word names a command that belongs to the language but not to this version.
bool IsLaterCommand(std::string_view name);
// The command whose name is nearest to the word.
const CommandRow& NearestCommand(std::string_view word);

// Why a word that is no command of this version cannot be run.
std::string UnknownCommand(std::string_view word);

// Runs a line: the name of a command and its words.
CommandResult RunCommand(Batch& batch, std::span<const std::string> line);
// Runs a command whose words have been told apart. The status counts the boxes that it showed.
CommandResult RunCommand(Batch& batch, const CommandRow& command, const CommandWords& words);

// The families of commands.
namespace data_commands {
CommandResult Open(Batch& batch, const CommandWords& words);
CommandResult New(Batch& batch, const CommandWords& words);
CommandResult Save(Batch& batch, const CommandWords& words);
CommandResult Notes(Batch& batch, const CommandWords& words);
CommandResult Statistics(Batch& batch, const CommandWords& words);
// Opens a data file as the open dialog does.
CommandResult OpenPath(Batch& batch, std::string_view utf8_path);
}  // namespace data_commands

namespace procedure_commands {
CommandResult Control(Batch& batch, const CommandWords& words);
CommandResult Frequencies(Batch& batch, const CommandWords& words);
CommandResult Descriptives(Batch& batch, const CommandWords& words);
CommandResult Crosstab(Batch& batch, const CommandWords& words);
CommandResult TTest(Batch& batch, const CommandWords& words);
CommandResult Anova(Batch& batch, const CommandWords& words);
CommandResult Correlation(Batch& batch, const CommandWords& words);
CommandResult CorrelationMatrix(Batch& batch, const CommandWords& words);
CommandResult List(Batch& batch, const CommandWords& words);
CommandResult Diagnostic(Batch& batch, const CommandWords& words);
CommandResult Regression(Batch& batch, const CommandWords& words);
CommandResult Logistic(Batch& batch, const CommandWords& words);
}  // namespace procedure_commands

namespace brevarum_commands {
CommandResult Brevarum(Batch& batch, const CommandWords& words);
// The panels with their boxes, a line each.
std::string PanelLines();
}  // namespace brevarum_commands

namespace output_commands {
CommandResult Charts(Batch& batch, const CommandWords& words);
CommandResult Recent(Batch& batch, const CommandWords& words);
CommandResult TabDelimitedText(Batch& batch, const CommandWords& words);
CommandResult Print(Batch& batch, const CommandWords& words);
}  // namespace output_commands

}  // namespace tessara
