#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_file.h"
#include "platform/scripted_platform.h"
#include "platform/tests/temporary_folder.h"

namespace tessara {

inline constexpr const char* kSaveRefusedText =
    "There was an error creating the new file.  You may not have authorization to create a new file on this system. "
    "Try saving the file to 'My Documents\\Tessara Data' or some other location where write access is allowed.";
inline constexpr const char* kSaveAsRefusedText =
    "There was an error creating the new file.  You may not have authorization to create a new file on this system. "
    "Try using 'Save As' to save the file to 'My Documents\\Tessara Data' or some other location where write access "
    "is allowed.";

// The text of a data file. Separators are written as '~' here, since a middle dot would not stand out.
inline std::string WithSeparators(std::string_view text) {
  std::string result(text);
  std::replace(result.begin(), result.end(), '~', '\x01');
  return result;
}

// First line, names and records, with an empty dictionary between them.
inline std::string FileText(std::string_view first_line, std::string_view names,
                            const std::vector<std::string>& records) {
  std::string text = std::string(first_line) + "\r\n";
  for (int row = 1; row < 15; ++row) text += "\r\n";
  text += std::string(names) + "\r\n";
  for (const std::string& record : records) text += record + "\r\n";
  return WithSeparators(text);
}

// A data set on a scripted platform, as it stands behind the start: empty, with a folder of its own for files.
class DataFixture : public testing::Test {
 protected:
  DataFixture() {
    platform.program_folder = folder / "program";
    std::filesystem::create_directories(platform.program_folder / "Data");
    NewDataFile(data);
    data.DataFilePath = platform.program_folder / "Data";  // a folder, until a file is opened
  }

  LoadOutcome Open(const Path& path, FilePick pick = FilePick::kPicked) {
    return LoadDataFile(data, platform, path, pick);
  }
  LoadOutcome OpenText(std::string_view content) { return Open(folder.Make("data.dcs", content)); }

  SaveOutcome SaveAs(const Path& path) { return SaveDataFileTo(data, platform, path); }
  // What a Save As writes.
  std::string SavedText() {
    EXPECT_EQ(SaveAs(folder / "saved.dcs"), SaveOutcome::kSaved);
    return ContentOf(folder / "saved.dcs");
  }

  // The text of record n's cell, as a report would meet it.
  std::string Record(std::size_t n, std::size_t column) const {
    const TaggedView cell = data.matrix.Cell(kHeaderRowCount + n, column);
    return cell.is_empty() ? "(empty)" : cell.is_number() ? "(number)" : std::string(cell.text());
  }

  TemporaryFolder folder;
  ScriptedPlatform platform;
  DataSet data;
};

}  // namespace tessara
