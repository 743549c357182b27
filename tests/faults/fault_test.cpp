#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <new>
#include <string>
#include <vector>

#include "batch/batch.h"
#include "fault_turns.h"
#include "faults.h"
#include "platform/memory.h"
#include "platform/scripted_platform.h"
#include "platform/settings_file.h"
#include "platform/tests/temporary_folder.h"
#include "shell/session.h"

// Each request of memory and each call for a file fails in turn, through load, save, run, print and settings. Whatever
// fails: the file on the disk is the old or the new one, whole; no temporary file is left; the data and the log in
// memory are as they were or as they should be; and the user has been told.

namespace tessara {
namespace {

namespace fs = std::filesystem;

std::string FileOf(const std::string& letter, int records) {
  std::string text = std::to_string(records) + " 2 Tessara data\x01notes of " + letter + "\r\n";
  for (int row = 1; row < 15; ++row) text += "\x01\r\n";
  text += letter + "1\x01" + letter + "2\r\n";
  for (int i = 1; i <= records; ++i) text += std::to_string(i % 3) + "\x01" + letter + std::to_string(i) + "\r\n";
  return text;
}

// All of the data set that a user can see.
std::string Picture(const DataSet& data) {
  std::string picture = std::to_string(data.RecordCount) + "x" + std::to_string(data.VariableCount) + "|" +
                        data.ProjectNotes + "|" + data.GridTitle + "|" + data.DataFilePath.string() + "|" +
                        data.MisfitFile.string() + "|" + std::to_string(data.VarList.size()) + "\n";
  for (std::size_t row = 1; row < data.matrix.RowCount(); ++row) {
    for (std::size_t column = 1; column <= data.matrix.ColumnCount(); ++column) {
      picture += std::string(data.matrix.Cell(row, column).text()) + "\x01";
    }
    picture += "\n";
  }
  return picture;
}

std::string PictureOf(const OutputLog& output) {
  return output.OutputLogText + "|" + output.MostRecentText + "|" + output.BoxText();
}

// A session with a file open, on a platform that answers.
class Workplace {
 public:
  Workplace() : session(platform, store) {
    platform.program_folder = folder.path();
    StartBatchSession(session);
    first = folder.Make("first.dcs", FileOf("a", 5));
    second = folder.Make("second.dcs", FileOf("b", 9));
    OpenDataFile(session, first, FilePick::kPicked);
    platform.messages.clear();
  }

  // Runs an operation as a front end does. False when the memory did not suffice.
  template <typename Operation>
  bool Do(Operation operation) {
    return WithinMemory(platform, reserve, operation);
  }

  void Expect(const std::vector<std::string>& names, std::size_t number) const {
    EXPECT_EQ(folder.Names(), names) << "at fault " << number;
  }

