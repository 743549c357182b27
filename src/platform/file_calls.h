#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/path.h"

// The calls of the operating system by which files are read and written, in one table, so that a test can let any of
// them fail. Each leaves the reason of a failure in errno.

namespace tessara {

enum class FileUse {
  kRead,
  kWrite,          // a device, or a pipe that somebody reads, as it stands
  kCreate,         // must not be there yet
  kCreatePrivate,  // the same, for nobody but its owner
};

struct FileCalls {
  int (*open)(const Path& path, FileUse use);  // -1 when it fails
  std::int64_t (*read)(int file, char* bytes, std::size_t size);
  bool (*go_to)(int file, std::int64_t place);  // where the next read begins
  std::int64_t (*write)(int file, const char* bytes, std::size_t size);
  bool (*flush)(int file);
  bool (*close)(int file);
  bool (*take_name)(const Path& from, const Path& to);
  bool (*link)(const Path& from, const Path& to);  // a second name for the same file
  bool (*flush_folder)(const Path& folder);
  bool (*remove)(const Path& path);
  // Owner, group, mode, access lists and extended attributes of a file for another one that is open.
  bool (*keep_owner)(const Path& of, int file);
  bool (*keep_group)(const Path& of, int file);
  bool (*keep_mode)(const Path& of, int file);
  bool (*keep_attribute)(const Path& of, const char* name, int file);
};

// The table in use. It is the system's own; a test may put calls of its own in it for a while.
FileCalls& CallsOfFiles();
FileCalls SystemFileCalls();

}  // namespace tessara
