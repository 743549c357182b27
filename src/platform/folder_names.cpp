#include "platform/folder_names.h"

#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>

#if !defined(_WIN32)
#include <dirent.h>
#endif

namespace tessara {

std::optional<std::vector<Path>> NamesInFolder(const Path& folder) {
  std::vector<Path> names;
#if defined(_WIN32)
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    names.push_back(entry->path().filename());
  }
  if (error) return std::nullopt;
#else
  struct Close {
    void operator()(DIR* opened) const { ::closedir(opened); }
  };
  const std::unique_ptr<DIR, Close> opened(::opendir(folder.c_str()));
  if (!opened) return std::nullopt;
  errno = 0;
  while (const dirent* entry = ::readdir(opened.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
    errno = 0;
  }
  if (errno != 0) return std::nullopt;
#endif
  return names;
}

}  // namespace tessara
