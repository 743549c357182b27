#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"

// What a calculator makes of the texts typed into its boxes: three texts and the boxes that it shows on the way. The
// routines that build it know no panel and keep nothing; the panel shows, remembers and logs what they yield.

namespace tessara {

struct Calculation {
  std::optional<std::string> report;         // the long report; absent: nothing goes to the log
  std::optional<std::string> short_report;   // the compact text beside the input; absent: it stays as it was
  std::optional<std::string> narrative;      // the result in words; absent: it stays as it was
  std::optional<std::string> results_title;  // what stands over the narrative in the place of "  Results"
  std::vector<MessageBox> messages;          // message boxes, in their order
};

}  // namespace tessara
