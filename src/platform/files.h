#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "numerics/dates.h"
#include "platform/platform.h"

// Files, as the operating system gives them. All that is not plain standard C++ stands behind these routines.

namespace tessara {

// A whole file in one block of memory, with readable bytes (kFilePadding zeros) on both sides of it, so that a scan may
// look at whole words.
inline constexpr std::size_t kFilePadding = 64;

class FileBytes {
 public:
  FileBytes() = default;
  // A block of `size` bytes that has not been filled; empty when the memory is not to be had.
  static std::optional<FileBytes> Allocate(std::size_t size);

  const char* data() const { return block_ ? block_.get() + kFilePadding : nullptr; }
  char* data() { return block_ ? block_.get() + kFilePadding : nullptr; }
  std::size_t size() const { return size_; }
  std::string_view text() const { return {data(), size_}; }

 private:
  struct Release {
    void operator()(char* block) const;
  };

  std::unique_ptr<char, Release> block_;
  std::size_t size_ = 0;
};

struct FileFacts {
  std::uint64_t size = 0;
  DateTime modified;  // local time
};

// Nothing when there is no such file, or when it is a folder.
std::optional<FileFacts> FactsOfFile(const Path& path);

// Nothing when the file cannot be opened or read, is a folder, or is larger than the machine's memory.
std::optional<FileBytes> ReadWholeFile(const Path& path);

enum class WriteResult {
  kWritten,
  kPathNotFound,  // a folder of the path does not exist
  kRefused,       // no right to write, no space left, a folder of that name, ...
};

// Writes a file so that the old one stays whole until the new one is safely on the disk: the text goes to a temporary
// file in the same folder, is flushed to the disk and takes the name at last. What has not been committed leaves no
// trace. A path that names a device and not a file is written directly.
class SafeFileWriter {
 public:
  explicit SafeFileWriter(const Path& path);
  ~SafeFileWriter();
  SafeFileWriter(const SafeFileWriter&) = delete;
  SafeFileWriter& operator=(const SafeFileWriter&) = delete;

  // What has happened so far; kWritten while all is well.
  WriteResult result() const { return result_; }

  void Write(std::string_view text);
  // Flushes and takes the name. Nothing is written any more behind it.
  WriteResult Commit();

 private:
  void Flush();
  void Discard();

  Path target_;
  Path temporary_;  // empty when the target is written directly
  std::FILE* file_ = nullptr;
  std::string buffer_;
  WriteResult result_ = WriteResult::kWritten;
};

WriteResult WriteWholeFile(const Path& path, std::string_view content);

// Copies a file over another, by way of SafeFileWriter.
bool CopyFileOver(const Path& from, const Path& to);

// Bytes of memory in the machine.
std::uint64_t MachineMemory();

// The folder of the running executable.
Path ExecutableFolder();

// The program folder of an executable: the executable's own folder when Data and Help stand in it, else the folder that
// a build tree notes in a file "program-folder.txt" beside the executable, else the executable's own folder again.
Path FindProgramFolder(const Path& executable_folder);
// That of the running executable.
Path FindProgramFolder();

// The user's documents folder.
Path UserDocumentsFolder();

DateTime LocalNow();
std::uint64_t SystemEntropy();

// A path from and to UTF-8, as texts of a command line or a script hold it.
Path PathFromUtf8(std::string_view utf8);
std::string PathToUtf8(const Path& path);

}  // namespace tessara
