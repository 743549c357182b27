#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/path.h"
#include "platform/status.h"
#include "platform/temporary_files.h"

// The one way in which the product writes files.

namespace tessara {

enum class WriteResult {
  kWritten,
  kPathNotFound,  // a folder of the path does not exist
  kRefused,       // no right to write, no space left, a folder of that name, ...
};

// Writes a file so that the old one stays whole until the new one is safely on the disk: the text goes to a temporary
// file in the same folder, is flushed to the disk and takes the name at last. What has not been committed leaves no
// trace. The new file has the old one's owner, group, mode, access list and extended attributes as far as the system
// allows it. A link stays a link, and one that leads nowhere gets its target. A path that names a device and not a file
// is written directly.
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

  // What the new file could not take over from the old one, "the owner" for example; told after the commit.
  const std::vector<std::string>& not_kept() const { return not_kept_; }

 private:
  void Fail(int error);
  void WriteOut(std::string_view text);
  void KeepAttributes();
  void Discard();

  Path target_;
  Path folder_;
  Path temporary_;  // empty when the target is written directly
  std::optional<TemporaryInWork> in_work_;
  bool replaces_ = false;
  bool other_names_ = false;  // of the old file, which they still lead to
  int file_ = -1;
  std::string buffer_;
  std::vector<std::string> not_kept_;
  WriteResult result_ = WriteResult::kWritten;
};

// Says in a note what a file that has been written could not keep.
void NoteWhatWasNotKept(const SafeFileWriter& writer, Status& status);

WriteResult WriteWholeFile(const Path& path, std::string_view content);

// Copies a file over another.
bool CopyFileOver(const Path& from, const Path& to);

}  // namespace tessara
