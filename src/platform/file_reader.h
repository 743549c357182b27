#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/path.h"

namespace tessara {

// A regular file that is read in pieces, for as long as the object lives: for files of which a part is enough, or that
// need not stand in memory whole.
class FileReader {
 public:
  explicit FileReader(const Path& path);
  ~FileReader();
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  bool is_open() const { return file_ >= 0; }
  // Bytes, as the file was when it was opened.
  std::uint64_t size() const { return size_; }

  // The next bytes, as many as there is room for or as are left: how many have come. Nothing when reading fails.
  std::optional<std::size_t> Read(char* bytes, std::size_t room);
  // Where the next read begins. False when that fails.
  bool GoTo(std::uint64_t place);

 private:
  int file_ = -1;
  std::uint64_t size_ = 0;
};

}  // namespace tessara