  TemporaryFolder folder;
  ScriptedPlatform platform;
  MemorySettingsStore store;
  Session session;
  MemoryReserve reserve;
  Path first;
  Path second;
};

const std::vector<std::string> kBothFiles = {"first.dcs", "second.dcs"};

class Faults : public testing::TestWithParam<Fault> {};

TEST_P(Faults, MemoryOfALoad) {
  FailInTurn([&](std::size_t number) {
    Workplace place;
    const std::string before = Picture(place.session.data);
    bool failed = false;
    const bool done = place.Do([&] {
      const FailingMemory memory(number, GetParam());
      const NoteOfFault note(failed);
      OpenDataFile(place.session, place.second, FilePick::kPicked);
    });
    const std::string after = Picture(place.session.data);
    if (after != before) {
      Workplace other;
      OpenDataFile(other.session, other.second, FilePick::kPicked);
      EXPECT_EQ(place.session.data.matrix.RowCount(), other.session.data.matrix.RowCount());
      EXPECT_EQ(place.session.data.ProjectNotes, "notes of b");
      EXPECT_EQ(place.session.data.DataFilePath, place.second);
    }
    EXPECT_TRUE(done || !place.platform.messages.empty()) << "at request " << number;
    EXPECT_EQ(ContentOf(place.first), FileOf("a", 5));
    EXPECT_EQ(ContentOf(place.second), FileOf("b", 9));
    place.Expect(kBothFiles, number);
    if (!failed) {
      EXPECT_EQ(place.session.data.RecordCount, 9U);
    }
    return failed;
  });
}

TEST_P(Faults, FilesOfALoad) {
  FailInTurn([&](std::size_t number) {
    Workplace place;
    const std::string before = Picture(place.session.data);
    bool failed = false;
    LoadOutcome outcome = LoadOutcome::kUnreadable;
    {
      const FailingFiles files(number, GetParam());
      outcome = OpenDataFile(place.session, place.second, FilePick::kPicked);
      failed = FailingFiles::HasFailed();
    }
    if (outcome == LoadOutcome::kLoaded) {
      EXPECT_EQ(place.session.data.ProjectNotes, "notes of b");
    } else {
      EXPECT_EQ(outcome, LoadOutcome::kUnreadable);
      EXPECT_EQ(Picture(place.session.data), before);
      EXPECT_EQ(place.platform.panes[1], "Cannot open second.dcs");
    }
    return failed;
  });
}

// What a save over the first file leaves.
void ExpectWholeFile(const Workplace& place, const std::string& old_text, const std::string& new_text,
                     std::size_t number) {
  const std::string text = ContentOf(place.first);
  EXPECT_TRUE(text == old_text || text == new_text) << "at fault " << number << ":\n" << text;
}

TEST_P(Faults, MemoryOfASave) {
  const std::string new_text = [] {
    std::string text = FileOf("a", 5);
    return text.replace(text.find("notes of a"), 10, "other notes");
  }();
  FailInTurn([&](std::size_t number) {
    Workplace place;
    SetProjectNotes(place.session, "other notes");
    const std::string before = Picture(place.session.data);
    bool failed = false;
    const bool done = place.Do([&] {
      const FailingMemory memory(number, GetParam());
      const NoteOfFault note(failed);
      SaveData(place.session);
    });
    ExpectWholeFile(place, FileOf("a", 5), new_text, number);
    EXPECT_EQ(Picture(place.session.data), before);
    EXPECT_TRUE(done || !place.platform.messages.empty());
    place.Expect(kBothFiles, number);
    if (!failed) {
      EXPECT_EQ(ContentOf(place.first), new_text);
    }
    return failed;
  });
}

TEST_P(Faults, FilesOfASave) {
  const std::string new_text = [] {
    std::string text = FileOf("a", 5);
    return text.replace(text.find("notes of a"), 10, "other notes");
  }();
  FailInTurn([&](std::size_t number) {
    Workplace place;
    SetProjectNotes(place.session, "other notes");
    const std::string before = Picture(place.session.data);
    bool failed = false;
    SaveOutcome outcome = SaveOutcome::kFailed;
    {
      const FailingFiles files(number, GetParam());
      outcome = SaveData(place.session);
      failed = FailingFiles::HasFailed();
    }
    ExpectWholeFile(place, FileOf("a", 5), new_text, number);
    EXPECT_EQ(Picture(place.session.data), before);
    EXPECT_EQ(outcome == SaveOutcome::kSaved, !failed) << "at call " << number;
    EXPECT_EQ(place.platform.messages.empty(), outcome == SaveOutcome::kSaved);
    place.Expect(kBothFiles, number);
    return failed;
  });
}

// A file that did not fit is kept as it was found: it never goes before its copy stands.
TEST_P(Faults, FilesOfASaveOverAMisfit) {
  const std::string found = FileOf("c", 5).replace(0, 1, "4");
  FailInTurn([&](std::size_t number) {
    Workplace place;
    const Path misfit = place.folder.Make("misfit.dcs", found);
    OpenDataFile(place.session, misfit, FilePick::kPicked);
    bool failed = false;
    {
      const FailingFiles files(number, GetParam());
      SaveData(place.session);
      failed = FailingFiles::HasFailed();
    }
    const Path kept = place.folder / "misfit (as found).dcs";
    EXPECT_TRUE(ContentOf(misfit) == found || ContentOf(kept) == found) << "at call " << number;
    EXPECT_LE(place.folder.Names().size(), 4U);
    return failed;
  });
}

TEST_P(Faults, MemoryOfARun) {
  for (const Procedure procedure : {Procedure::kFrequencies, Procedure::kDescriptives, Procedure::kCrosstabulation,
                                    Procedure::kTTest, Procedure::kListVariables}) {
    const auto prepare = [procedure](Session& session) {
      SelectProcedure(session.panel, procedure);
      session.panel.options.descriptives.save_z_scores = true;
      session.panel.SelectedVariables = {1, 2};
      if (procedure != Procedure::kFrequencies) session.panel.IndependentVariables = {1};
      AppendReport(session.output, "an earlier report\r\n");
    };
    FailInTurn([&](std::size_t number) {
      Workplace place;
      prepare(place.session);
      const std::string data = Picture(place.session.data);
      const std::string log = PictureOf(place.session.output);
      bool failed = false;
      const bool done = place.Do([&] {
        const FailingMemory memory(number, GetParam());
        const NoteOfFault note(failed);
        RunPanel(place.session);
      });
      if (!done && PictureOf(place.session.output) == log) {
        EXPECT_EQ(Picture(place.session.data), data);
      }
      if (PictureOf(place.session.output) != log) {  // then it is that of a run without a fault
        Workplace other;
        prepare(other.session);
        RunPanel(other.session);
        EXPECT_EQ(PictureOf(place.session.output), PictureOf(other.session.output)) << "at request " << number;
        EXPECT_EQ(place.session.data.VariableCount, other.session.data.VariableCount);
      }
      EXPECT_TRUE(done || !place.platform.messages.empty());
      return failed;
    });
  }
}

TEST_P(Faults, FilesOfSettings) {
  FailInTurn([&](std::size_t number) {
    const TemporaryFolder folder;
    SettingsFile(folder / "settings").Write("Op3", "7");
    bool failed = false;
    bool written = false;
    {
      const FailingFiles files(number, GetParam());
      SettingsFile store(folder / "settings");
      written = store.Write("Op3", "8");
      failed = FailingFiles::HasFailed();
    }
    const std::string value = SettingsFile(folder / "settings").Read("Op3").value_or("");
    EXPECT_TRUE(value == "7" || value == "8") << "at call " << number << ": " << value;
    if (written) {
      EXPECT_EQ(value, "8");
    }
    if (!failed) {
      EXPECT_TRUE(written);
    }
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"settings"});
    return failed;
  });
}

