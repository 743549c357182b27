#include "reference/handbook_topics.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "numerics/code_page.h"
#include "platform/files.h"
#include "reference/text_lines.h"

namespace tessara {
namespace {

// A page is a file of the Help folder and of no other.
bool IsPageName(std::string_view page) { return !page.empty() && page.find_first_of("/\\:") == std::string_view::npos; }

constexpr std::size_t kHeadBytes = 4096;  // of a page, in which its title stands
constexpr std::string_view kPageEnding = ".html";

// One line of plain words from a piece of a page.
std::string WordsOf(std::string_view html) {
  constexpr std::pair<std::string_view, char> kNamed[] = {
      {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&nbsp;", ' '}};
  std::string words;
  while (!html.empty()) {
    std::size_t taken = 1;
    char next = static_cast<unsigned char>(html.front()) < ' ' ? ' ' : html.front();
    for (const auto& [name, character] : kNamed) {
      if (!html.starts_with(name)) continue;
      next = character;
      taken = name.size();
    }
    html.remove_prefix(taken);
    if (next != ' ' || (!words.empty() && words.back() != ' ')) words += next;
  }
  if (words.ends_with(' ')) words.pop_back();
  return words;
}

std::string TitleOf(std::string_view head) {
  const std::size_t begin = head.find("<title>");
  const std::size_t end = head.find("</title>", begin);
  if (begin == std::string_view::npos || end == std::string_view::npos) return {};
  const std::size_t first = begin + std::string_view("<title>").size();
  return WordsOf(head.substr(first, end - first));
}

// By name, so that the order is the same on every machine.
std::vector<Path> PagesIn(const Path& folder) {
  std::vector<Path> pages;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (entry->path().extension() == kPageEnding) pages.push_back(entry->path());
  }
  std::ranges::sort(pages);
  if (pages.size() > kMostHelpPages) pages.resize(kMostHelpPages);
  return pages;
}

}  // namespace

std::vector<HandbookTopic> TopicsOf(std::string_view text) {
  const std::string held = FromTextFile(text);
  std::string_view rest = held;
  std::vector<HandbookTopic> topics;
  while (!rest.empty()) {
    const std::string_view line = TakeLine(rest);
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos) continue;
    std::string_view page = line.substr(comma + 1);
    page = page.substr(0, page.find(','));
    if (IsPageName(page)) topics.push_back({std::string(line.substr(0, comma)), std::string(page)});
  }
  return topics;
}

std::vector<HandbookTopic> ReadHelpIndex(const Path& help_folder) {
  const auto text = ReadStartOfFile(help_folder / "Index.log", kMostTopicBytes);
  if (!text) return {};
  const bool is_cut = text->size() == kMostTopicBytes;
  return TopicsOf(std::string_view(*text).substr(0, is_cut ? text->rfind('\n') + 1 : text->size()));
}

std::string PageOfTopic(const Handbook& handbook, int row) {
  const auto index = static_cast<std::size_t>(row - 1);
  if (row < 1 || index >= handbook.topics.size()) return {};
  return handbook.topics[index].page + std::string(kPageEnding);
}

int RowOfPage(const Handbook& handbook, std::string_view page) {
  if (page == PageOfTopic(handbook, handbook.chosen_row)) return handbook.chosen_row;
  if (page == kHandbookHome || !page.ends_with(kPageEnding)) return 0;
  const std::string_view name = page.substr(0, page.size() - kPageEnding.size());
  const auto found = std::ranges::find(handbook.topics, name, &HandbookTopic::page);
  return found == handbook.topics.end() ? 0 : static_cast<int>(found - handbook.topics.begin()) + 1;
}

std::vector<HandbookTopic> ReadHelpTitles(const Path& help_folder) {
  std::vector<HandbookTopic> titled;
  for (const Path& page : PagesIn(help_folder)) {
    const auto head = ReadStartOfFile(page, kHeadBytes);
    std::string title = head ? TitleOf(FromTextFile(*head)) : std::string();
    if (!title.empty()) titled.push_back({std::move(title), FromUtf8(PathToUtf8(page.stem()))});
  }
  return titled;
}

}  // namespace tessara
