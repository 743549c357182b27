#include "platform/temporary_files.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/folder_names.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace tessara {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kStart = ".saving-";

#if defined(_WIN32)

std::uint64_t ThisProcess() { return GetCurrentProcessId(); }
// The system lets nobody remove a file that its writer has open.
bool IsGone(std::uint64_t process) { return process != ThisProcess(); }
bool IsOurs(const Path&) { return true; }
std::string MachineName() { return {}; }

#else

std::uint64_t ThisProcess() { return static_cast<std::uint64_t>(::getpid()); }
bool IsGone(std::uint64_t process) { return ::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH; }

bool IsOurs(const Path& path) {
  struct stat facts {};
  return ::lstat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_uid == ::geteuid();
}

// The machine, and of a container also what numbers its processes: elsewhere the same number is another process.
std::string MachineName() {
  std::array<char, 256> host{};
  ::gethostname(host.data(), host.size() - 1);
  std::error_code error;
  const fs::path numbering = fs::read_symlink("/proc/self/ns/pid", error);
  return host.data() + (error ? std::string() : numbering.string());
}

#endif

std::string MachineMark() {
  std::uint32_t mark = 2166136261U;  // FNV-1a
  for (const char c : MachineName()) mark = (mark ^ static_cast<unsigned char>(c)) * 16777619U;
  return std::to_string(mark);
}

// The process of a temporary file of this machine, told by its name.
std::optional<std::uint64_t> WriterOf(std::string_view name, std::string_view machine) {
  if (!name.starts_with(kStart)) return std::nullopt;
  name.remove_prefix(kStart.size());
  if (!name.starts_with(machine) || name.substr(machine.size(), 1) != "-") return std::nullopt;
  name.remove_prefix(machine.size() + 1);
  std::uint64_t process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  if (error != std::errc() || end == name.data() + name.size() || *end != '-') return std::nullopt;
  return process;
}

// The list that a signal handler reads: no memory is taken, no lock is waited for.
constexpr std::size_t kMostInWork = 16;
constexpr std::size_t kLongestPath = 4096;
constexpr std::size_t kNoSlot = kMostInWork;

enum class SlotState { kFree, kFilling, kInWork };

struct InWorkSlot {
  std::atomic<SlotState> state{SlotState::kFree};
  std::array<char, kLongestPath> path{};
};

std::array<InWorkSlot, kMostInWork> in_work;

#if !defined(_WIN32)

// Those by which a program ends unless it wants otherwise, but for its own faults.
constexpr int kEndingSignals[] = {SIGHUP,  SIGINT,  SIGQUIT,   SIGTERM, SIGUSR1,
                                  SIGUSR2, SIGALRM, SIGVTALRM, SIGPROF, SIGXCPU,
#if defined(__linux__)
                                  SIGPOLL, SIGPWR,  SIGSTKFLT
#endif
};

extern "C" void EndBySignal(int signal) {
  for (const InWorkSlot& slot : in_work) {
    if (slot.state.load(std::memory_order_acquire) != SlotState::kInWork) continue;
    if (::unlink(slot.path.data()) != 0) ::rmdir(slot.path.data());
  }
  std::signal(signal, SIG_DFL);
  std::raise(signal);  // the program ends as the signal means it to
}

#endif

}  // namespace

Path TemporaryBeside(const Path& target) {
  return target.parent_path() / (std::string(kStart) + MachineMark() + "-" + std::to_string(ThisProcess()) + "-" +
                                 std::to_string(SystemEntropy()));
}

void RemoveStrays(const Path& folder) {
  const auto names = NamesInFolder(folder.empty() ? Path(".") : folder);
  if (!names) return;
  std::string machine;
  for (const Path& name : *names) {
    const std::string text = PathToUtf8(name);
    if (!text.starts_with(kStart)) continue;
    if (machine.empty()) machine = MachineMark();
    const auto writer = WriterOf(text, machine);
    if (writer && IsGone(*writer) && IsOurs(folder / name)) CallsOfFiles().remove(folder / name);
  }
}

void RemoveTemporariesOnSignals() {
#if !defined(_WIN32)
  if (struct sigaction now{}; ::sigaction(SIGXFSZ, nullptr, &now) == 0 && now.sa_handler == SIG_DFL) {
    std::signal(SIGXFSZ, SIG_IGN);  // a file beyond its limit fails, as on a full disk, and the program goes on
  }
  for (const int signal : kEndingSignals) {
    struct sigaction before {};
    if (::sigaction(signal, nullptr, &before) != 0 || before.sa_handler != SIG_DFL) continue;
    struct sigaction ours {};
    ours.sa_handler = EndBySignal;
    sigemptyset(&ours.sa_mask);
    ::sigaction(signal, &ours, nullptr);
  }
#endif
}

TemporaryInWork::TemporaryInWork(const Path& path) : slot_(kNoSlot) {
  std::error_code error;
  const std::string name = fs::absolute(path, error).string();
  if (error || name.size() >= kLongestPath) return;
  for (std::size_t i = 0; i < kMostInWork; ++i) {
    SlotState free = SlotState::kFree;
    if (!in_work[i].state.compare_exchange_strong(free, SlotState::kFilling)) continue;
    std::memcpy(in_work[i].path.data(), name.c_str(), name.size() + 1);
    in_work[i].state.store(SlotState::kInWork, std::memory_order_release);
    slot_ = i;
    return;
  }
}

TemporaryInWork::~TemporaryInWork() {
  if (slot_ != kNoSlot) in_work[slot_].state.store(SlotState::kFree, std::memory_order_release);
}

}  // namespace tessara
