#include "platform/file_reader.h"

#include <cerrno>
#include <system_error>

#include "platform/file_calls.h"
#include "platform/files.h"

namespace tessara {

FileReader::FileReader(const Path& path) {
  if (!IsRegularFile(path)) return;
  std::error_code error;
  size_ = std::filesystem::file_size(path, error);
  if (!error) file_ = CallsOfFiles().open(path, FileUse::kRead);
}

FileReader::~FileReader() {
  if (is_open()) CallsOfFiles().close(file_);
}

std::optional<std::size_t> FileReader::Read(char* bytes, std::size_t room) {
  if (!is_open()) return std::nullopt;
  std::size_t filled = 0;
  while (filled < room) {
    const std::int64_t count = CallsOfFiles().read(file_, bytes + filled, room - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  return filled;
}

bool FileReader::GoTo(std::uint64_t place) {
  return is_open() && CallsOfFiles().go_to(file_, static_cast<std::int64_t>(place));
}

}  // namespace tessara
