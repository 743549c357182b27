#include <gtest/gtest.h>

#include <regex>
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

// "UserManual1.html#grid" for each section of each page.
std::set<std::string> SectionsOfHelp() {
  const std::regex section("<a name=\"([a-z]+)\">");
  std::set<std::string> sections;
  for (const SourceFile& page : HelpPages()) {
    const std::string name = PathParts(page.path).back();
    for (std::sregex_iterator at(page.text.begin(), page.text.end(), section), end; at != end; ++at) {
      sections.insert(name + "#" + (*at)[1].str());
    }
  }
  return sections;
}

TEST(HelpSections, EverySectionThatAFormAsksForIsThere) {
  const std::regex asked("UserManual[0-9]\\.html#[a-z]+");
  const std::set<std::string> sections = SectionsOfHelp();
  std::size_t found = 0;
  for (const SourceFile& source : ProductSources()) {
    if (!source.path.ends_with(".cpp")) continue;  // a header may name a page as an example
    for (std::sregex_iterator at(source.text.begin(), source.text.end(), asked), end; at != end; ++at, ++found) {
      EXPECT_TRUE(sections.contains(at->str())) << source.path << " asks for " << at->str();
    }
  }
  EXPECT_GT(found, 3u);
  for (const RecodeModeRow& row : RecodeModeRows()) {
    EXPECT_TRUE(sections.contains("UserManual1.html#" + std::string(row.help_section))) << row.title;
  }
}

TEST(HelpSections, LinksLeadToSectionsThatAreThere) {
  const std::regex link("href=\"([A-Za-z0-9]*(\\.html)?)#([a-z]+)\"");
  const std::set<std::string> sections = SectionsOfHelp();
  std::size_t found = 0;
  for (const SourceFile& page : HelpPages()) {
    const std::string own = PathParts(page.path).back();
    for (std::sregex_iterator at(page.text.begin(), page.text.end(), link), end; at != end; ++at, ++found) {
      const std::string name = (*at)[1].str().empty() ? own : (*at)[1].str();
      EXPECT_TRUE(sections.contains(name + "#" + (*at)[3].str())) << page.path << " leads to " << at->str();
    }
  }
  EXPECT_GT(found, 10u);
}

}  // namespace
}  // namespace tessara
