#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "numerics/dates.h"
#include "platform/path.h"
#include "platform/safe_file_writer.h"

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

  // Leaves the first `size` bytes, which are as many or fewer than there are, with readable zeros behind them.
  void Shorten(std::size_t size);

 private:
  struct Release {
    void operator()(char* block) const;
  };

  std::unique_ptr<char, Release> block_;
  std::size_t size_ = 0;
};

struct FileFacts {
  std::uint64_t size = 0;
  std::int64_t modified_exactly = 0;  // in ticks of the file system's clock, to tell two times apart
  DateTime modified;                  // local time
};

// Nothing when there is no such file, or when it is a folder.
std::optional<FileFacts> FactsOfFile(const Path& path);

// No folder, device or pipe: what can be read without waiting for anybody.
bool IsRegularFile(const Path& path);

// Nothing when the file cannot be opened or read, or is a folder. Throws std::bad_alloc when it does not fit the
// memory, so that nobody takes it for a file without content.
std::optional<FileBytes> ReadWholeFile(const Path& path);

// The first bytes of a file, `most` of them or as many as there are; nothing when it cannot be opened or read.
std::optional<std::string> ReadStartOfFile(const Path& path, std::size_t most);

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