TEST_P(Faults, MemoryOfSettings) {
  FailInTurn([&](std::size_t number) {
    const TemporaryFolder folder;
    SettingsFile(folder / "settings").Write("Op3", "7");
    bool failed = false;
    try {
      const FailingMemory memory(number, GetParam());
      const NoteOfFault note(failed);
      SettingsFile store(folder / "settings");
      store.Write("Op3", "8");
    } catch (const std::bad_alloc&) {  // as the front end does
    }
    const std::string value = SettingsFile(folder / "settings").Read("Op3").value_or("");
    EXPECT_TRUE(value == "7" || value == "8") << "at request " << number << ": " << value;
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"settings"});
    return failed;
  });
}

// The batch program whole: a script that loads, runs, saves and prints, with its log in a file.
struct BatchOutcome {
  int status = 0;
  std::string err;
};

std::string TextOf(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = 0; (c = std::fgetc(file)) != EOF;) text.push_back(static_cast<char>(c));
  std::fclose(file);
  return text;
}

template <typename Failing>
BatchOutcome RunScript(const std::vector<std::string>& arguments, std::size_t number, Fault fault, bool& failed) {
  std::FILE* out = std::tmpfile();
  std::FILE* err = std::tmpfile();
  BatchOutcome outcome;
  {
    const Failing faults(number, fault);
    outcome.status = RunBatch(arguments, {stdin, out, err});
    failed = Failing::HasFailed();
  }
  std::fclose(out);
  outcome.err = TextOf(err);
  return outcome;
}

class BatchWorkplace {
 public:
  BatchWorkplace() {
    folder.Make("first.dcs", FileOf("a", 5));
    std::string script;
    for (const std::string& line : {"open " + Name("first.dcs"), std::string("frequencies a1"),
                                    "save " + Name("saved.dcs"), "print " + Name("pages.txt")}) {
      script += line + "\n";
    }
    folder.Make("script", script);
  }
  std::string Name(const std::string& name) const { return (folder / name).string(); }
  std::vector<std::string> Arguments() const { return {"-o", Name("log"), "--script", Name("script")}; }

  // Each file that is there is whole: `model` is the folder of a run without a fault.
  void ExpectWhole(const BatchWorkplace& model, std::size_t number) const {
    for (const std::string& name : folder.Names()) {
      ASSERT_FALSE(name.starts_with(".saving")) << "at fault " << number;
      if (name == "script") continue;  // it holds the names of its own folder
      const std::string text = ContentOf(folder / name);
      const std::string whole = ContentOf(model.folder / name);
      EXPECT_TRUE(text == whole || (name == "log" && whole.starts_with(text))) << name << " at fault " << number;
    }
  }

  TemporaryFolder folder;
};

TEST_P(Faults, MemoryOfAScript) {
  BatchWorkplace model;
  bool none = false;
  ASSERT_EQ(RunScript<FailingMemory>(model.Arguments(), kMostFaults, GetParam(), none).status, 0);
  FailInTurn([&](std::size_t number) {
    const BatchWorkplace place;
    bool failed = false;
    const BatchOutcome outcome = RunScript<FailingMemory>(place.Arguments(), number, GetParam(), failed);
    if (outcome.status != 0) {
      EXPECT_EQ(outcome.status, 2) << "at request " << number << ": " << outcome.err;
      EXPECT_NE(outcome.err.find("memory"), std::string::npos) << "at request " << number << ": " << outcome.err;
    }
    if (!failed) {
      EXPECT_EQ(outcome.status, 0);
    }
    place.ExpectWhole(model, number);
    return failed;
  });
}

TEST_P(Faults, FilesOfAScript) {
  BatchWorkplace model;
  bool none = false;
  ASSERT_EQ(RunScript<FailingFiles>(model.Arguments(), kMostFaults, GetParam(), none).status, 0);
  FailInTurn([&](std::size_t number) {
    const BatchWorkplace place;
    bool failed = false;
    const BatchOutcome outcome = RunScript<FailingFiles>(place.Arguments(), number, GetParam(), failed);
    EXPECT_EQ(outcome.status == 0, outcome.err.empty()) << "at call " << number << ": " << outcome.err;
    if (!failed) {
      EXPECT_EQ(outcome.status, 0);
    }
    place.ExpectWhole(model, number);
    return failed;
  });
}

INSTANTIATE_TEST_SUITE_P(Once, Faults, testing::Values(Fault::kOnce));
INSTANTIATE_TEST_SUITE_P(FromThenOn, Faults, testing::Values(Fault::kFromThenOn));

}  // namespace
}  // namespace tessara
