#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "presentation/output_log.h"

// Standard output and standard error of the batch program: the Output Log as it grows, the texts that some commands
// print between the reports, and messages. Each message comes behind all that was printed ahead of it.

namespace tessara {

enum class LogForm {
  kText,   // UTF-8 with LF line ends, for a terminal and its tools
  kBytes,  // as it is held: code page 1252 with CR LF
};

class LogStream {
 public:
  LogStream(std::FILE* out, std::FILE* err) : out_(out), err_(err) {}

  void SetForm(LogForm form) { form_ = form; }
  // The log whose growth is printed; none while the log goes to a file.
  void Follow(const OutputLog* log) { log_ = log; }

  // What the log has gained since it was printed last.
  void PrintNews();
  // The growth of the log, then a text that does not belong to it.
  void PrintText(std::string_view held_text);
  // A line on standard error, UTF-8. All that was printed ahead of it is flushed first.
  void PrintMessage(std::string_view utf8);

  // Standard output could not be written, and not because its reader has gone: whoever closes a pipe has seen enough.
  bool write_failed() const { return write_failed_; }

 private:
  void WriteHeld(std::string_view held_text);

  std::FILE* out_;
  std::FILE* err_;
  const OutputLog* log_ = nullptr;
  std::size_t printed_ = 0;
  LogForm form_ = LogForm::kText;
  bool closed_ = false;
  bool write_failed_ = false;
};

// A held text for the outside: UTF-8, CR LF as LF.
std::string TerminalText(std::string_view held_text);

}  // namespace tessara
