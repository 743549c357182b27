#include "reference/handbook_topics.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/files.h"

namespace tessara {
namespace {

using Topics = std::vector<HandbookTopic>;

class HelpFolderTest : public testing::Test {
 protected:
  HelpFolderTest()
      : folder(std::filesystem::temp_directory_path() / ("tessara_help_" + std::to_string(SystemEntropy()))) {
    std::filesystem::create_directories(folder);
  }
  ~HelpFolderTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  void Write(const Path& name, const std::string& content) const {
    std::ofstream(folder / name, std::ios::binary) << content;
  }

  Path folder;
};

TEST(HandbookTopics, LinesEndWithOneOrTwoCharacters) {
  const Topics expected = {{"Outliers", "hb-outliers"}, {"Missing data", "hb-missing"}};
  EXPECT_EQ(TopicsOf("Outliers,hb-outliers\r\nMissing data,hb-missing\r\n"), expected);
  EXPECT_EQ(TopicsOf("Outliers,hb-outliers\nMissing data,hb-missing"), expected);
  EXPECT_EQ(TopicsOf("\r\nOutliers,hb-outliers\n\n\nMissing data,hb-missing\r\n\r\n"), expected);
}

TEST(HandbookTopics, ALineHasTwoFields) {
  EXPECT_EQ(TopicsOf("no comma\r\nOutliers,hb-outliers\r\n"), (Topics{{"Outliers", "hb-outliers"}}));
  EXPECT_EQ(TopicsOf("Outliers,hb-outliers,more,and more\r\n"), (Topics{{"Outliers", "hb-outliers"}}));
  EXPECT_EQ(TopicsOf("a title without a page,\r\n"), Topics());
  EXPECT_EQ(TopicsOf(",hb-untitled\r\n"), (Topics{{"", "hb-untitled"}}));
  EXPECT_EQ(TopicsOf(""), Topics());
}

TEST(HandbookTopics, NoPageLiesOutsideTheFolder) {
  EXPECT_EQ(TopicsOf("a,../secret\nb,sub/page\nc,sub\\page\nd,C:page\ne,page\n"), (Topics{{"e", "page"}}));
}

TEST(HandbookTopics, ATextOfUtf8IsConverted) {
  EXPECT_EQ(TopicsOf("Caf\xC3\xA9,cafe\n"), (Topics{{"Caf\xE9", "cafe"}}));
  EXPECT_EQ(TopicsOf("\xEF\xBB\xBFMeans,means\n"), (Topics{{"Means", "means"}}));
  EXPECT_EQ(TopicsOf("Caf\xE9,cafe\n"), (Topics{{"Caf\xE9", "cafe"}}));  // of the code page already
}

TEST_F(HelpFolderTest, TheListIsReadFromItsFile) {
  EXPECT_EQ(ReadHelpIndex(folder), Topics());
  Write("Index.log", "Means,means\r\nOutliers,outliers\r\n");
  EXPECT_EQ(ReadHelpIndex(folder), (Topics{{"Means", "means"}, {"Outliers", "outliers"}}));
  std::filesystem::remove(folder / "Index.log");
  std::filesystem::create_directory(folder / "Index.log");
  EXPECT_EQ(ReadHelpIndex(folder), Topics());
}

TEST_F(HelpFolderTest, AListOfAnySizeIsReadToItsLimit) {
  Write("Index.log", std::string(std::size_t{100} << 20, 'x'));  // one line
  EXPECT_EQ(ReadHelpIndex(folder), Topics());
  // The line at the limit is left out: what is there of its page names another one.
  std::string lines;
  while (lines.size() <= kMostTopicBytes) lines += "A topic,a-page-with-a-long-name\n";
  Write("Index.log", lines);
  const Topics topics = ReadHelpIndex(folder);
  EXPECT_EQ(topics.size(), kMostTopicBytes / 32);  // 32 bytes a line
  EXPECT_EQ(topics.back().page, "a-page-with-a-long-name");
}

TEST(HandbookTopics, ARowStandsForTheTopicBeforeIt) {
  Handbook handbook;
  handbook.topics = {{"Means", "means"}, {"Outliers", "outliers"}};
  EXPECT_EQ(PageOfTopic(handbook, 1), "means.html");
  EXPECT_EQ(PageOfTopic(handbook, 2), "outliers.html");
  for (const int row : {0, 3, -1}) EXPECT_EQ(PageOfTopic(handbook, row), "") << row;
}

TEST(HandbookTopics, APageFindsItsRow) {
  Handbook handbook;
  handbook.topics = {{"Contents", "Index"}, {"Means", "means"}, {"Averages", "means"}};
  EXPECT_EQ(RowOfPage(handbook, "means.html"), 2);
  EXPECT_EQ(RowOfPage(handbook, "other.html"), 0);
  EXPECT_EQ(RowOfPage(handbook, "means"), 0);
  EXPECT_EQ(RowOfPage(handbook, ""), 0);
  EXPECT_EQ(RowOfPage(handbook, "Index.html"), 0);  // where everybody begins
  handbook.chosen_row = 3;
  EXPECT_EQ(RowOfPage(handbook, "means.html"), 3);
  handbook.chosen_row = 1;
  EXPECT_EQ(RowOfPage(handbook, "Index.html"), 1);
}

TEST_F(HelpFolderTest, PagesAreKnownByTheirTitles) {
  EXPECT_EQ(ReadHelpTitles(folder / "nowhere"), Topics());
  Write("b.html", "<html><head><title>\n  Means &amp; more\n</title></head>");
  Write("a.html", "<title>Caf\xC3\xA9</title>");
  Write("c.html", "<p>no title</p>");
  Write("d.html", "<title>never ends");
  Write("e.html", std::string(5000, ' ') + "<title>too far down</title>");
  Write("f.txt", "<title>no page</title>");
  std::filesystem::create_directory(folder / "g.html");
  EXPECT_EQ(ReadHelpTitles(folder), (Topics{{"Caf\xE9", "a"}, {"Means & more", "b"}}));
}

}  // namespace
}  // namespace tessara
