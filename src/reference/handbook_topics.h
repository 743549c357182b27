#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/path.h"

// The topics of the handbook: titles and the pages of the Help folder that they stand on.

namespace tessara {

inline constexpr const char* kHandbookHome = "Index.html";
inline constexpr std::size_t kMostTopicBytes = std::size_t{1} << 20;  // of a list that is read

struct HandbookTopic {
  std::string title;  // in the system's code page
  std::string page;   // a file of the Help folder without its ending

  friend bool operator==(const HandbookTopic&, const HandbookTopic&) = default;
};

struct Handbook {
  std::vector<HandbookTopic> topics;
  int chosen_row = 0;                // of the topic box, counted from 1; 0 for none
  std::string wanted_page;           // what a command asks the view to show
  std::vector<HandbookTopic> pages;  // every page of the Help folder by its own title, once somebody has asked for them
  bool pages_are_read = false;
};

// The pairs of title and page of a topic list: lines of two fields with a comma between them, as UTF-8 or in the code
// page. A line without a page is left out.
std::vector<HandbookTopic> TopicsOf(std::string_view text);

// Those of the file "Index.log" in a Help folder; none when it cannot be read. Of a file beyond kMostTopicBytes the
// whole lines ahead of that place.
std::vector<HandbookTopic> ReadHelpIndex(const Path& help_folder);

// The file of the chosen topic; empty when the row is none of the list's.
std::string PageOfTopic(const Handbook& handbook, int row);

// The row of the topic that stands on a page "name.html", 0 when none does. The chosen row stays while its page is on
// show, since two topics may share a page; the first page of all is nobody's choice.
int RowOfPage(const Handbook& handbook, std::string_view page);

// The pages of a Help folder with their titles, by file name; those without a title are left out. Of a folder with more
// than kMostHelpPages only so many are read.
inline constexpr std::size_t kMostHelpPages = 500;
std::vector<HandbookTopic> ReadHelpTitles(const Path& help_folder);

}  // namespace tessara
