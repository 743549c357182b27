#include "batch/batch.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "batch/batch_options.h"
#include "batch/command.h"
#include "batch/help_text.h"
#include "batch/log_stream.h"
#include "batch/script_line.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::string_view kProgramName = "tessara-cli";
constexpr std::string_view kStandardInput = "-";

std::string ReadAll(std::FILE* file) {
  std::string content;
  std::array<char, 65536> buffer;
  for (std::size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), file)) > 0;) {
    content.append(buffer.data(), count);
  }
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
  if (name == kStandardInput) return DecodeScript(ReadAll(standard_input));
  if (!IsPossiblePath(name)) return std::nullopt;
  auto content = ReadStream(PathFromUtf8(name));
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
  }

  BatchStatus Run() {
    if (options_.output && !CheckOutput()) return status_;
    if (options_.data_file) Note(data_commands::OpenPath(batch_, *options_.data_file), kProgramName);
    if (Going() && options_.script) RunScript(*options_.script);
    if (Going() && options_.command) Note(RunCommand(batch_, *options_.command, options_.words), kProgramName);
    stream_.PrintNews();
    if (options_.output) WriteOutput();
    if (stream_.write_failed()) Fail("standard output cannot be written");
    return status_;
  }

 private:
  bool Going() const { return status_ != BatchStatus::kNotUnderstood; }

  void Note(const CommandResult& result, std::string_view place) {
    status_ = std::max(status_, result.status);
    if (result.status == BatchStatus::kNotUnderstood) stream_.PrintMessage(std::string(place) + ": " + result.error);
  }

  void Fail(std::string what) { Note(NotUnderstood(std::move(what)), kProgramName); }

  void RunScript(const std::string& name) {
    const auto text = ReadScript(name, streams_.in);
    if (!text) return Fail(Quoted(name) + " cannot be opened");
    ScriptLines lines(*text);
    while (Going()) {
      const auto line = lines.Next();
      if (!line) return;
      if (IsSilentLine(*line)) continue;
      const auto words = SplitWords(*line);
      Note(words ? RunCommand(batch_, *words) : NotUnderstood("a quote is not closed"),
           name + ":" + std::to_string(lines.number()));
    }
  }

  bool CheckOutput() {
    if (IsPossiblePath(*options_.output) && CanBeWritten(PathFromUtf8(*options_.output))) return true;
    Fail(Quoted(*options_.output) + " cannot be written");
    return false;
  }

  void WriteOutput() {
    const WriteResult result = WriteWholeFile(PathFromUtf8(*options_.output), batch_.session.output.OutputLogText);
    if (result != WriteResult::kWritten) Fail(Quoted(*options_.output) + " cannot be written");
  }

  const BatchOptions& options_;
  const BatchStreams& streams_;
  LogStream stream_;
  Batch batch_;
  BatchStatus status_ = BatchStatus::kAllWell;
};

}  // namespace

int RunBatch(std::span<const std::string> arguments, const BatchStreams& streams) {
  const BatchOptions options = ReadCommandLine(arguments);
  BatchStatus status = BatchStatus::kAllWell;
  if (!options.error.empty()) {
    LogStream(streams.out, streams.err).PrintMessage(std::string(kProgramName) + ": " + options.error);
    status = BatchStatus::kNotUnderstood;
  } else if (options.help || options.version) {
    const std::string text = options.version        ? VersionText()
                             : options.help_command ? CommandHelp(*options.help_command)
                                                    : ProgramHelp();
    std::fwrite(text.data(), 1, text.size(), streams.out);
    std::fflush(streams.out);
  } else {
    status = BatchRun(options, streams).Run();
  }
  return static_cast<int>(status);
}

}  // namespace tessara
