#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

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

// A file that is kept beside the one that takes its place. A second name that it was given for a save goes again when
// the save fails, which leaves the file where it was.
class KeptFile {
 public:
  explicit KeptFile(Path path) : path_(std::move(path)) {}
  KeptFile(Path path, Path second_name_of) : path_(std::move(path)), file_(std::move(second_name_of)) {}
  KeptFile(KeptFile&& other) noexcept : path_(std::move(other.path_)), file_(std::exchange(other.file_, Path())) {}
  KeptFile& operator=(KeptFile&&) = delete;
  ~KeptFile();

  const Path& path() const { return path_; }

 private:
  Path path_;
  Path file_;  // empty for a file that was kept before, and for a copy
};

// Keeps a file under the name "NAME (as found)" with its ending, in its own folder; a number is added when a file of
// that name is there. Nothing when that cannot be done. A file that has been kept already is not kept again.
std::optional<KeptFile> KeepAsFound(const Path& file);

}  // namespace tessara
