#include "platform/file_calls.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif
#endif

namespace tessara {
namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;  // what every system takes in one call

#if defined(_WIN32)

int Open(const Path& path, FileUse use) {
  switch (use) {
    case FileUse::kRead:
      return ::_wopen(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
    case FileUse::kWrite:
      return ::_wopen(path.c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
    default:
      return ::_wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
  }
}
std::int64_t Read(int file, char* bytes, std::size_t size) {
  return ::_read(file, bytes, static_cast<unsigned>(std::min(size, kMostAtOnce)));
}
bool GoTo(int file, std::int64_t place) { return ::_lseeki64(file, place, SEEK_SET) == place; }
std::int64_t Write(int file, const char* bytes, std::size_t size) {
  return ::_write(file, bytes, static_cast<unsigned>(std::min(size, kMostAtOnce)));
}
bool FlushFile(int file) { return ::_commit(file) == 0; }
bool Close(int file) { return ::_close(file) == 0; }
bool TakeName(const Path& from, const Path& to) {
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}
bool Link(const Path&, const Path&) { return false; }
bool FlushFolder(const Path&) { return true; }
bool Remove(const Path& path) { return ::_wunlink(path.c_str()) == 0; }
bool KeepOwner(const Path&, int) { return true; }
bool KeepGroup(const Path&, int) { return true; }
bool KeepMode(const Path&, int) { return true; }
bool KeepAttribute(const Path&, const char*, int) { return true; }

#else

// A pipe without a reader is refused; a program that waited for one would hang.
int OpenAsItStands(const Path& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return -1;
  const int flags = ::fcntl(file, F_GETFL);  // what is open waits for its reader, as every writer does
  if (flags >= 0 && ::fcntl(file, F_SETFL, flags & ~O_NONBLOCK) == 0) return file;
  ::close(file);
  return -1;
}

int Open(const Path& path, FileUse use) {
  switch (use) {
    case FileUse::kRead:
      return ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    case FileUse::kWrite:
      return OpenAsItStands(path);
    case FileUse::kCreate:
      return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    case FileUse::kCreatePrivate:
      return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  }
  return -1;
}

std::int64_t Read(int file, char* bytes, std::size_t size) { return ::read(file, bytes, std::min(size, kMostAtOnce)); }

bool GoTo(int file, std::int64_t place) { return ::lseek(file, place, SEEK_SET) == place; }

std::int64_t Write(int file, const char* bytes, std::size_t size) {
  return ::write(file, bytes, std::min(size, kMostAtOnce));
}

// What has nothing to flush, a device for example, is flushed.
bool NothingToFlush(int error) { return error == EINVAL || error == ENOTSUP || error == EROFS; }

bool FlushFile(int file) { return ::fsync(file) == 0 || NothingToFlush(errno); }
bool Close(int file) { return ::close(file) == 0; }
bool TakeName(const Path& from, const Path& to) { return ::rename(from.c_str(), to.c_str()) == 0; }

bool Link(const Path& from, const Path& to) { return ::link(from.c_str(), to.c_str()) == 0; }

bool FlushFolder(const Path& folder) {
  const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return errno == EACCES;  // one may write into a folder that one may not read
  const bool flushed = ::fsync(file) == 0 || NothingToFlush(errno);
  ::close(file);
  return flushed;
}

bool Remove(const Path& path) { return ::unlink(path.c_str()) == 0; }

bool KeepOwner(const Path& of, int file) {
  struct stat old_file {};
  struct stat new_file {};
  if (::stat(of.c_str(), &old_file) != 0 || ::fstat(file, &new_file) != 0) return false;
  return old_file.st_uid == new_file.st_uid || ::fchown(file, old_file.st_uid, static_cast<gid_t>(-1)) == 0;
}

bool KeepGroup(const Path& of, int file) {
  struct stat old_file {};
  struct stat new_file {};
  if (::stat(of.c_str(), &old_file) != 0 || ::fstat(file, &new_file) != 0) return false;
  return old_file.st_gid == new_file.st_gid || ::fchown(file, static_cast<uid_t>(-1), old_file.st_gid) == 0;
}

bool KeepMode(const Path& of, int file) {
  struct stat old_file {};
  return ::stat(of.c_str(), &old_file) == 0 && ::fchmod(file, old_file.st_mode & 07777U) == 0;
}

#if defined(__linux__)

bool KeepAttribute(const Path& of, const char* name, int file) {
  const ssize_t size = ::getxattr(of.c_str(), name, nullptr, 0);
  if (size < 0) return false;
  std::string value(static_cast<std::size_t>(size), '\0');
  if (::getxattr(of.c_str(), name, value.data(), value.size()) != size) return false;
  if (::fsetxattr(file, name, value.data(), value.size(), 0) == 0) return true;
  std::string held(value.size(), '\0');  // what the system has set by itself need not be set again
  return ::fgetxattr(file, name, held.data(), held.size()) == size && held == value;
}

#else

bool KeepAttribute(const Path&, const char*, int) { return true; }

#endif
#endif

}  // namespace

FileCalls SystemFileCalls() {
  return {Open, Read,        GoTo,   Write,     FlushFile, Close,    TakeName,
          Link, FlushFolder, Remove, KeepOwner, KeepGroup, KeepMode, KeepAttribute};
}

FileCalls& CallsOfFiles() {
  static FileCalls calls = SystemFileCalls();
  return calls;
}

}  // namespace tessara
