#include "batch/manual_page.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "batch/batch_options.h"
#include "batch/commands/commands.h"
#include "batch/completion.h"

namespace tessara {
namespace {

std::string FileContent(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string Hyphens(std::string_view text) {
  std::string escaped;
  for (const char c : text) escaped += c == '-' ? std::string("\\-") : std::string(1, c);
  return escaped;
}

// To mend it: tessara-cli --man > installed/man/tessara-cli.1
TEST(ManualPage, TheInstalledPageIsThatOfTheRows) {
  EXPECT_EQ(FileContent(TESSARA_SOURCE_DIR "/installed/man/tessara-cli.1"), ManualPage());
}

TEST(ManualPage, HoldsEachCommandWithItsOptions) {
  const std::string page = ManualPage();
  for (const CommandRow* row : Commands()) {
    const std::size_t item = page.find(".TP\n\\fB" + Hyphens(row->name) + "\\fR");
    ASSERT_NE(item, std::string::npos) << row->name;
    for (const OptionRow& option : row->options) {
      EXPECT_NE(page.find(".TP\n\\fB" + Hyphens(LongName(option)) + "\\fR", item), std::string::npos) << option.names;
    }
  }
  for (const OptionRow& option : ProgramOptions()) {
    EXPECT_NE(page.find("\\fB" + Hyphens(LongName(option)) + "\\fR"), std::string::npos) << option.names;
  }
}

TEST(ManualPage, WordsThatStandForOthersAreSlantedAndTypedOnesBold) {
  const std::string page = ManualPage();
  EXPECT_NE(page.find(".TP\n\\fBfrequencies\\fR \\fIVAR\\fR... [\\fBby\\fR \\fIVAR\\fR...] "
                      "[\\fB\\-\\-dispersion\\fR]\n"),
            std::string::npos);
  EXPECT_NE(page.find(".TP\n\\fB\\-s\\fR, \\fB\\-\\-script\\fR \\fIFILE\\fR\nRun the commands of FILE"),
            std::string::npos);
  EXPECT_NE(page.find("[\\fIDATA.dcs\\fR] [\\fICOMMAND\\fR [\\fIARGUMENT\\fR...]]"), std::string::npos);
}

// Runs the completion in a shell, in a folder with the file letter.txt, and yields what it offers, sorted, with a blank
// behind each.
std::string Completed(const std::vector<std::string>& words) {
  const auto folder = std::filesystem::temp_directory_path() / ("tessara-completion-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "letter.txt") << "Dear reader";
  std::string commands = CompletionScript() + "cd '" + folder.string() + "'; COMP_WORDS=(tessara-cli";
  for (const std::string& word : words) commands += " '" + word + "'";
  commands += "); COMP_CWORD=" + std::to_string(words.size()) +
              "; _tessara_cli; [ -z \"${COMPREPLY[*]}\" ] || printf '%s\\n' \"${COMPREPLY[@]}\" | sort";
  setenv("TESSARA_COMPLETION_TEST", commands.c_str(), 1);
  std::FILE* shell = popen("bash -c 'eval \"$TESSARA_COMPLETION_TEST\"' 2>&1", "r");
  std::string offered;
  for (int c = 0; (c = std::fgetc(shell)) != EOF;) offered += c == '\n' ? ' ' : static_cast<char>(c);
  pclose(shell);
  std::filesystem::remove_all(folder);
  return offered;
}

TEST(CompletionScript, OffersCommandsAndFiles) {
  EXPECT_EQ(Completed({"corr"}), "correlation correlation-matrix ");
  EXPECT_EQ(Completed({"--bytes", "no"}), "notes ");
  EXPECT_EQ(Completed({"l"}), "letter.txt list logistic ");
  EXPECT_EQ(Completed({"open", "l"}), "letter.txt ");  // behind a command files alone
}

TEST(CompletionScript, OffersTheOptionsOfTheCommandAndOfTheProgram) {
  EXPECT_EQ(Completed({"a.dcs", "crosstab", "A", "--r"}), "--risk ");
  EXPECT_EQ(Completed({"a.dcs", "frequencies", "A", "--s"}), "--script --seed ");
  EXPECT_EQ(Completed({"regression", "--s"}), "--save-residuals --script --seed --summary ");
  EXPECT_EQ(Completed({"save", "--ov"}), "--overwrite ");  // once, of both
  EXPECT_EQ(Completed({"--ris"}), "");                     // of no command yet
}

}  // namespace
}  // namespace tessara
