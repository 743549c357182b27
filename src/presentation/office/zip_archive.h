#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/path.h"

// Archives of parts: what the files of office programs are.

namespace tessara {

// A part that is too long to be held: its text comes in stretches, as often as it is asked for from the start.
class LongText {
 public:
  virtual ~LongText() = default;
  virtual void Restart() = 0;
  // Appends the next stretch; false behind the last one.
  virtual bool Next(std::string& text) = 0;
};

struct ArchivePart {
  std::string name;
  std::string bytes;
  LongText* long_text = nullptr;  // in the place of the bytes
  bool is_picture = false;        // packed already
};

// The bytes of an archive, the same for the same parts whatever the day. Nothing when it cannot be made; without enough
// memory std::bad_alloc comes out.
std::optional<std::string> MakeArchive(const std::vector<ArchivePart>& parts);

// Looks through an archive on the disk: whether every part can be read to its end and ends as XML does, and whether the
// part numbered n of those named `name_start` n ".xml", n from 1, holds counts[n - 1] times the words.
bool IsWholeArchive(const Path& path, const std::string& name_start, const std::string& words,
                    const std::vector<std::uint64_t>& counts);

}  // namespace tessara
