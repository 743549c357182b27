#include <gtest/gtest.h>

#include <string>

#include "fault_turns.h"
#include "platform/memory.h"
#include "platform/scripted_platform.h"
#include "platform/tests/temporary_folder.h"
#include "presentation/office/excel_export.h"
#include "presentation/office/word_export.h"
#include "presentation/office/zip_archive.h"

// Each request of memory and each call for a file fails in turn, on the way of output to office programs. Whatever
// fails: the file of that name is the old one or a whole new one, no temporary file is left, and the user has been
// told.

namespace tessara {
namespace {

constexpr const char* kOldFile = "an older file\r\n";
constexpr const char* kText = "Mean  2.50\r\n-----\r\n<Page Break>\r\nx  1\r\n";

class OfficeExports {
 public:
  OfficeExports() : target(folder.Make("target", kOldFile)) {
    grid.SetText(1, 1, "Group");
    grid.SetText(2, 3, "2.50");
  }

  template <typename Operation>
  bool Do(Operation operation) {
    return WithinMemory(platform, reserve, operation);
  }

  void ExpectWhole(std::size_t number, bool failed) {
    const bool is_old = ContentOf(target) == kOldFile;
    EXPECT_TRUE(is_old || IsWholeArchive(target, "none", "none", {})) << "at fault " << number;
    EXPECT_TRUE(!is_old || !platform.messages.empty()) << "at fault " << number;
    if (!failed) {
      EXPECT_FALSE(is_old);
    }
    for (const std::string& name : folder.Names()) EXPECT_FALSE(name.starts_with(".")) << name;
    EXPECT_EQ(platform.wait_cursors, 0);
  }

  TemporaryFolder folder;
  ScriptedPlatform platform;
  MemoryReserve reserve;
  TableGrid grid;
  Path target;
};

using Export = void (*)(OfficeExports& exports);

constexpr Export kExports[] = {
    [](OfficeExports& e) {
      PrintToWord(kText, {{"picture>", "Histogram"}}, e.target, e.platform);
    },
    [](OfficeExports& e) { TableToWord(e.grid, {}, e.target, e.platform); },
    [](OfficeExports& e) { PrintToExcel(kText, e.target, e.platform); },
    [](OfficeExports& e) { TableToExcel(e.grid, e.target, e.platform); },
};

class OfficeFaults : public testing::TestWithParam<Fault> {};

TEST_P(OfficeFaults, Memory) {
  for (const Export run : kExports) {
    FailInTurn([&](std::size_t number) {
      OfficeExports exports;
      bool failed = false;
      const bool done = exports.Do([&] {
        const FailingMemory fault(number, GetParam());
        const NoteOfFault note(failed);
        run(exports);
      });
      EXPECT_EQ(done, exports.platform.messages.empty()) << "at request " << number;
      exports.ExpectWhole(number, failed);
      return failed;
    });
  }
}

TEST_P(OfficeFaults, Files) {
  for (const Export run : kExports) {
    FailInTurn([&](std::size_t number) {
      OfficeExports exports;
      bool failed = false;
      {
        const FailingFiles fault(number, GetParam());
        run(exports);
        failed = FailingFiles::HasFailed();
      }
      exports.ExpectWhole(number, failed);
      return failed;
    });
  }
}

INSTANTIATE_TEST_SUITE_P(Once, OfficeFaults, testing::Values(Fault::kOnce));
INSTANTIATE_TEST_SUITE_P(FromThenOn, OfficeFaults, testing::Values(Fault::kFromThenOn));

}  // namespace
}  // namespace tessara
