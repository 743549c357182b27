#include "batch/run_command.h"

#include <string_view>

#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "presentation/output_log.h"

namespace tessara {
namespace {

// What is wrong with the number of words; empty when all is well.
std::string WrongWords(const CommandRow& command, const CommandWords& words) {
  if (!words.error.empty()) return words.error;
  if (words.words.empty() && !command.needed_word.empty()) return std::string(command.needed_word) + " is missing";
  if (words.words.size() > command.most_words) return Quoted(words.words[command.most_words]) + " is a word too many";
  return {};
}

CommandResult RunFreshly(Batch& batch, const CommandRow& command, const CommandWords& words) {
  batch.platform.answer = Answer::kYes;
  batch.platform.refused = false;
  CommandResult result = command.run(batch, words);
  FollowPanel(batch.session);
  if (result.status == BatchStatus::kAllWell && batch.platform.refused) result.status = BatchStatus::kRefused;
  batch.stream.PrintNews();
  return result;
}

}  // namespace

Batch::Batch(LogStream& the_stream, std::optional<std::uint64_t> seed)
    : stream(the_stream), platform(the_stream, seed), session(platform, settings_store) {
  StartBatchSession(session);
  if (!session.output.ShowLogMode) ToggleOutputMode(session.output);  // print means the log, not the latest run
}

CommandResult RunCommand(Batch& batch, std::span<const std::string> line) {
  return WithinMemory(batch, [&] {
    const CommandRow* command = FindCommand(line.front());
    if (!command) return NotUnderstood(UnknownCommand(line.front()));
    return RunCommand(batch, *command, ParseWords(command->options, WordOrder::kAnywhere, line.subspan(1)));
  });
}

CommandResult RunCommand(Batch& batch, const CommandRow& command, const CommandWords& words) {
  return WithinMemory(batch, [&] {
    const std::string wrong = WrongWords(command, words);
    CommandResult result = wrong.empty() ? RunFreshly(batch, command, words) : NotUnderstood(wrong);
    if (result.status == BatchStatus::kNotUnderstood) result.error = std::string(command.name) + ": " + result.error;
    return result;
  });
}

}  // namespace tessara
