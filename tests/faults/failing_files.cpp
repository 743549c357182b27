#include <cerrno>

#include "faults.h"
#include "platform/file_calls.h"

namespace tessara {
namespace {

std::size_t calls_made = 0;
std::size_t fails_at = 0;
bool fails_on = false;

bool Fails() {
  ++calls_made;
  if (calls_made != fails_at && !(fails_on && calls_made > fails_at)) return false;
  errno = EIO;
  return true;
}

int Open(const Path& path, FileUse use) { return Fails() ? -1 : SystemFileCalls().open(path, use); }
std::int64_t Read(int file, char* bytes, std::size_t size) {
  return Fails() ? -1 : SystemFileCalls().read(file, bytes, size);
}
bool GoTo(int file, std::int64_t place) { return !Fails() && SystemFileCalls().go_to(file, place); }
std::int64_t Write(int file, const char* bytes, std::size_t size) {
  // A disk that fills up takes a part of it first.
  if (Fails()) return -1;
  return SystemFileCalls().write(file, bytes, size > 1 ? size / 2 : size);
}
bool Flush(int file) { return !Fails() && SystemFileCalls().flush(file); }
bool Close(int file) {  // the file is closed also when that fails
  const bool closed = SystemFileCalls().close(file);
  return !Fails() && closed;
}
bool TakeName(const Path& from, const Path& to) { return !Fails() && SystemFileCalls().take_name(from, to); }
bool Link(const Path& from, const Path& to) { return !Fails() && SystemFileCalls().link(from, to); }
bool FlushFolder(const Path& folder) { return !Fails() && SystemFileCalls().flush_folder(folder); }

}  // namespace

FailingFiles::FailingFiles(std::size_t number, Fault fault) {
  calls_made = 0;
  fails_on = fault == Fault::kFromThenOn;
  fails_at = number;
  FileCalls& calls = CallsOfFiles();
  calls.open = Open;
  calls.read = Read;
  calls.go_to = GoTo;
  calls.write = Write;
  calls.flush = Flush;
  calls.close = Close;
  calls.take_name = TakeName;
  calls.link = Link;
  calls.flush_folder = FlushFolder;
}
FailingFiles::~FailingFiles() { CallsOfFiles() = SystemFileCalls(); }
bool FailingFiles::HasFailed() { return calls_made >= fails_at; }

}  // namespace tessara
