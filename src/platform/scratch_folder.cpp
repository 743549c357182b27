#include "platform/scratch_folder.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include "platform/files.h"

#if !defined(_WIN32)
#include <unistd.h>
#endif

namespace tessara {
namespace {

namespace fs = std::filesystem;

// A new folder of that start, or nothing.
Path MakeFolder(const Path& start) {
#if defined(_WIN32)
  const Path folder = start.string() + std::to_string(SystemEntropy());
  std::error_code error;
  return fs::create_directory(folder, error) ? folder : Path();
#else
  std::string name = start.string() + "XXXXXX";
  return ::mkdtemp(name.data()) ? Path(name) : Path();
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
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

Path ScratchFolder::FileOf(const char* name) {
  const Path file = path_ / name;
  in_work_.reset();
  file_in_work_.emplace(file);
  in_work_.emplace(path_);
  return file;
}

}  // namespace tessara
