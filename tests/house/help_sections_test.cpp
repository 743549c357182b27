#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "data/recode/recode_panel.h"
#include "source_tree.h"

// The sections of the help that forms ask for, and the links between pages.

namespace tessara {
namespace {

std::vector<SourceFile> HelpPages() {
  std::vector<SourceFile> pages = ReadTree("installed/Help");
  std::erase_if(pages, [](const SourceFile& file) { return !file.path.ends_with(".html"); });
  return pages;
}

// What stands between each `before` and the `after` that follows it.
std::vector<std::string> TextsBetween(const std::string& text, const std::string& before, char after) {
  std::vector<std::string> found;
  for (std::size_t at = text.find(before); at != text.npos; at = text.find(before, at + 1)) {
    const std::size_t from = at + before.size();
    found.push_back(text.substr(from, text.find(after, from) - from));
  }
  return found;
}

// "UserManual1.html#grid" for each section of each page.
std::set<std::string> SectionsOfHelp() {
  std::set<std::string> sections;
  for (const SourceFile& page : HelpPages()) {
    const std::string name = PathParts(page.path).back();
    for (const std::string& section : TextsBetween(page.text, "<a name=\"", '"')) sections.insert(name + "#" + section);
  }
  return sections;
}

TEST(HelpSections, EverySectionThatAFormAsksForIsThere) {
  const std::set<std::string> sections = SectionsOfHelp();
  std::size_t found = 0;
  for (const SourceFile& source : ProductSources()) {
    if (!source.path.ends_with(".cpp")) continue;  // a header may name a page as an example
    for (const std::string& page : TextsBetween(source.text, "\"UserManual", '"')) {
      if (page.find(".html#") == page.npos || page.ends_with("#")) continue;  // the modes of the panel come below
      EXPECT_TRUE(sections.contains("UserManual" + page)) << source.path << " asks for UserManual" << page;
      ++found;
    }
  }
  EXPECT_GT(found, 3u);
  for (const RecodeModeRow& row : RecodeModeRows()) {
    EXPECT_TRUE(sections.contains("UserManual1.html#" + std::string(row.help_section))) << row.title;
  }
}

TEST(HelpSections, LinksLeadToSectionsThatAreThere) {
  const std::set<std::string> sections = SectionsOfHelp();
  std::size_t found = 0;
  for (const SourceFile& page : HelpPages()) {
    const std::string own = PathParts(page.path).back();
    for (const std::string& link : TextsBetween(page.text, "href=\"", '"')) {
      const std::size_t sign = link.find('#');
      if (sign == link.npos || link.find(':') != link.npos) continue;  // no section, or another machine
      EXPECT_TRUE(sections.contains(sign == 0 ? own + link : link)) << page.path << " leads to " << link;
      ++found;
    }
  }
  EXPECT_GT(found, 10u);
}

}  // namespace
}  // namespace tessara
