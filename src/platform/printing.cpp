#include "platform/printing.h"

namespace tessara {

PrintJob JobOfPages(const std::vector<std::string>& pages) {
  PrintJob job;
  job.sheets.reserve(pages.size());
  for (const std::string& page : pages) job.sheets.push_back({.text = page});
  return job;
}

}  // namespace tessara
