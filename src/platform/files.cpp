#include "platform/files.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <random>
#include <system_error>
#include <utility>

#if defined(_WIN32)
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__APPLE__)
#include <mach-o/dyld.h>
#endif
#endif

namespace tessara {
namespace {

constexpr std::size_t kWriteBuffer = std::size_t{1} << 20;

DateTime LocalDateTime(std::time_t moment) {
  std::tm local{};
#if defined(_WIN32)
  localtime_s(&local, &moment);
#else
  localtime_r(&moment, &local);
#endif
  return {{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}, local.tm_hour, local.tm_min, local.tm_sec};
}

std::FILE* OpenToWrite(const Path& path, bool must_be_new) {
#if defined(_WIN32)
  return _wfopen(path.c_str(), must_be_new ? L"wbx" : L"wb");
#else
  return std::fopen(path.c_str(), must_be_new ? "wbx" : "wb");
#endif
}

bool MayWrite(const Path& path) {
#if defined(_WIN32)
  return _waccess(path.c_str(), 2) == 0;
#else
  return ::access(path.c_str(), W_OK) == 0;
#endif
}

bool FlushToDisk(std::FILE* file) {
#if defined(_WIN32)
  return _commit(_fileno(file)) == 0;
#else
  return ::fsync(::fileno(file)) == 0 || errno == EINVAL;  // a device has nothing to flush
#endif
}

bool TakeName(const Path& from, const Path& to) {
#if defined(_WIN32)
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
  if (::rename(from.c_str(), to.c_str()) != 0) return false;
  // The new name is safe only once its folder is on the disk too.
  const Path folder = to.has_parent_path() ? to.parent_path() : Path(".");
  if (const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); handle >= 0) {
    ::fsync(handle);
    ::close(handle);
  }
  return true;
#endif
}

WriteResult ResultOfError(int error) {
  return error == ENOENT || error == ENOTDIR ? WriteResult::kPathNotFound : WriteResult::kRefused;
}

// Beside the target, hidden, and of a name that no other writer takes, one that was stopped by a crash among them. It
// is short, so that a target with the longest of names can be written too.
Path TemporaryBeside(const Path& target) {
  return target.parent_path() / (".saving-" + std::to_string(SystemEntropy()));
}

}  // namespace

void FileBytes::Release::operator()(char* block) const {
#if defined(_WIN32)
  _aligned_free(block);
#else
  std::free(block);
#endif
}

std::optional<FileBytes> FileBytes::Allocate(std::size_t size) {
  if (size > MachineMemory()) return std::nullopt;
  const std::size_t total = (size + 3 * kFilePadding - 1) / kFilePadding * kFilePadding;
#if defined(_WIN32)
  char* block = static_cast<char*>(_aligned_malloc(total, kFilePadding));
#else
  char* block = static_cast<char*>(std::aligned_alloc(kFilePadding, total));
#endif
  if (!block) return std::nullopt;
  FileBytes bytes;
  bytes.block_.reset(block);
  bytes.size_ = size;
  std::memset(block, 0, kFilePadding);
  std::memset(block + kFilePadding + size, 0, kFilePadding);
  return bytes;
}

std::optional<FileFacts> FactsOfFile(const Path& path) {
#if defined(_WIN32)
  struct _stat64 facts {};
  if (_wstat64(path.c_str(), &facts) != 0 || (facts.st_mode & _S_IFDIR) != 0) return std::nullopt;
#else
  struct stat facts {};
  if (::stat(path.c_str(), &facts) != 0 || S_ISDIR(facts.st_mode)) return std::nullopt;
#endif
  return FileFacts{static_cast<std::uint64_t>(facts.st_size), LocalDateTime(facts.st_mtime)};
}

std::optional<FileBytes> ReadWholeFile(const Path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
#if defined(_WIN32)
  std::FILE* file = _wfopen(path.c_str(), L"rb");
#else
  std::FILE* file = std::fopen(path.c_str(), "rb");
#endif
  if (!file) return std::nullopt;
  std::setvbuf(file, nullptr, _IONBF, 0);
  const auto size = std::filesystem::file_size(path, error);
  auto bytes = error ? std::nullopt : FileBytes::Allocate(static_cast<std::size_t>(size));
  const bool whole = bytes && std::fread(bytes->data(), 1, bytes->size(), file) == bytes->size();
  std::fclose(file);
  if (!whole) return std::nullopt;
  return bytes;
}

