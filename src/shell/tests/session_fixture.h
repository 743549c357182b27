#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/files.h"
#include "platform/scripted_platform.h"
#include "shell/session.h"

namespace tessara {

// A session on a scripted platform, with a folder of its own that holds a program folder and a documents folder.
class SessionFixture : public testing::Test {
 protected:
  SessionFixture() : session(platform, store) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder = std::filesystem::temp_directory_path() / ("tessara_" + std::string(test->test_suite_name()) + "_" +
                                                       test->name() + "_" + std::to_string(SystemEntropy()));
    platform.program_folder = folder / "program";
    platform.documents_folder = folder / "documents";
    std::filesystem::create_directories(platform.program_folder);
    std::filesystem::create_directories(platform.documents_folder);
  }
  ~SessionFixture() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }

  Path WriteFile(const std::string& name, const std::string& content) const {
    std::ofstream(folder / name, std::ios::binary) << content;
    return folder / name;
  }
  // Two records of AGE and SEX.
  Path WriteDataFile(const std::string& name) const {
    std::string text = "2 2 Tessara data\x01note\r\n";
    for (int row = 1; row <= 14; ++row) text += "\x01\r\n";
    return WriteFile(name, text + "AGE\x01SEX\r\n34\x01" + "1\r\n41\x01" + "2\r\n");
  }
  static std::string ReadFile(const Path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static ChosenFile Chosen(const Path& path) { return {path, path.filename().string()}; }

  LoadOutcome Open(const Path& path) { return OpenDataFile(session, path, FilePick::kPicked); }

  // Puts a report into the output log.
  void Report(const std::string& text) {
    BeginRun(session.output);
    AppendReport(session.output, text);
  }

  Path folder;
  ScriptedPlatform platform;
  MemorySettingsStore store;
  Session session;
};

}  // namespace tessara
