#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "data/loaded_text.h"
#include "platform/path.h"
#include "platform/status.h"

// How a data file fits what its first line says of it. The load takes what fits and says nothing in a box; a note tells
// the user, and the first save over such a file keeps it beside the new one.

namespace tessara {

enum class Banner {
  kRead,
  kNoBanner,  // without two numbers: the earlier counts stand
  kTooLarge,  // announces more than the memory holds: the earlier counts stand
};

struct LoadFit {
  Banner banner = Banner::kRead;
  std::size_t records = 0;      // as they were taken
  std::size_t variables = 0;    // as they were taken
  std::size_t lines = 0;        // of the file, to the end of its text
  std::size_t short_lines = 0;  // of names and records, with fewer fields than variables
  std::size_t long_lines = 0;   // with more; the surplus is dropped

  bool Fits() const;
};

// How a file fits that has been split for so many records and variables.
LoadFit FitOf(const LoadedText& text, Banner banner, std::size_t records, std::size_t variables);

// What did not fit, in one sentence; empty when all did.
std::string FitNote(const LoadFit& fit);

// Keeps a file under the name "NAME (as found)" with its ending, in its own folder; a number is added when a file of
// that name is there. Yields the path of what is kept; nothing when that cannot be done. A file that has been kept
// already is not kept again.
std::optional<Path> KeepAsFound(const Path& file);

}  // namespace tessara
