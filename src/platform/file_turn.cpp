#include "platform/file_turn.h"

#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>

#if !defined(_WIN32)
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace tessara {

#if defined(_WIN32)

FileTurn::FileTurn(const Path&) {}
FileTurn::~FileTurn() = default;

#else

namespace {

constexpr std::chrono::milliseconds kLook{2};  // between two looks whether it is our turn
constexpr std::chrono::seconds kLongest{10};

// The folder in which a file stands; of a link, that of the file that it leads to.
Path FolderOf(const Path& file) {
  std::error_code error;
  const Path whole = std::filesystem::weakly_canonical(file, error);
  const Path folder = (error ? file : whole).parent_path();
  return folder.empty() ? Path(".") : folder;
}

}  // namespace

FileTurn::FileTurn(const Path& file) : folder_(open(FolderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (folder_ < 0) return;
  const auto end = std::chrono::steady_clock::now() + kLongest;
  while (flock(folder_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kLook);
  }
}

FileTurn::~FileTurn() {
  if (folder_ >= 0) close(folder_);  // gives the turn to the next
}

#endif

}  // namespace tessara
