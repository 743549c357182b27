#include "platform/safe_file_writer.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/file_calls.h"
#include "platform/files.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif
#if defined(__linux__)
#include <sys/xattr.h>
#endif

namespace tessara {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kWriteBuffer = std::size_t{1} << 20;
constexpr int kMostLinks = 40;

bool MayWrite(const Path& path) {
#if defined(_WIN32)
  return _waccess(path.c_str(), 2) == 0;
#else
  return ::access(path.c_str(), W_OK) == 0;
#endif
}

// What a link means, step by step, so that one whose target is not there yet is followed too.
Path BehindLinks(Path path) {
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
    // An open pipe is reached by its link alone: what that says is no path.
    if (fs::is_fifo(path, error)) return path;
    const Path target = fs::read_symlink(path, error);
    if (error) return path;
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  return path;
}

// The names of all extended attributes, access lists among them.
std::vector<std::string> AttributeNames([[maybe_unused]] const Path& path) {
  std::vector<std::string> names;
#if defined(__linux__)
  const ssize_t size = ::listxattr(path.c_str(), nullptr, 0);
  if (size <= 0) return names;
  std::string list(static_cast<std::size_t>(size), '\0');
  if (::listxattr(path.c_str(), list.data(), list.size()) != size) return names;
  for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1) names.emplace_back(list.c_str() + at);
#endif
  return names;
}

}  // namespace

SafeFileWriter::SafeFileWriter(const Path& path) : target_(BehindLinks(path)), folder_(target_.parent_path()) {
  if (folder_.empty()) folder_ = ".";
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  replaces_ = fs::is_regular_file(status);
  // Looked at here: whoever keeps the old file beside the new one gives it another name.
  other_names_ = replaces_ && fs::hard_link_count(target_, error) > 1 && !error;
  // A link that leads round has no target; a new name would walk around the protection of the old file.
  if (fs::is_directory(status) || (!fs::exists(status) && fs::is_symlink(target_, error)) ||
      (replaces_ && !MayWrite(target_))) {
    result_ = WriteResult::kRefused;
    return;
  }
  buffer_.reserve(kWriteBuffer);
  FileUse use = FileUse::kWrite;
  if (replaces_ || !fs::exists(status)) {
    RemoveStrays(folder_);
    use = replaces_ ? FileUse::kCreatePrivate : FileUse::kCreate;
    temporary_ = TemporaryBeside(target_);
    in_work_.emplace(temporary_);
  }
  file_ = CallsOfFiles().open(temporary_.empty() ? target_ : temporary_, use);
  if (file_ >= 0) return;
  Fail(errno);
  temporary_.clear();
}

SafeFileWriter::~SafeFileWriter() { Discard(); }

void SafeFileWriter::Fail(int error) {
  result_ = error == ENOENT || error == ENOTDIR ? WriteResult::kPathNotFound : WriteResult::kRefused;
}

void SafeFileWriter::Write(std::string_view text) {
  if (buffer_.size() + text.size() > kWriteBuffer) {
    WriteOut(buffer_);
    buffer_.clear();
  }
  if (text.size() >= kWriteBuffer) {
    WriteOut(text);
  } else {
    buffer_.append(text);
  }
}

void SafeFileWriter::WriteOut(std::string_view text) {
  while (file_ >= 0 && result_ == WriteResult::kWritten && !text.empty()) {
    const std::int64_t written = CallsOfFiles().write(file_, text.data(), text.size());
    if (written > 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0 || errno != EINTR) {
      result_ = WriteResult::kRefused;
    }
  }
}

void SafeFileWriter::KeepAttributes() {
  const FileCalls& calls = CallsOfFiles();
  if (other_names_) not_kept_.emplace_back("the other names");
  if (!calls.keep_owner(target_, file_)) not_kept_.emplace_back("the owner");
  if (!calls.keep_group(target_, file_)) not_kept_.emplace_back("the group");
  // Behind a change of the owner, which takes some rights away.
  if (!calls.keep_mode(target_, file_)) not_kept_.emplace_back("the access rights");
  for (const std::string& name : AttributeNames(target_)) {
    if (calls.keep_attribute(target_, name.c_str(), file_)) continue;
    not_kept_.push_back(name == "system.posix_acl_access" ? "the access list" : "the attribute " + name);
  }
}

WriteResult SafeFileWriter::Commit() {
  const FileCalls& calls = CallsOfFiles();
  WriteOut(buffer_);
  buffer_.clear();
  if (file_ >= 0 && result_ == WriteResult::kWritten) {
    if (replaces_) KeepAttributes();
    if (!calls.flush(file_)) result_ = WriteResult::kRefused;
    if (!calls.close(std::exchange(file_, -1))) result_ = WriteResult::kRefused;
    if (result_ == WriteResult::kWritten && !temporary_.empty()) {
      if (calls.take_name(temporary_, target_)) {
        temporary_.clear();
        // The new name is safe only once its folder is on the disk too.
        if (!calls.flush_folder(folder_)) result_ = WriteResult::kRefused;
      } else {
        result_ = WriteResult::kRefused;
      }
    }
  }
  Discard();
  return result_;
}

void SafeFileWriter::Discard() {
  if (file_ >= 0) CallsOfFiles().close(std::exchange(file_, -1));
  if (!temporary_.empty()) CallsOfFiles().remove(temporary_);
  temporary_.clear();
  in_work_.reset();
}

void NoteWhatWasNotKept(const SafeFileWriter& writer, Status& status) {
  std::string names;
  for (const std::string& name : writer.not_kept()) names += (names.empty() ? "" : ", ") + name;
  if (!names.empty()) status.ShowNote("the saved file could not keep " + names + " of the old one");
}

WriteResult WriteWholeFile(const Path& path, std::string_view content) {
  SafeFileWriter writer(path);
  writer.Write(content);
  return writer.Commit();
}

bool CopyFileOver(const Path& from, const Path& to) {
  const auto bytes = ReadWholeFile(from);
  return bytes && WriteWholeFile(to, bytes->text()) == WriteResult::kWritten;
}

}  // namespace tessara
