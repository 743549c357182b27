#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "source_tree.h"

// The plan of the house, read from the sources: who may include whom, how long a file and a routine may grow, and words
// that have no place in the product.

namespace tessara {
namespace {

constexpr std::size_t kMostLinesOfAFile = 600;
constexpr std::size_t kMostLinesOfARoutine = 80;

// The folders that stand below each folder of src.
const std::map<std::string, std::set<std::string>>& FoldersBelow() {
  static const std::map<std::string, std::set<std::string>> below = [] {
    std::map<std::string, std::set<std::string>> folders;
    folders["numerics"] = {};
    folders["platform"] = {"numerics"};
    folders["data"] = {"numerics", "platform"};
    folders["presentation"] = {"numerics", "platform", "data"};
    for (const char* side : {"procedures", "calculators", "reference", "deskcalc"}) {
      folders[side] = {"numerics", "platform", "data", "presentation"};
    }
    folders["shell"] = {"numerics",   "platform",    "data",      "presentation",
                        "procedures", "calculators", "reference", "deskcalc"};
    for (const char* front_end : {"window", "batch"}) {
      folders[front_end] = folders["shell"];
      folders[front_end].insert("shell");
    }
    return folders;
  }();
  return below;
}

bool IsCore(const SourceFile& file) { return !file.path.starts_with("src/window/"); }

TEST(Structure, TheSourcesAreFound) {
  const std::vector<SourceFile> sources = ProductSources();
  EXPECT_GT(sources.size(), 200u);
  std::set<std::string> folders;
  for (const SourceFile& file : sources) folders.insert(PathParts(file.path)[1]);
  for (const char* folder :
       {"numerics", "platform", "data", "presentation", "procedures", "calculators", "shell", "window", "batch"}) {
    EXPECT_TRUE(folders.contains(folder)) << folder;
  }
}

TEST(Structure, EveryFolderHasItsPlace) {
  for (const SourceFile& file : ProductSources()) {
    const std::vector<std::string> parts = PathParts(file.path);
    ASSERT_GT(parts.size(), 2u) << file.path << " stands in no folder";
    EXPECT_TRUE(FoldersBelow().contains(parts[1])) << parts[1];
  }
}

TEST(Structure, IncludesPointDownward) {
  for (const SourceFile& file : ProductSources()) {
    const std::string folder = PathParts(file.path)[1];
    for (const std::string& name : OwnIncludes(file)) {
      if (name == "platform/platform.h") continue;
      const std::vector<std::string> parts = PathParts(name);
      if (parts.size() < 2) continue;  // beside the file
      EXPECT_TRUE(parts[0] == folder || FoldersBelow().at(folder).contains(parts[0]))
          << file.path << " includes " << name;
    }
  }
}

TEST(Structure, TheCoreKnowsNoWindow) {
  for (const SourceFile& file : ProductSources()) {
    if (!IsCore(file)) continue;
    for (const std::string& name : OtherIncludes(file)) {
      const bool is_qt = name.size() > 1 && name[0] == 'Q' && std::isupper(static_cast<unsigned char>(name[1])) != 0;
      EXPECT_FALSE(is_qt || name.starts_with("Qt")) << file.path << " includes " << name;
    }
  }
}

TEST(Structure, TheSystemIsCalledByThePlatformAlone) {
  for (const SourceFile& file : ProductSources()) {
    if (!IsCore(file) || file.path.starts_with("src/platform/") || file.path.starts_with("src/batch/")) continue;
    for (const std::string& name : OtherIncludes(file)) {
      const bool is_system = name.starts_with("sys/") || name == "unistd.h" || name == "fcntl.h" || name == "dlfcn.h" ||
                             name == "windows.h" || name == "signal.h" || name == "csignal";
      EXPECT_FALSE(is_system) << file.path << " includes " << name;
    }
  }
}

// The rooms of a folder and the units at its top ("run" for run.h and run.cpp), with those that they include.
using Arrows = std::map<std::string, std::set<std::string>>;

std::string RoomOf(const std::vector<std::string>& parts, std::size_t folder_at) {
  if (parts.size() > folder_at + 2) return parts[folder_at + 1] + "/";
  return parts.back().substr(0, parts.back().find('.'));
}

// Whether one comes back to a room by following the arrows. Units at the top may know each other.
bool ComesBack(const Arrows& arrows, const std::string& room) {
  std::set<std::string> seen;
  std::vector<std::string> next{room};
  while (!next.empty()) {
    const std::string at = next.back();
    next.pop_back();
    const auto out = arrows.find(at);
    if (out == arrows.end()) continue;
    for (const std::string& to : out->second) {
      if (to == room) return true;
      if (seen.insert(to).second) next.push_back(to);
    }
  }
  return false;
}

std::string RoomsInACircle(const Arrows& arrows) {
  std::string names;
  for (const auto& [room, others] : arrows) {
    if (room.ends_with('/') && ComesBack(arrows, room)) names += room + " ";
  }
  return names;
}

TEST(Structure, ACircleIsSeen) {
  EXPECT_EQ(RoomsInACircle({{"a/", {"b/"}}, {"b/", {"c"}}, {"c", {}}}), "");
  EXPECT_EQ(RoomsInACircle({{"a/", {"b/"}}, {"b/", {"c"}}, {"c", {"b/"}}}), "b/ ");
  EXPECT_EQ(RoomsInACircle({{"a", {"b"}}, {"b", {"a"}}, {"c/", {"a"}}}), "");
}

TEST(Structure, RoomsFormNoCircle) {
  std::map<std::string, Arrows> folders;
  for (const SourceFile& file : ProductSources()) {
    const std::vector<std::string> parts = PathParts(file.path);
    const std::string room = RoomOf(parts, 1);
    for (const std::string& name : OwnIncludes(file)) {
      const std::vector<std::string> included = PathParts(name);
      if (included.size() < 2 || included[0] != parts[1]) continue;
      if (const std::string other = RoomOf(included, 0); other != room) folders[parts[1]][room].insert(other);
    }
  }
  EXPECT_FALSE(folders["window"].empty());
  for (const auto& [folder, arrows] : folders) EXPECT_EQ(RoomsInACircle(arrows), "") << folder;
}

TEST(Structure, NoFileIsLongerThanAReaderFollows) {
  for (const SourceFile& file : ProductSources()) {
    const auto lines = static_cast<std::size_t>(std::ranges::count(file.text, '\n'));
    EXPECT_LE(lines, kMostLinesOfAFile) << file.path;
  }
}

TEST(Structure, BodiesAreFoundByTheirBraces) {
  const std::vector<Body> bodies = Bodies(
      "namespace a {\n"
      "constexpr int kTable[] = {\n  1,\n  2,\n};\n"
      "struct S {\n"
      "  int Get(int a = 1) const { return a; }  // }\n"
      "};\n"
      "#define OPEN {\n"
      "bool operator==(S, S) {\n  const char* text = \"}\";\n  if (text) {\n    return true;\n  }\n"
      "  return '}' == 1'0;\n}\n"
      "void T() {\n  static const int kRows[] = {\n    1,\n    2,\n  };\n  const auto f = [] {\n  };\n}\n"
      "}\n");
  ASSERT_EQ(bodies.size(), 3u);
  EXPECT_EQ(bodies[0].line, 7u);
  EXPECT_EQ(bodies[0].lines, 1u);
  EXPECT_EQ(bodies[1].line, 10u);
  EXPECT_EQ(bodies[1].lines, 7u);
  EXPECT_EQ(bodies[2].line, 17u);
  EXPECT_EQ(bodies[2].lines, 5u);
}

TEST(Structure, NoRoutineIsLongerThanAScreen) {
  std::size_t count = 0;
  for (const SourceFile& file : ProductSources()) {
    for (const Body& body : Bodies(file.text)) {
      ++count;
      EXPECT_LE(body.lines, kMostLinesOfARoutine) << file.path << ":" << body.line;
    }
  }
  EXPECT_GT(count, 1000u);
}

// Words.

bool IsText(const SourceFile& file) {
  for (const char* ending : {".cpp", ".h", ".md", ".txt", ".html", ".css", ".cmake", ".sh", ".py", ".test", ".json",
                             ".1", ".lx1", ".in", ".yml", ".yaml", ".clang-tidy", ".clang-format", "/run"}) {
    if (file.path.ends_with(ending)) return true;
  }
  return false;
}

std::string LineOf(const std::string& text, std::size_t at) {
  return std::to_string(1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

bool IsDigit(const std::string& text, std::size_t at) {
  return at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0;
}

// A numbered chapter of another text: "Part", a number, a point and a number.
bool NamesAChapter(const std::string& text, std::size_t behind_the_word) {
  std::size_t at = behind_the_word;
  while (IsDigit(text, at)) ++at;
  return at > behind_the_word && at < text.size() && text[at] == '.' && IsDigit(text, at + 1);
}

// Each word is put together here, so that this file does not hold it.
std::vector<std::string> HomelessWords() {
  std::vector<std::string> words;
  for (const char* folder : {"ro"
                             "ot",
                             "wo"
                             "rk"})
    words.push_back("/" + std::string(folder) + "/");
  words.push_back(std::string("spec") + ".md");
  return words;
}

// What a reader finds in the tree speaks of the product: of no developer's machine and of no text outside the tree.
TEST(Words, TheTreeSpeaksOfTheProductAlone) {
  std::size_t count = 0;
  for (const SourceFile& file : ReadTree(".")) {
    if (!IsText(file)) continue;
    ++count;
    for (const std::string& word : HomelessWords()) {
      const std::size_t at = file.text.find(word);
      EXPECT_EQ(at, std::string::npos) << file.path << ":" << LineOf(file.text, at) << " names " << word;
    }
    const std::string part = "Part ";
    for (std::size_t at = file.text.find(part); at != std::string::npos; at = file.text.find(part, at + 1)) {
      EXPECT_FALSE(NamesAChapter(file.text, at + part.size())) << file.path << ":" << LineOf(file.text, at);
    }
  }
  EXPECT_GT(count, 300u);
}

}  // namespace
}  // namespace tessara
