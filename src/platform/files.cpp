#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <new>
#include <random>
#include <system_error>

#include "platform/file_calls.h"

#if defined(_WIN32)
#include <sys/stat.h>
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#if defined(__APPLE__)
#include <mach-o/dyld.h>
#endif
#endif

namespace tessara {
namespace {

constexpr std::align_val_t kBlockAlignment{kFilePadding};

DateTime LocalDateTime(std::time_t moment) {
  std::tm local{};
#if defined(_WIN32)
  localtime_s(&local, &moment);
#else
  localtime_r(&moment, &local);
#endif
  return {{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}, local.tm_hour, local.tm_min, local.tm_sec};
}

// A file that is read, for as long as the object lives.
class OpenFile {
 public:
  explicit OpenFile(const Path& path) : file_(CallsOfFiles().open(path, FileUse::kRead)) {}
  ~OpenFile() {
    if (is_open()) CallsOfFiles().close(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool is_open() const { return file_ >= 0; }

  // Whether there were as many bytes to read.
  bool Fill(char* bytes, std::size_t size) const {
    while (size > 0) {
      const std::int64_t count = CallsOfFiles().read(file_, bytes, size);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return false;
      bytes += count;
      size -= static_cast<std::size_t>(count);
    }
    return true;
  }

 private:
  int file_;
};

}  // namespace

void FileBytes::Release::operator()(char* block) const { ::operator delete(block, kBlockAlignment); }

std::optional<FileBytes> FileBytes::Allocate(std::size_t size) {
  if (size > MachineMemory()) return std::nullopt;
  void* block = ::operator new(size + 2 * kFilePadding, kBlockAlignment, std::nothrow);
  if (!block) return std::nullopt;
  FileBytes bytes;
  bytes.block_.reset(static_cast<char*>(block));
  bytes.size_ = size;
  std::memset(bytes.block_.get(), 0, kFilePadding);
  std::memset(bytes.block_.get() + kFilePadding + size, 0, kFilePadding);
  return bytes;
}

void FileBytes::Shorten(std::size_t size) {
  size_ = std::min(size, size_);
  if (block_) std::memset(block_.get() + kFilePadding + size_, 0, kFilePadding);
}

std::optional<FileFacts> FactsOfFile(const Path& path) {
#if defined(_WIN32)
  struct _stat64 facts {};
  if (_wstat64(path.c_str(), &facts) != 0 || (facts.st_mode & _S_IFDIR) != 0) return std::nullopt;
#else
  struct stat facts {};
  if (::stat(path.c_str(), &facts) != 0 || S_ISDIR(facts.st_mode)) return std::nullopt;
#endif
  std::error_code error;
  const auto modified = std::filesystem::last_write_time(path, error);
  return FileFacts{static_cast<std::uint64_t>(facts.st_size), error ? 0 : modified.time_since_epoch().count(),
                   LocalDateTime(facts.st_mtime)};
}

bool IsRegularFile(const Path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

std::optional<FileBytes> ReadWholeFile(const Path& path) {
  if (!IsRegularFile(path)) return std::nullopt;
  const OpenFile file(path);
  if (!file.is_open()) return std::nullopt;
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (error) return std::nullopt;
  auto bytes = FileBytes::Allocate(static_cast<std::size_t>(size));
  if (!bytes) throw std::bad_alloc();
  if (!file.Fill(bytes->data(), bytes->size())) return std::nullopt;
  return bytes;
}

std::optional<std::string> ReadStartOfFile(const Path& path, std::size_t most) {
  if (!IsRegularFile(path)) return std::nullopt;
  const OpenFile file(path);
  if (!file.is_open()) return std::nullopt;
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (error) return std::nullopt;
  std::string start(static_cast<std::size_t>(std::min<std::uint64_t>(size, most)), '\0');
  if (!file.Fill(start.data(), start.size())) return std::nullopt;
  return start;
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
