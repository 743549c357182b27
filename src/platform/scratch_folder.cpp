#include "platform/scratch_folder.h"

#include <cstdlib>
#include <new>
#include <string>
#include <system_error>

#include "platform/files.h"

#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace tessara {
namespace {

namespace fs = std::filesystem;

// Asks for no memory.
void RemoveQuietly(const Path& path) {
  std::error_code ignored;
  if (!path.empty()) fs::remove(path, ignored);
}

// A new folder of that start, or nothing.
Path MakeFolder(const Path& start) {
#if defined(_WIN32)
  const Path folder = start.string() + std::to_string(SystemEntropy());
  std::error_code error;
  return fs::create_directory(folder, error) ? folder : Path();
#else
  std::string name = start.string() + "XXXXXX";
  if (!::mkdtemp(name.data())) return {};
  try {
    return Path(name);
  } catch (const std::bad_alloc&) {
    ::rmdir(name.c_str());
    throw;
  }
#endif
}

}  // namespace

ScratchFolder::ScratchFolder() {
  std::error_code error;
  const Path system = fs::temp_directory_path(error);
  if (error) return;
  path_ = MakeFolder(system / "tessara-");
}

ScratchFolder::~ScratchFolder() {
  RemoveQuietly(file_);
  RemoveQuietly(path_);
}

const Path& ScratchFolder::FileOf(const char* name) {
  file_ = path_ / name;
  in_work_.reset();
  file_in_work_.emplace(file_);
  in_work_.emplace(path_);
  return file_;
}

}  // namespace tessara
