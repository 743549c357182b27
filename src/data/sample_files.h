#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/path.h"

namespace tessara {

// A data file of the samples, as far as its first line tells.
struct SampleFile {
  Path path;
  std::string name;  // in the system's code page, without the ending
  std::size_t records = 0;
  std::size_t variables = 0;
  std::string about;  // the first line of its notes
};

inline constexpr std::size_t kMostSamples = 40;

// The data files of a folder by name, the first kMostSamples of them. A file that does not begin as a data file is left
// out; a folder that cannot be read has none.
std::vector<SampleFile> SampleFiles(const Path& folder);

}  // namespace tessara
