#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "fault_turns.h"
#include "platform/memory.h"
#include "platform/scripted_platform.h"
#include "platform/tests/temporary_folder.h"
#include "reference/glossary_exchange.h"
#include "reference/glossary_record.h"

// Each request of memory and each call for a file fails in turn, through what reads and writes a glossary. Whatever
// fails: a file on the disk is the old or the new one, whole; no temporary file is left; a note that was edited is on
// show or in the file; and the user has been told.

namespace tessara {
namespace {

using Notes = std::vector<std::pair<std::string, std::string>>;

std::string FileOf(const Notes& notes) {
  std::string bytes = MakeRecord(static_cast<int>(notes.size()) + 1, "", "");
  for (int number = 2; const auto& [subject, text] : notes) bytes += MakeRecord(number++, subject, text);
  return bytes;
}

const Notes kOld = {{"Median", "The middle value."}, {"Mean", ""}, {"Mode", ""}};
const Notes kEdited = {{"Median", "edited"}, {"Mean", ""}, {"Mode", ""}};
const std::string kDeleted =
    MakeRecord(3, "", "") + MakeRecord(2, "Mean", "") + MakeRecord(3, "Mode", "") + MakeRecord(4, "", "");

// A glossary with its first note on show and edited.
struct Desk {
  Desk() {
    own = folder.Make("own.lx1", FileOf(kOld));
    text = folder.Make("terms.txt", "a\tb\r\nc\td\r\n");
    OpenGlossary(glossary, own, platform);
    EditNote(glossary, "Median", "edited");
  }

  template <typename Operation>
  bool Do(Operation operation) {
    return WithinMemory(platform, reserve, operation);
  }
  // The note is in the file, or still on show as it was edited.
  void ExpectNoteKept(std::size_t number) const {
    const std::string bytes = ContentOf(own);
    EXPECT_TRUE(bytes == FileOf(kOld) || bytes == FileOf(kEdited)) << "at fault " << number;
    EXPECT_TRUE(bytes == FileOf(kEdited) || glossary.Text2 == "edited") << "at fault " << number;
  }
  void ExpectNames(const std::vector<std::string>& names, std::size_t number) const {
    EXPECT_EQ(folder.Names(), names) << "at fault " << number;
  }

