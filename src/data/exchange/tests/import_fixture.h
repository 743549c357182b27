#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "data/change_door.h"
#include "data/exchange/import.h"
#include "data/tests/data_fixture.h"

namespace tessara {

// A data set that two records of a data file stand in, with a form and a documents folder.
class ImportFixture : public DataFixture {
 protected:
  ImportFixture() {
    platform.documents_folder = folder / "documents";
    known = folder.Make("known.dcs", FileText("2 2 Tessara data~Notes", "SEX~AGE", {"1~34", "2~41"}));
    EXPECT_EQ(Open(known), LoadOutcome::kLoaded);
  }

  // Takes a file with that text and imports it; without a delimiter a comma, and names as the first character says.
  ImportOutcome ImportFile(std::string_view content, const std::string& delimiter = ",") {
    Choose(content, delimiter);
    return RunImport();
  }
  void Choose(std::string_view content, const std::string& delimiter = ",") {
    text_file = folder.Make("text.csv", content);
    OpenDelimitForm(form);
    ASSERT_TRUE(TakeImportFile(form, data, text_file));
    form.delimiter = DelimiterOption::kOther;
    form.Text2 = delimiter;
  }
  ImportOutcome RunImport() {
    if (const auto refused = RefuseImport(form, platform)) return *refused;
    return ImportText(form, data, platform);
  }
  ImportOutcome Paste(const std::string& content) {
    OpenDelimitForm(form);
    TakePaste(form, content);
    return RunImport();
  }

  // The cells of names and records: fields between "|", lines between "/", the empty tag as "-".
  std::string Cells() const {
    std::string cells;
    for (std::size_t row = kVariableNameRow; row < data.RecordCount + kFirstRecordRow; ++row) {
      if (!cells.empty()) cells += '/';
      for (std::size_t column = 1; column <= data.VariableCount; ++column) {
        const TaggedView cell = data.matrix.Cell(row, column);
        cells += (column > 1 ? "|" : "") + (cell.is_empty() ? std::string("-") : std::string(cell.text()));
      }
    }
    return cells;
  }

  DelimitForm form;
  Path known;
  Path text_file;
};

}  // namespace tessara
