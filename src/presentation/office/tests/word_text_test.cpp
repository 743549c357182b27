#include "presentation/office/word_text.h"

#include <gtest/gtest.h>

#include <string>

#include "presentation/office/xml_text.h"

namespace tessara {
namespace {

std::string WholeText(LongText& text) {
  std::string xml;
  text.Restart();
  while (text.Next(xml)) {
  }
  return xml;
}

std::string Paragraphs(std::string_view report) {
  ReportParagraphs paragraphs(report, PortraitPage());
  return WholeText(paragraphs);
}

std::string TextRun(const std::string& text) { return "<w:r><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>"; }
std::string Paragraph(const std::string& text) { return "<w:p>" + TextRun(text) + "</w:p>"; }
const std::string kBreak = "<w:r><w:br w:type=\"page\"/></w:r>";

TEST(XmlText, EscapesAndConverts) {
  EXPECT_EQ(XmlText("a<b>&\"c\""), "a&lt;b&gt;&amp;&quot;c&quot;");
  EXPECT_EQ(XmlText("]]>"), "]]&gt;");
  EXPECT_EQ(XmlText("K\xF6ln \x80"), "K\xC3\xB6ln \xE2\x82\xAC");
  EXPECT_EQ(XmlText(std::string("\0\x01\x1F\x0B", 4)), "????");
  EXPECT_EQ(XmlText("a\tb\r\n"), "a&#9;b&#13;&#10;");
  EXPECT_EQ(PlainUtf8(std::string("<\0\t\xE9", 4)), "<?\t\xC3\xA9");
}

TEST(WordText, EachLineIsAParagraph) {
  EXPECT_EQ(Paragraphs("a\r\n\r\n b  c"), Paragraph("a") + "<w:p/>" + Paragraph(" b  c"));
  EXPECT_EQ(Paragraphs("a\r\n"), Paragraph("a") + "<w:p/>");
  EXPECT_EQ(Paragraphs(""), "<w:p/>");
}

TEST(WordText, LineEndsOfOtherSystemsAreLineEndsToo) {
  EXPECT_EQ(Paragraphs("a\nb\rc"), Paragraph("a") + Paragraph("b") + Paragraph("c"));
}

TEST(WordText, MarksArePageBreaksAndTheirLineStays) {
  EXPECT_EQ(Paragraphs("a\r\n<Page Break>\r\nb"), Paragraph("a") + "<w:p>" + kBreak + "</w:p>" + Paragraph("b"));
  EXPECT_EQ(Paragraphs("a<Page Break>b"), "<w:p>" + TextRun("a") + kBreak + TextRun("b") + "</w:p>");
  EXPECT_EQ(Paragraphs("<Page Break><Page Break>"), "<w:p>" + kBreak + kBreak + "</w:p>");
  EXPECT_EQ(Paragraphs("<Page Brea<Page Break>"), "<w:p>" + TextRun("&lt;Page Brea") + kBreak + "</w:p>");
}

TEST(WordText, TabsAreTabs) {
  EXPECT_EQ(Paragraphs("a\tb"), "<w:p>" + TextRun("a") + "<w:r><w:tab/></w:r>" + TextRun("b") + "</w:p>");
}

// A line of megabytes comes in stretches, also where one ends within a mark.
TEST(WordText, AnEndlessLineKeepsItsTextAndMarks) {
  for (std::size_t length = 16370; length < 16390; ++length) {
    const std::string text = std::string(length, 'x') + "<Page Break>y";
    std::string xml = Paragraphs(text);
    std::string words;
    for (std::size_t at = 0; (at = xml.find("preserve\">", at)) != xml.npos;) {
      at += 10;
      words += xml.substr(at, xml.find('<', at) - at);
    }
    EXPECT_EQ(words, std::string(length, 'x') + "y") << length;
    EXPECT_NE(xml.find(kBreak), xml.npos) << length;
  }
}

TEST(WordText, ComesAgainFromItsStart) {
  ReportParagraphs paragraphs("a\r\nb", PortraitPage());
  const std::string first = WholeText(paragraphs);
  EXPECT_EQ(WholeText(paragraphs), first);
}

// A4 with margins of half an inch: 10466 twentieths of a point across; a character of 8.5 points takes 102 of them.
TEST(WordText, TheTypeShrinksUntilTheLongestLineFits) {
  EXPECT_EQ(PortraitPage().TextWidth(), 10466);
  EXPECT_EQ(TypeForColumns(PortraitPage(), 80), 17);
  EXPECT_EQ(TypeForColumns(PortraitPage(), 102), 17);
  EXPECT_EQ(TypeForColumns(PortraitPage(), 103), 16);
  EXPECT_EQ(TypeForColumns(PortraitPage(), 193), 9);
  EXPECT_EQ(TypeForColumns(PortraitPage(), 100000), 9);
  EXPECT_EQ(TypeForColumns(LandscapePage(), 150), 17);
}

TEST(WordText, OnlyThePageWithTheLongLineHasSmallType) {
  const std::string wide(120, 'w');  // 10466 / 6 / 120 = 14.5
  const std::string xml = Paragraphs("a\r\n<Page Break>" + wide + "\r\nb\r\n<Page Break>c");
  const std::string small = "<w:r><w:rPr><w:sz w:val=\"14\"/><w:szCs w:val=\"14\"/></w:rPr>";
  EXPECT_NE(xml.find(Paragraph("a")), xml.npos);
  EXPECT_NE(xml.find(small + "<w:t xml:space=\"preserve\">" + wide), xml.npos);
  EXPECT_NE(xml.find(small + "<w:t xml:space=\"preserve\">b"), xml.npos);
  EXPECT_NE(xml.find(TextRun("c")), xml.npos);
}

TableGrid SmallTable() {
  TableGrid grid;
  grid.SetText(1, 1, "Group");
  grid.SetText(1, 3, "Mean");
  grid.SetText(3, 1, "A");
  grid.SetText(3, 2, "Count");
  grid.SetText(3, 3, "2.50");
  for (std::size_t column = 1; column <= 3; ++column) grid.SetWidth(column, 10 * kCharacterWidth);
  return grid;
}

// Columns of ten characters; one of 8.5 points takes 102 twentieths of a point.
TEST(WordText, RowsOfATableAreParagraphsWithTabsAtTheirColumns) {
  const TableGrid grid = SmallTable();
  TableParagraphs paragraphs(grid);
  const std::string stops =
      "<w:p><w:pPr><w:tabs><w:tab w:val=\"left\" w:pos=\"1020\"/><w:tab w:val=\"right\" "
      "w:pos=\"3060\"/></w:tabs></w:pPr>";
  const std::string tab = "<w:r><w:tab/></w:r>";
  EXPECT_EQ(WholeText(paragraphs), stops + TextRun("Group") + tab + tab + TextRun("Mean") + "</w:p>" + stops +
                                       TextRun("A") + tab + TextRun("Count") + tab + TextRun("2.50") + "</w:p>");
  EXPECT_FALSE(paragraphs.page().is_landscape);
}

TEST(WordText, ACellInTheMiddleHasItsTabThere) {
  TableGrid grid = SmallTable();
  grid.Edit(1, 3).alignment = TableAlignment::kCentre;
  TableParagraphs paragraphs(grid);
  EXPECT_NE(WholeText(paragraphs).find("<w:tab w:val=\"center\" w:pos=\"2550\"/>"), std::string::npos);
}

TEST(WordText, AWideTableLiesAcross) {
  TableGrid grid = SmallTable();
  grid.SetWidth(3, 90 * kCharacterWidth);
  EXPECT_TRUE(TableParagraphs(grid).page().is_landscape);
}

TEST(WordText, AColumnIsNoNarrowerThanItsTexts) {
  TableGrid grid = SmallTable();
  grid.SetText(3, 1, "A label of 21 letters");  // and a gap of two: 23 times 102
  TableParagraphs paragraphs(grid);
  EXPECT_NE(WholeText(paragraphs).find("<w:tab w:val=\"left\" w:pos=\"2346\"/>"), std::string::npos);
}

TEST(WordText, AnEmptyTableHasNoParagraph) {
  const TableGrid grid;
  TableParagraphs paragraphs(grid);
  EXPECT_EQ(WholeText(paragraphs), "");
}

}  // namespace
}  // namespace tessara
