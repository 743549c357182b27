#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/change_door.h"
#include "fault_turns.h"
#include "platform/memory.h"
#include "platform/scripted_platform.h"
#include "platform/settings_store.h"
#include "platform/tests/temporary_folder.h"
#include "shell/session.h"

// Each request of memory and each call for a file fails in turn, through import, paste, export and split. Whatever
// fails: the data in memory are the old or the new ones, whole, and so is every file on the disk; no temporary file is
// left; and the user has been told.

namespace tessara {
namespace {

constexpr const char* kText = "NAME,PAY\r\nRay $,1\r\n  Jones,2,3\r\nAli\r\n";
constexpr const char* kOldExport = "an older file\r\n";

std::string CellsOf(const DataSet& data) {
  std::string cells;
  for (std::size_t row = kVariableNameRow; row < data.RecordCount + kFirstRecordRow; ++row) {
    for (std::size_t column = 1; column <= data.VariableCount; ++column) {
      cells += std::string(data.matrix.Cell(row, column).text()) + "|";
    }
    cells += "/";
  }
  return cells;
}

std::string DataFileText() {
  std::string text = "2 2 Tessara data\x01notes\r\n";
  for (int row = 1; row < 15; ++row) text += "\x01\r\n";
  return text +
         "SEX\x01"
         "AGE\r\n1\x01"
         "34\r\n2\x01"
         "41\r\n";
}

constexpr const char* kOldCells = "SEX|AGE|/1|34|/2|41|/";
constexpr const char* kNewCells = "NAME|PAY|/Ray |1|/Jones|2|/Ali||/";

// A session with a data file open, a text to import and a file to export over.
class Exchange {
 public:
  Exchange() : session(platform, store) {
    platform.program_folder = folder.path();
    platform.documents_folder = folder.path();
    StartSession(session, {});
    known = folder.Make("known.dcs", DataFileText());
    text = folder.Make("text.csv", kText);
    target = folder.Make("target", kOldExport);
    OpenDataFile(session, known, FilePick::kPicked);
    platform.messages.clear();
  }

  template <typename Operation>
  bool Do(Operation operation) {
    return WithinMemory(platform, reserve, operation);
  }

  // As the wizard goes.
  void Import() {
    DelimitForm& form = session.delimit;
    OpenDelimitForm(form);
    if (!TakeImportFile(form, session.data, text)) return ShowCannotOpen(platform);
    form.delimiter = DelimiterOption::kComma;
    ImportData(session);
  }
  void Paste() {
    OpenDelimitForm(session.delimit);
    TakePaste(session.delimit, kText);
    session.delimit.delimiter = DelimiterOption::kComma;
    ImportData(session);
  }

  // The data are the old or the new ones, and a save never goes over the text.
  void ExpectWhole(std::size_t number) {
    const std::string cells = CellsOf(session.data);
    EXPECT_TRUE(cells == kOldCells || cells == kNewCells) << "at fault " << number << ": " << cells;
    EXPECT_EQ(session.data.VarList.size(), 3u);
    if (cells == kNewCells) {
      EXPECT_EQ(session.data.GridTitle, "Data Grid");
    }
    SaveData(session);
    EXPECT_EQ(ContentOf(text), kText) << "at fault " << number;
    EXPECT_EQ(ContentOf(known), DataFileText()) << "at fault " << number;
    for (const std::string& name : folder.Names()) EXPECT_FALSE(name.starts_with(".")) << name;
  }
  void ExpectUndo() {
    if (CellsOf(session.data) != kNewCells) return;
    ASSERT_TRUE(UndoChange(session.data));
    EXPECT_EQ(CellsOf(session.data), kOldCells);
    EXPECT_EQ(session.data.DataFilePath, known);
  }

