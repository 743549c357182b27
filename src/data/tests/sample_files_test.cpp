#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

// The sample data files, read here by hand: lines end in CR LF, fields are separated by byte 1, and the first sixteen
// lines are the banner with the notes and the variable dictionary.

namespace tessara {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMissingLine = 1;
constexpr std::size_t kLabelLine = 2;
constexpr std::size_t kFirstSlotLine = 4;
constexpr std::size_t kLastSlotLine = 11;
constexpr std::size_t kNameLine = 15;
constexpr std::size_t kFirstRecordLine = 16;

std::string ReadBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

fs::path Installed(std::string_view folder) { return fs::path(TESSARA_SOURCE_DIR) / "installed" / folder; }

std::vector<std::string> Split(const std::string& text, std::string_view separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t at = text.find(separator); at != std::string::npos; at = text.find(separator, start)) {
    parts.push_back(text.substr(start, at - start));
    start = at + separator.size();
  }
  parts.push_back(text.substr(start));
  return parts;
}

struct SampleFile {
  std::string name;
  std::string bytes;
  std::vector<std::vector<std::string>> lines;

  std::size_t Records() const { return lines.size() - kFirstRecordLine; }

  std::size_t Column(std::string_view variable) const {
    const auto& names = lines[kNameLine];
    return static_cast<std::size_t>(std::find(names.begin(), names.end(), variable) - names.begin());
  }

  double Sum(std::string_view variable) const {
    double sum = 0;
    for (std::size_t line = kFirstRecordLine; line < lines.size(); ++line) {
      sum += std::strtod(lines[line].at(Column(variable)).c_str(), nullptr);
    }
    return sum;
  }

  std::size_t Count(std::string_view variable, std::string_view value) const {
    const std::size_t column = Column(variable);
    return static_cast<std::size_t>(std::count_if(lines.begin() + kFirstRecordLine, lines.end(),
                                                  [&](const auto& line) { return line.at(column) == value; }));
  }
};

SampleFile ReadSample(const std::string& name) {
  SampleFile file{name, ReadBytes(Installed("Data") / name), {}};
  std::vector<std::string> lines = Split(file.bytes, "\r\n");
  lines.pop_back();  // behind the last line end there is nothing
  for (const std::string& line : lines) file.lines.push_back(Split(line, "\x01"));
  return file;
}

const char* const kNames[] = {"anscombe.dcs", "cars.dcs",   "chicks.dcs", "geyser.dcs",  "iris.dcs", "sleep.dcs",
                              "sprays.dcs",   "survey.dcs", "teeth.dcs",  "titanic.dcs", "women.dcs"};

class SampleFiles : public testing::TestWithParam<const char*> {
 protected:
  const SampleFile file_ = ReadSample(GetParam());
};

TEST_P(SampleFiles, BannerCountsTheLinesAndFields) {
  ASSERT_GT(file_.lines.size(), kFirstRecordLine);
  EXPECT_EQ(file_.lines[0][0],
            std::to_string(file_.Records()) + " " + std::to_string(file_.lines[kNameLine].size()) + " Tessara data");
  for (const auto& line : file_.lines) EXPECT_EQ(line.size(), file_.lines[kNameLine].size());
}

TEST_P(SampleFiles, EveryLineEndsInCrLfAndTheLastOneToo) {
  ASSERT_TRUE(file_.bytes.ends_with("\r\n"));
  for (std::size_t at = 0; at < file_.bytes.size(); ++at) {
    if (file_.bytes[at] == '\n') {
      ASSERT_EQ(file_.bytes[at - 1], '\r');
    }
    if (file_.bytes[at] == '\r') {
      ASSERT_EQ(file_.bytes[at + 1], '\n');
    }
  }
}

TEST_P(SampleFiles, NotesTellWhereTheFiguresComeFromAndWhatToTry) {
  const std::string& notes = file_.lines[0][1];
  EXPECT_NE(notes.find("@#$%"), std::string::npos);
  EXPECT_NE(notes.find("@#$%What to try: "), std::string::npos);
  EXPECT_TRUE(notes.find("@#$%From ") != std::string::npos || notes.find("Measured by") != std::string::npos ||
              notes.find("Counts from") != std::string::npos || notes.find("Drawn by") != std::string::npos);
}

TEST_P(SampleFiles, EveryVariableHasANameAndALabelOfTheRightLength) {
  for (const std::string& name : file_.lines[kNameLine]) {
    EXPECT_FALSE(name.empty());
    EXPECT_LE(name.size(), 8u) << name;
  }
  for (const std::string& label : file_.lines[kLabelLine]) {
    EXPECT_FALSE(label.empty());
    EXPECT_LE(label.size(), 40u) << label;
  }
}

