#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "batch/batch.h"

// Runs of the batch program in this process, in a folder of their own.

namespace tessara {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

constexpr const char* kSeparator = "\n<Page Break>\n\n\n";

inline std::string Content(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = 0; (c = std::fgetc(file)) != EOF;) text.push_back(static_cast<char>(c));
  std::fclose(file);
  return text;
}

inline std::string FileContent(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// So many line ends.
inline std::string Lines(int count) {
  std::string text;
  while (count-- > 0) text += "\r\n";
  return text;
}

struct Outcome {
  int status = 0;
  std::string out;
  std::string err;
};

class BatchRunTest : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::temp_directory_path() / ("tessara-batch-" + std::to_string(getpid()) + "-" + test->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string In(const std::string& name) const { return (folder_ / name).string(); }

  std::string Write(const std::string& name, const std::string& content) const {
    std::ofstream(folder_ / name, std::ios::binary) << content;
    return In(name);
  }

  // Three records of the variables A and B; the notes "note".
  std::string WriteData(const std::string& name = "data.dcs") const {
    std::string text = "3 2 Tessara data\x01note\r\n";
    for (int i = 1; i < 15; ++i) text += "\x01\r\n";
    text +=
        "A\x01"
        "B\r\n1\x01"
        "5\r\n2\x01"
        "6\r\n2\x01"
        "7\r\n";
    return Write(name, text);
  }

  Outcome Run(const Words& arguments, const std::string& input = "") const {
    std::FILE* in = std::tmpfile();
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    std::fwrite(input.data(), 1, input.size(), in);
    std::rewind(in);
    Outcome outcome;
    outcome.status = RunBatch(arguments, {in, out, err});
    outcome.out = Content(out);
    outcome.err = Content(err);
    std::fclose(in);
    return outcome;
  }

  Outcome RunScript(const std::string& script) const { return Run({"-s", "-"}, script); }

  fs::path folder_;
};

}  // namespace tessara
