#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/files.h"

namespace tessara {

// A folder for the files of one test, gone with it.
class TemporaryFolder {
 public:
  TemporaryFolder()
      : path_(std::filesystem::temp_directory_path() / ("tessara-test-" + std::to_string(SystemEntropy()))) {
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const Path& path() const { return path_; }
  Path operator/(const Path& name) const { return path_ / name; }

  // A new file of that content.
  Path Make(const Path& name, std::string_view content) const {
    const Path path = path_ / name;
    EXPECT_EQ(WriteWholeFile(path, content), WriteResult::kWritten) << path;
    return path;
  }

  // The names in the folder, hidden ones among them.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  Path path_;
};

// The content of a file that must be there.
inline std::string ContentOf(const Path& path) {
  const auto bytes = ReadWholeFile(path);
  EXPECT_TRUE(bytes.has_value()) << path;
  return bytes ? std::string(bytes->text()) : std::string();
}

}  // namespace tessara