  TemporaryFolder folder;
  ScriptedPlatform platform;
  MemoryReserve reserve;
  Glossary glossary;
  Path own;
  Path text;
};

const std::vector<std::string> kNames = {"own.lx1", "terms.txt"};

class GlossaryFaults : public testing::TestWithParam<Fault> {};

TEST_P(GlossaryFaults, FilesOfASave) {
  FailInTurn([&](std::size_t number) {
    Desk desk;
    bool saved = false;
    bool failed = false;
    {
      const FailingFiles files(number, GetParam());
      saved = SaveNote(desk.glossary, desk.platform);
      failed = FailingFiles::HasFailed();
    }
    desk.ExpectNoteKept(number);
    desk.ExpectNames(kNames, number);
    EXPECT_EQ(saved, desk.platform.messages.empty()) << "at call " << number;
    // Tried again, it is one note still.
    EXPECT_TRUE(SaveNote(desk.glossary, desk.platform));
    EXPECT_EQ(ContentOf(desk.own), FileOf(kEdited)) << "at call " << number;
    return failed;
  });
}

TEST_P(GlossaryFaults, MemoryOfASave) {
  FailInTurn([&](std::size_t number) {
    Desk desk;
    bool failed = false;
    const bool done = desk.Do([&] {
      const FailingMemory memory(number, GetParam());
      const NoteOfFault note(failed);
      SaveNote(desk.glossary, desk.platform);
    });
    desk.ExpectNoteKept(number);
    desk.ExpectNames(kNames, number);
    EXPECT_TRUE(done || !desk.platform.messages.empty());
    EXPECT_TRUE(SaveNote(desk.glossary, desk.platform));
    EXPECT_EQ(ContentOf(desk.own), FileOf(kEdited)) << "at request " << number;
    return failed;
  });
}

TEST_P(GlossaryFaults, FilesOfADeletion) {
  FailInTurn([&](std::size_t number) {
    Desk desk;
    bool deleted = false;
    bool failed = false;
    {
      const FailingFiles files(number, GetParam());
      deleted = DeleteNote(desk.glossary, desk.platform);
      failed = FailingFiles::HasFailed();
    }
    const std::string bytes = ContentOf(desk.own);
    EXPECT_TRUE(bytes == FileOf(kOld) || bytes == kDeleted) << "at call " << number;
    EXPECT_TRUE(!deleted || bytes == kDeleted) << "at call " << number;
    EXPECT_EQ(deleted, desk.platform.messages.empty()) << "at call " << number;
    desk.ExpectNames(kNames, number);
    return failed;
  });
}

TEST_P(GlossaryFaults, FilesOfASaveUnderAnotherName) {
  FailInTurn([&](std::size_t number) {
    Desk desk;
    const Path copy = desk.folder / "copy.lx1";
    bool saved = false;
    bool failed = false;
    {
      const FailingFiles files(number, GetParam());
      saved = SaveGlossaryAs(desk.glossary, copy, desk.platform);
      failed = FailingFiles::HasFailed();
    }
    EXPECT_EQ(ContentOf(desk.own), FileOf(kOld));
    EXPECT_EQ(saved, desk.platform.messages.empty()) << "at call " << number;
    EXPECT_EQ(saved, !desk.glossary.NoteDirty) << "at call " << number;
    const bool is_there = FactsOfFile(copy).has_value();
    EXPECT_TRUE(is_there || !saved);
    if (is_there) {
      EXPECT_EQ(ContentOf(copy), FileOf(kEdited)) << "at call " << number;
    }
    desk.ExpectNames(is_there ? std::vector<std::string>{"copy.lx1", "own.lx1", "terms.txt"} : kNames, number);
    return failed;
  });
}

TEST_P(GlossaryFaults, FilesOfAnImport) {
  const std::string imported = FileOf({{"a", "b"}, {"c", "d"}});
  FailInTurn([&](std::size_t number) {
    Desk desk;
    const Path target = desk.folder.Make("Temp.lx1", FileOf(kOld));
    bool failed = false;
    ImportedGlossary outcome = ImportedGlossary::kRefused;
    {
      const FailingFiles files(number, GetParam());
      outcome = ImportGlossary(desk.glossary, desk.text, target, desk.platform);
      failed = FailingFiles::HasFailed();
    }
    const Path kept = desk.folder / "Temp (as found).lx1";
    const std::string bytes = ContentOf(target);
    EXPECT_TRUE(bytes == FileOf(kOld) || bytes == imported) << "at call " << number;
    if (bytes == imported) {
      EXPECT_EQ(ContentOf(kept), FileOf(kOld)) << "at call " << number;
    }
    if (outcome != ImportedGlossary::kImported) {
      EXPECT_EQ(desk.glossary.Text2, "edited") << "at call " << number;
    }
    EXPECT_EQ(outcome == ImportedGlossary::kRefused, !desk.platform.messages.empty()) << "at call " << number;
    return failed;
  });
}

TEST_P(GlossaryFaults, MemoryOfAnOpening) {
  FailInTurn([&](std::size_t number) {
    Desk desk;
    const Path other = desk.folder.Make("other.lx1", FileOf({{"Range", "wide"}}));
    bool failed = false;
    const bool done = desk.Do([&] {
      const FailingMemory memory(number, GetParam());
      const NoteOfFault note(failed);
      OpenGlossary(desk.glossary, other, desk.platform);
    });
    EXPECT_TRUE(done || !desk.platform.messages.empty());
    if (desk.glossary.GlossaryFile == desk.own) {
      EXPECT_EQ(desk.glossary.Text2, "edited") << "at request " << number;
      EXPECT_EQ(desk.glossary.List.size(), 3u);
    } else {
      EXPECT_EQ(desk.glossary.GlossaryName, "other.lx1") << "at request " << number;
      EXPECT_EQ(desk.glossary.Text2, "wide");
      EXPECT_EQ(desk.glossary.List.size(), 1u);
    }
    return failed;
  });
}

INSTANTIATE_TEST_SUITE_P(Once, GlossaryFaults, testing::Values(Fault::kOnce));
INSTANTIATE_TEST_SUITE_P(FromThenOn, GlossaryFaults, testing::Values(Fault::kFromThenOn));

}  // namespace
}  // namespace tessara