  TemporaryFolder folder;
  ScriptedPlatform platform;
  MemorySettingsStore store;
  Session session;
  MemoryReserve reserve;
  Path known;
  Path text;
  Path target;
};

class ExchangeFaults : public testing::TestWithParam<Fault> {
 protected:
  // Runs an operation with each request of memory failing; `check` looks at what it leaves.
  template <typename Operation, typename Check>
  void FailMemory(Operation operation, Check check) {
    FailInTurn([&](std::size_t number) {
      Exchange exchange;
      bool failed = false;
      const bool done = exchange.Do([&] {
        const FailingMemory memory(number, GetParam());
        const NoteOfFault note(failed);
        operation(exchange);
      });
      EXPECT_TRUE(done || !exchange.platform.messages.empty()) << "at request " << number;
      check(exchange, number, failed);
      return failed;
    });
  }
  template <typename Operation, typename Check>
  void FailFiles(Operation operation, Check check) {
    FailInTurn([&](std::size_t number) {
      Exchange exchange;
      bool failed = false;
      {
        const FailingFiles files(number, GetParam());
        operation(exchange);
        failed = FailingFiles::HasFailed();
      }
      check(exchange, number, failed);
      return failed;
    });
  }
};

TEST_P(ExchangeFaults, MemoryOfAnImport) {
  FailMemory([](Exchange& exchange) { exchange.Import(); },
             [](Exchange& exchange, std::size_t number, bool failed) {
               exchange.ExpectWhole(number);
               if (!failed) {
                 EXPECT_EQ(CellsOf(exchange.session.data), kNewCells);
               }
               exchange.ExpectUndo();
             });
}

TEST_P(ExchangeFaults, FilesOfAnImport) {
  FailFiles([](Exchange& exchange) { exchange.Import(); },
            [](Exchange& exchange, std::size_t number, bool failed) {
              EXPECT_EQ(CellsOf(exchange.session.data) == kNewCells, exchange.platform.messages.empty());
              exchange.ExpectWhole(number);
              if (!failed) {
                EXPECT_EQ(CellsOf(exchange.session.data), kNewCells);
              }
              exchange.ExpectUndo();
            });
}

TEST_P(ExchangeFaults, MemoryOfAPaste) {
  FailMemory([](Exchange& exchange) { exchange.Paste(); },
             [](Exchange& exchange, std::size_t number, bool) {
               exchange.ExpectWhole(number);
               exchange.ExpectUndo();
             });
}

TEST_P(ExchangeFaults, FilesOfAPaste) {
  FailFiles([](Exchange& exchange) { exchange.Paste(); },
            [](Exchange& exchange, std::size_t number, bool) {
              EXPECT_EQ(CellsOf(exchange.session.data) == kNewCells, exchange.platform.messages.empty());
              exchange.ExpectWhole(number);
              exchange.ExpectUndo();
            });
}

constexpr const char* kNewExport = "SEX,AGE\r\n1,34\r\n2,41\r\n";

void ExpectOldOrNew(const Exchange& exchange, const std::string& new_text, std::size_t number, bool failed) {
  const std::string text = ContentOf(exchange.target);
  EXPECT_TRUE(text == kOldExport || text == new_text) << "at fault " << number << ": " << text;
  if (!failed) {
    EXPECT_EQ(text, new_text);
  }
  EXPECT_EQ(CellsOf(exchange.session.data), kOldCells);
  for (const std::string& name : exchange.folder.Names()) EXPECT_FALSE(name.starts_with(".")) << name;
}

TEST_P(ExchangeFaults, MemoryOfAnExport) {
  FailMemory([](Exchange& exchange) { ExportData(exchange.session, exchange.target, ','); },
             [](Exchange& exchange, std::size_t number, bool failed) {
               ExpectOldOrNew(exchange, kNewExport, number, failed);
             });
}

TEST_P(ExchangeFaults, FilesOfAnExport) {
  FailFiles([](Exchange& exchange) { ExportData(exchange.session, exchange.target, ','); },
            [](Exchange& exchange, std::size_t number, bool failed) {
              EXPECT_EQ(exchange.platform.messages.empty(), !failed);
              ExpectOldOrNew(exchange, kNewExport, number, failed);
            });
}

std::string SplitText() {
  std::string text = "2 1 Tessara data\x01notes\r\n";
  for (int row = 1; row < 15; ++row) text += "\r\n";
  return text + "AGE\r\n34\r\n41\r\n";
}

void SplitAge(Exchange& exchange) {
  AddVariable(exchange.session.split, 2, exchange.platform);
  RunSplit(exchange.session.split, exchange.session.data, exchange.platform, exchange.target);
}

TEST_P(ExchangeFaults, MemoryOfASplit) {
  FailMemory(SplitAge, [](Exchange& exchange, std::size_t number, bool failed) {
    ExpectOldOrNew(exchange, SplitText(), number, failed);
  });
}

TEST_P(ExchangeFaults, FilesOfASplit) {
  FailFiles(SplitAge, [](Exchange& exchange, std::size_t number, bool failed) {
    ASSERT_EQ(exchange.platform.messages.size(), 1u);
    EXPECT_EQ(exchange.platform.messages[0].title, failed ? "Error" : "Operation Completed");
    ExpectOldOrNew(exchange, SplitText(), number, failed);
  });
}

INSTANTIATE_TEST_SUITE_P(Once, ExchangeFaults, testing::Values(Fault::kOnce));
INSTANTIATE_TEST_SUITE_P(FromThenOn, ExchangeFaults, testing::Values(Fault::kFromThenOn));

}  // namespace
}  // namespace tessara
