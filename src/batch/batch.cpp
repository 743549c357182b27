#include "batch/batch.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <new>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <vector>

#include "batch/batch_options.h"
#include "batch/commands/commands.h"
#include "batch/commands/open_save.h"
#include "batch/completion.h"
#include "batch/help_text.h"
#include "batch/log_stream.h"
#include "batch/manual_page.h"
#include "batch/run_command.h"
#include "batch/words/script_line.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::string_view kProgramName = "tessara-cli";
constexpr std::string_view kStandardInput = "-";

// Nothing when it cannot be read.
std::optional<std::string> ReadAll(std::FILE* file) {
  std::string content;
  std::array<char, 65536> buffer;
  for (std::size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), file)) > 0;) {
    content.append(buffer.data(), count);
  }
  if (std::ferror(file) != 0) return std::nullopt;
  return content;
}

// A script may also come from a pipe, so it is read to its end, whatever its size.
std::optional<std::string> ReadStream(const Path& path) {
  if (!FactsOfFile(path)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::string content;
  std::array<char, 65536> buffer;
  while (file.read(buffer.data(), buffer.size()), file.gcount() > 0) {
    content.append(buffer.data(), static_cast<std::size_t>(file.gcount()));
  }
  if (!file.eof()) return std::nullopt;
  return content;
}

std::optional<std::string> ReadScript(const std::string& name, std::FILE* standard_input) {
  const bool is_stream = name == kStandardInput;
  if (!is_stream && !IsPossiblePath(name)) return std::nullopt;
  auto content = is_stream ? ReadAll(standard_input) : ReadStream(PathFromUtf8(name));
  if (!content) return std::nullopt;
  return DecodeScript(std::move(*content));
}

// Whether the log can be written there, as far as that can be seen before there is a log.
bool CanBeWritten(const Path& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return false;
  return !path.has_parent_path() || std::filesystem::is_directory(path.parent_path(), error);
}

// One run: the data file, the script, the command, the log's file.
class BatchRun {
 public:
  BatchRun(const BatchOptions& options, const BatchStreams& streams)
      : options_(options), streams_(streams), stream_(streams.out, streams.err), batch_(stream_, options.seed) {
    stream_.SetForm(options.bytes ? LogForm::kBytes : LogForm::kText);
    if (!options.output) stream_.Follow(&batch_.session.output);
    batch_.files.overwrite = options.overwrite;
  }

  BatchStatus Run() {
    NoteInputs();
    if (options_.output && !PrepareOutput()) return status_;
    Step([&] { RunAll(); });
    Step([&] { stream_.PrintNews(); });
    if (options_.output) Step([&] { WriteOutput(); });
    if (stream_.write_failed()) Fail("standard output cannot be written");
    return status_;
  }

 private:
  bool Going() const { return status_ != BatchStatus::kNotUnderstood; }

  // A step of the run itself, so that no lack of memory keeps the log from being written.
  template <typename Work>
  void Step(Work work) {
    Note(WithinMemory(batch_,
                      [&] {
                        work();
                        return Done();
                      }),
         kProgramName);
  }

  void Note(const CommandResult& result, std::string_view place) {
    status_ = std::max(status_, result.status);
    if (result.status == BatchStatus::kNotUnderstood) stream_.PrintMessage(std::string(place) + ": " + result.error);
  }

  void Fail(std::string what) { Note(NotUnderstood(std::move(what)), kProgramName); }

  void RunAll() {
    if (options_.data_file) {
      Note(WithinMemory(batch_, [&] { return OpenPath(batch_, *options_.data_file); }), kProgramName);
    }
    if (Going() && options_.script) RunScript(*options_.script);
    if (Going() && options_.command) Note(RunCommand(batch_, *options_.command, options_.words), kProgramName);
  }

  void RunScript(const std::string& name) {
    std::optional<std::string> text;
    Note(WithinMemory(batch_,
                      [&] {
                        text = ReadScript(name, streams_.in);
                        if (text) return Done();
                        return NotUnderstood(name == kStandardInput ? "standard input cannot be read"
                                                                    : Quoted(name) + " cannot be opened");
                      }),
         kProgramName);
    if (!text) return;
    ScriptLines lines(*text);
    while (Going()) {
      const auto line = lines.Next();
      if (!line) return;
      if (IsSilentLine(*line)) continue;
      Note(WithinMemory(batch_, [&] { return RunLine(*line); }), name + ":" + std::to_string(lines.number()));
    }
  }

  CommandResult RunLine(std::string_view line) {
    const auto words = SplitWords(line);
    return words ? RunCommand(batch_, *words) : NotUnderstood("a quote is not closed");
  }

  void NoteInputs() {
    for (const auto& name : {options_.script, options_.data_file}) {
      if (name && *name != kStandardInput && IsPossiblePath(*name)) batch_.files.AddInput(PathFromUtf8(*name));
    }
  }

  // Whether the log may take its file at the end, as far as that can be seen before there is a log.
  bool PrepareOutput() {
    const std::string& name = *options_.output;
    if (!IsPossiblePath(name) || !CanBeWritten(PathFromUtf8(name))) {
      Fail(Quoted(name) + " cannot be written");
      return false;
    }
    batch_.files.output = PathFromUtf8(name);
    if (!batch_.files.GuardsInput(*batch_.files.output)) return true;  // any data file is looked for at the end
    return OutputIsFree();
  }

  // Looked at once more before the log is written: a link may have got a file in the meantime.
  bool OutputIsFree() {
    const std::string refusal = WhyNotPrintedTo(batch_, *batch_.files.output, false);
    if (!refusal.empty()) Fail(refusal);
    return refusal.empty();
  }

  void WriteOutput() {
    if (!OutputIsFree()) return PrintLog();
    const WriteResult result = WriteWholeFile(*batch_.files.output, batch_.session.output.OutputLogText);
    if (result == WriteResult::kWritten) return;
    Fail(Quoted(*options_.output) + " cannot be written");
    PrintLog();
  }

  // The log that cannot go to its file, so that it is not lost.
  void PrintLog() {
    stream_.Follow(&batch_.session.output);
    stream_.PrintNews();
  }

  const BatchOptions& options_;
  const BatchStreams& streams_;
  LogStream stream_;
  Batch batch_;
  BatchStatus status_ = BatchStatus::kAllWell;
};

// What the program tells of itself.
std::string PageText(const BatchOptions& options) {
  if (options.version) return VersionText();
  if (options.man) return ManualPage();
  if (options.completion) return CompletionScript();
  return options.help_command ? CommandHelp(*options.help_command) : ProgramHelp();
}

BatchStatus PrintPage(const BatchOptions& options, const BatchStreams& streams) {
  LogStream stream(streams.out, streams.err);
  stream.PrintPage(PageText(options));
  if (!stream.write_failed()) return BatchStatus::kAllWell;
  stream.PrintMessage(std::string(kProgramName) + ": standard output cannot be written");
  return BatchStatus::kNotUnderstood;
}

BatchStatus RunOptions(const BatchOptions& options, const BatchStreams& streams) {
  if (!options.error.empty()) {
    LogStream(streams.out, streams.err).PrintMessage(std::string(kProgramName) + ": " + options.error);
    return BatchStatus::kNotUnderstood;
  }
  if (options.help || options.version || options.man || options.completion) return PrintPage(options, streams);
  return BatchRun(options, streams).Run();
}

}  // namespace

int RunBatch(std::span<const std::string> arguments, const BatchStreams& streams) {
  try {
    return static_cast<int>(RunOptions(ReadCommandLine(arguments), streams));
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {
  }
  std::fputs("tessara-cli: out of memory\n", streams.err);
  std::fflush(streams.err);
  return static_cast<int>(BatchStatus::kNotUnderstood);
}

}  // namespace tessara
