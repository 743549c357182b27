#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "batch/batch_platform.h"
#include "batch/guarded_files.h"
#include "batch/log_stream.h"
#include "batch/words/command_words.h"
#include "platform/memory.h"
#include "platform/settings_store.h"
#include "shell/session.h"

// What a command of the batch program is: a row with all that can be said of it, and the run that it works on. Each
// command has a file of its own, or shares one with its nearest kin; commands.cpp lists them.

namespace tessara {

// Exit statuses. A higher one wins over a lower one.
enum class BatchStatus {
  kAllWell = 0,
  kRefused = 1,        // some command ended in a message box of refusal or in the error frame
  kNotUnderstood = 2,  // a line that cannot be understood, an unknown variable, a file that cannot be opened
};

struct CommandResult {
  BatchStatus status = BatchStatus::kAllWell;
  std::string error;  // what is wrong, UTF-8; only with kNotUnderstood
};

inline CommandResult Done() { return {}; }
inline CommandResult NotUnderstood(std::string what) { return {BatchStatus::kNotUnderstood, std::move(what)}; }

// One run of the batch program: the session, and what stands around it.
struct Batch {
  Batch(LogStream& the_stream, std::optional<std::uint64_t> seed);
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;

  LogStream& stream;
  BatchPlatform platform;
  MemorySettingsStore settings_store;
  Session session;
  GuardedFiles files;
  MemoryReserve reserve;
};

// A step of a run. One that the memory does not suffice for is not understood: what it had not yet done stays undone,
// and some memory is let go, so that the run can tell and write its log.
template <typename Step>
CommandResult WithinMemory(Batch& batch, Step step) {
  try {
    return step();
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {  // what a container asks for when it wants more than there can be
  }
  batch.reserve.LetGo();
  return NotUnderstood("out of memory");
}

inline constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

struct CommandRow {
  std::string_view name;
  std::string_view synopsis = {};  // what follows the name
  std::string_view summary;        // a few words
  std::string_view details;        // sentences in lines of the help page, each ended by LF
  std::string_view example;
  std::span<const OptionRow> options = {};
  std::size_t most_words = 0;
  std::string_view needed_word = {};  // what is missing when there is no word at all; empty when none is needed
  CommandResult (*run)(Batch& batch, const CommandWords& words) = nullptr;
  std::string (*more_details)() = nullptr;  // lines of a table that follow the details; none for most
};

}  // namespace tessara