TEST_P(SampleFiles, ValueLabelsHaveAValueAndAShortLabelWithoutComma) {
  for (std::size_t line = kFirstSlotLine; line <= kLastSlotLine; ++line) {
    for (const std::string& slot : file_.lines[line]) {
      if (slot.empty()) continue;
      const std::size_t equals = slot.find('=');
      ASSERT_NE(equals, std::string::npos) << slot;
      EXPECT_GE(equals, 1u) << slot;
      EXPECT_LE(slot.size() - equals - 1, 20u) << slot;
      EXPECT_EQ(slot.find(','), std::string::npos) << slot;
    }
  }
}

TEST_P(SampleFiles, AMissingFieldHasSixEntries) {
  for (const std::string& missing : file_.lines[kMissingLine]) {
    if (missing.empty()) continue;
    EXPECT_EQ(std::count(missing.begin(), missing.end(), '|'), 6) << missing;
    EXPECT_GE(missing.size(), 7u) << missing;
    EXPECT_EQ(missing.back(), '|');
  }
}

TEST_P(SampleFiles, TheRepairCopyIsTheSame) { EXPECT_EQ(file_.bytes, ReadBytes(Installed("Help") / file_.name)); }

std::string NameWithoutEnding(const testing::TestParamInfo<const char*>& file) {
  return fs::path(file.param).stem().string();
}

INSTANTIATE_TEST_SUITE_P(All, SampleFiles, testing::ValuesIn(kNames), NameWithoutEnding);

TEST(SampleFileFigures, NoFileIsLeftUntested) {
  for (const char* folder : {"Data", "Help"}) {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(Installed(folder))) {
      if (entry.path().extension() == ".dcs") found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, std::vector<std::string>(std::begin(kNames), std::end(kNames))) << folder;
  }
}

TEST(SampleFileFigures, TitanicHas2201PeopleAnd711Survivors) {
  const SampleFile file = ReadSample("titanic.dcs");
  EXPECT_EQ(file.Records(), 2201u);
  EXPECT_EQ(file.Count("SURVIVED", "1"), 711u);
  EXPECT_EQ(file.Count("SEX", "1"), 470u);
  EXPECT_EQ(file.Count("CLASS", "4"), 885u);
  EXPECT_EQ(file.Count("ADULT", "0"), 109u);
}

// The sums are those of R's own copies of the data.
TEST(SampleFileFigures, IrisHasFiftyPlantsOfEachSpecies) {
  const SampleFile file = ReadSample("iris.dcs");
  EXPECT_EQ(file.Records(), 150u);
  for (const char* species : {"1", "2", "3"}) EXPECT_EQ(file.Count("SPECIES", species), 50u);
  EXPECT_NEAR(file.Sum("SEPLEN"), 876.5, 1e-9);
  EXPECT_NEAR(file.Sum("SEPWID"), 458.6, 1e-9);
  EXPECT_NEAR(file.Sum("PETLEN"), 563.7, 1e-9);
  EXPECT_NEAR(file.Sum("PETWID"), 179.9, 1e-9);
}

TEST(SampleFileFigures, SumsOfTheSmallClassics) {
  EXPECT_NEAR(ReadSample("sleep.dcs").Sum("EXTRA"), 30.8, 1e-9);
  EXPECT_NEAR(ReadSample("teeth.dcs").Sum("LENGTH"), 1128.8, 1e-9);
  EXPECT_EQ(ReadSample("women.dcs").Sum("WEIGHT"), 2051);
  EXPECT_NEAR(ReadSample("cars.dcs").Sum("MPG"), 642.9, 1e-9);
  EXPECT_EQ(ReadSample("geyser.dcs").Sum("WAITING"), 19284);
}

TEST(SampleFileFigures, TheFourSetsOfAnscombeHaveTheSameSums) {
  const SampleFile file = ReadSample("anscombe.dcs");
  EXPECT_EQ(file.Records(), 11u);
  for (const char* x : {"X1", "X2", "X3", "X4"}) EXPECT_EQ(file.Sum(x), 99) << x;
  EXPECT_NEAR(file.Sum("Y1"), 82.51, 1e-9);
  EXPECT_NEAR(file.Sum("Y2"), 82.51, 1e-9);
  EXPECT_NEAR(file.Sum("Y3"), 82.50, 1e-9);
  EXPECT_NEAR(file.Sum("Y4"), 82.51, 1e-9);
}

TEST(SampleFileFigures, TheSurveyHasEveryKindOfMissingValue) {
  const SampleFile file = ReadSample("survey.dcs");
  EXPECT_EQ(file.Records(), 400u);
  EXPECT_EQ(file.lines[kMissingLine][file.Column("SMOKE")], "9||||||");
  EXPECT_EQ(file.lines[kMissingLine][file.Column("HEALTH")], "8|9|||||");
  EXPECT_EQ(file.lines[kMissingLine][file.Column("PRESSURE")], "|||||300|");
  EXPECT_GT(file.Count("SMOKE", "9"), 0u);
  EXPECT_GT(file.Count("HEALTH", "8"), 0u);
  EXPECT_GT(file.Count("PRESSURE", "999"), 0u);
  EXPECT_GT(file.Count("REMARK", ""), 0u);
}

}  // namespace
}  // namespace tessara