SafeFileWriter::SafeFileWriter(const Path& path) : target_(path) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  const bool exists = fs::exists(status);
  if (exists && fs::is_directory(status)) {
    result_ = WriteResult::kRefused;
    return;
  }
  if (exists && fs::is_regular_file(status)) {
    if (!MayWrite(target_)) {  // a new name would walk around the protection of the old file
      result_ = WriteResult::kRefused;
      return;
    }
    if (const Path real = fs::canonical(target_, error); !error) target_ = real;  // a link stays a link
  }
  if (!exists || fs::is_regular_file(status)) temporary_ = TemporaryBeside(target_);
  file_ = OpenToWrite(temporary_.empty() ? target_ : temporary_, !temporary_.empty());
  if (!file_) {
    result_ = ResultOfError(errno);
    temporary_.clear();
    return;
  }
  std::setvbuf(file_, nullptr, _IONBF, 0);
  if (exists && !temporary_.empty()) fs::permissions(temporary_, status.permissions(), error);
  buffer_.reserve(kWriteBuffer);
}

SafeFileWriter::~SafeFileWriter() { Discard(); }

void SafeFileWriter::Write(std::string_view text) {
  if (text.size() >= kWriteBuffer) {
    Flush();
    if (file_ && result_ == WriteResult::kWritten && std::fwrite(text.data(), 1, text.size(), file_) != text.size()) {
      result_ = WriteResult::kRefused;
    }
    return;
  }
  if (buffer_.size() + text.size() > kWriteBuffer) Flush();
  buffer_.append(text);
}

void SafeFileWriter::Flush() {
  if (file_ && result_ == WriteResult::kWritten &&
      std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) {
    result_ = WriteResult::kRefused;
  }
  buffer_.clear();
}

WriteResult SafeFileWriter::Commit() {
  Flush();
  if (file_ && result_ == WriteResult::kWritten) {
    if (!FlushToDisk(file_)) result_ = WriteResult::kRefused;
    if (std::fclose(std::exchange(file_, nullptr)) != 0) result_ = WriteResult::kRefused;
    if (result_ == WriteResult::kWritten && !temporary_.empty()) {
      if (TakeName(temporary_, target_)) {
        temporary_.clear();
      } else {
        result_ = WriteResult::kRefused;
      }
    }
  }
  Discard();
  return result_;
}

void SafeFileWriter::Discard() {
  if (file_) std::fclose(std::exchange(file_, nullptr));
  if (!temporary_.empty()) {
    std::error_code ignored;
    std::filesystem::remove(temporary_, ignored);
    temporary_.clear();
  }
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

std::uint64_t MachineMemory() {
#if defined(_WIN32)
  MEMORYSTATUSEX memory{};
  memory.dwLength = sizeof memory;
  return GlobalMemoryStatusEx(&memory) ? memory.ullTotalPhys : 0;
#else
  return static_cast<std::uint64_t>(::sysconf(_SC_PHYS_PAGES)) * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
#endif
}

Path ExecutableFolder() {
#if defined(_WIN32)
  std::wstring name(32768, L'\0');
  name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
  return Path(name).parent_path();
#elif defined(__APPLE__)
  std::string name(4096, '\0');
  std::uint32_t size = static_cast<std::uint32_t>(name.size());
  if (_NSGetExecutablePath(name.data(), &size) != 0) return {};
  std::error_code error;
  return std::filesystem::canonical(name.c_str(), error).parent_path();
#else
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
#endif
}

Path FindProgramFolder(const Path& executable_folder) {
  namespace fs = std::filesystem;
  std::error_code error;
  const bool installed =
      fs::is_directory(executable_folder / "Data", error) && fs::is_directory(executable_folder / "Help", error);
  if (installed) return executable_folder;
  std::ifstream note(executable_folder / "program-folder.txt");
  std::string line;
  if (std::getline(note, line) && !line.empty()) return PathFromUtf8(line);
  return executable_folder;
}

Path FindProgramFolder() { return FindProgramFolder(ExecutableFolder()); }

Path UserDocumentsFolder() {
#if defined(_WIN32)
  const wchar_t* home = _wgetenv(L"USERPROFILE");
#else
  const char* home = std::getenv("HOME");
#endif
  const Path folder = home ? Path(home) : Path(".");
  std::error_code error;
  return std::filesystem::is_directory(folder / "Documents", error) ? folder / "Documents" : folder;
}

DateTime LocalNow() { return LocalDateTime(std::time(nullptr)); }

std::uint64_t SystemEntropy() {
  std::random_device device;
  const auto clock = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
  return (std::uint64_t{device()} << 32 | device()) ^ clock;
}

Path PathFromUtf8(std::string_view utf8) {
#if defined(_WIN32)
  return Path(std::u8string(utf8.begin(), utf8.end()));
#else
  return Path(utf8);  // the bytes that the user gave are the name
#endif
}

std::string PathToUtf8(const Path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

}  // namespace tessara
