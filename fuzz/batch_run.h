#pragma once

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

#include "batch/batch.h"
#include "platform/file_calls.h"

// The batch program in the fuzzer's own process: its streams are in memory, and no file is written.

namespace tessara {

inline void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", rule);
  std::abort();
}

// A stream that collects what is written to it.
class MemoryStream {
 public:
  MemoryStream() : file_(::open_memstream(&bytes_, &size_)) { Require(file_ != nullptr, "a stream can be opened"); }
  ~MemoryStream() {
    std::fclose(file_);
    std::free(bytes_);
  }
  MemoryStream(const MemoryStream&) = delete;
  MemoryStream& operator=(const MemoryStream&) = delete;

  std::FILE* file() { return file_; }
  std::string text() {
    std::fflush(file_);
    return std::string(bytes_, size_);
  }

 private:
  char* bytes_ = nullptr;
  std::size_t size_ = 0;
  std::FILE* file_;
};

struct BatchOutcome {
  int status = 0;
  std::string out;
  std::string err;

  friend bool operator==(const BatchOutcome&, const BatchOutcome&) = default;
};

// Nobody makes a file any more, whatever a line says; and reads one only where that is allowed.
inline void KeepFromFiles(bool allow_reading) {
  CallsOfFiles().open =
      allow_reading
          ? [](const Path& path, FileUse use) { return use == FileUse::kRead ? SystemFileCalls().open(path, use) : -1; }
          : [](const Path&, FileUse) { return -1; };
  CallsOfFiles().remove = [](const Path&) { return false; };
  CallsOfFiles().take_name = [](const Path&, const Path&) { return false; };
}

inline BatchOutcome RunInMemory(std::span<const std::string> arguments, std::string_view input = "\n") {
  std::string copy(input);
  std::FILE* in = ::fmemopen(copy.data(), copy.size(), "r");
  Require(in != nullptr, "the input can be read");
  MemoryStream out;
  MemoryStream err;
  BatchOutcome outcome;
  outcome.status = RunBatch(arguments, {in, out.file(), err.file()});
  std::fclose(in);
  outcome.out = out.text();
  outcome.err = err.text();
  return outcome;
}

// What holds for every run, whatever it was given.
inline void CheckOutcome(const BatchOutcome& outcome) {
  Require(outcome.status >= 0 && outcome.status <= 2, "the status is 0, 1 or 2");
  Require(outcome.status == 0 || !outcome.err.empty() || outcome.out.find("Error") != std::string::npos,
          "what was refused is said");
}

}  // namespace tessara
