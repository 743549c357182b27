// Procedures on hostile data: the bytes are a data file behind a banner of sizes that can be worked through, and choose
// the procedure, its variables and options. Every run ends with a status, and the same run prints the same bytes again.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "batch_run.h"
#include "platform/files.h"

namespace tessara {
namespace {

// A command, what may stand behind its first variables, and its options.
struct FuzzedCommand {
  std::string_view name;
  bool has_second_list;
  std::array<std::string_view, 4> options;
};

constexpr FuzzedCommand kFuzzedCommands[] = {
    {"frequencies", true, {"--dispersion"}},
    {"descriptives", false, {"--chart", "--save-z"}},
    {"correlation", true, {}},
    {"correlation-matrix", false, {}},
    {"list", false, {"--max=7"}},
    {"crosstab", true, {"--no-chi-square", "--risk", "--association", "--agreement"}},
    {"diagnostic", true, {}},
    {"t-test", true, {"--groups=1 2"}},
    {"anova", true, {"--summary", "--post-hoc"}},
    {"regression", true, {"--summary", "--save-residuals"}},
    {"logistic", true, {"--summary", "--save-predicted"}},
};

// Takes byte after byte; 0 when there are no more.
class Choices {
 public:
  explicit Choices(std::string_view bytes) : bytes_(bytes) {}
  std::size_t Next(std::size_t count) {
    if (bytes_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte % count;
  }
  std::string_view rest() const { return bytes_; }

 private:
  std::string_view bytes_;
};

std::vector<std::string> CommandLine(Choices& choices, std::size_t variables) {
  const FuzzedCommand& command = kFuzzedCommands[choices.Next(std::size(kFuzzedCommands))];
  const auto variable = [&] { return "#" + std::to_string(1 + choices.Next(variables)); };
  std::vector<std::string> words = {std::string(command.name), variable()};
  if (choices.Next(2) == 1) words.push_back(variable());
  if (command.has_second_list) {
    words.push_back("by");
    words.push_back(variable());
    if (choices.Next(2) == 1) words.push_back(variable());
  }
  for (const std::string_view option : command.options) {
    if (option == "--groups=1 2") {
      words.insert(words.end(), {"--groups", "1", "2"});
    } else if (!option.empty() && choices.Next(2) == 1) {
      words.emplace_back(option);
    }
  }
  return words;
}

const Path& FuzzFile() {
  static const Path path =
      std::filesystem::temp_directory_path() / ("fuzz-procedures-" + std::to_string(SystemEntropy()) + ".dcs");
  return path;
}

}  // namespace
}  // namespace tessara

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tessara;
  KeepFromFiles(true);
  Choices choices({reinterpret_cast<const char*>(bytes), size});
  const std::size_t records = choices.Next(64);
  const std::size_t variables = 1 + choices.Next(6);
  const std::vector<std::string> words = CommandLine(choices, variables);
  std::ofstream(FuzzFile(), std::ios::binary) << records << ' ' << variables << " Tessara data\r\n" << choices.rest();

  std::vector<std::string> arguments = {"--bytes", FuzzFile().string()};
  arguments.insert(arguments.end(), words.begin(), words.end());
  const BatchOutcome outcome = RunInMemory(arguments);
  CheckOutcome(outcome);
  Require(RunInMemory(arguments) == outcome, "a run does not depend on the one before");
  std::filesystem::remove(FuzzFile());
  return 0;
}
