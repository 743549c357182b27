#include "reference/handbook_topics.h"

#include "numerics/code_page.h"
#include "platform/files.h"

namespace tessara {
namespace {

// A line without its end, taken from the front of a text.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// A page is a file of the Help folder and of no other.
bool IsPageName(std::string_view page) { return !page.empty() && page.find_first_of("/\\:") == std::string_view::npos; }

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
  return text ? TopicsOf(*text) : std::vector<HandbookTopic>();
}

std::string PageOfTopic(const Handbook& handbook, int row) {
  const auto index = static_cast<std::size_t>(row - 1);
  return row < 1 || index >= handbook.topics.size() ? std::string() : handbook.topics[index].page + ".html";
}

}  // namespace tessara
