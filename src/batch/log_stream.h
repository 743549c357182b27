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
  // A text for a terminal shows control characters instead of sending them; one for a file or a pipe is exact.
  LogStream(std::FILE* out, std::FILE* err);

  void SetForm(LogForm form) { form_ = form; }
  // The log whose growth is printed; none while the log goes to a file.
  void Follow(const OutputLog* log) { log_ = log; }

  // What the log has gained since it was printed last.
  void PrintNews();
  // The growth of the log, then a text that does not belong to it.
  void PrintText(std::string_view held_text);
  // A text of the program's own, UTF-8 with LF, such as a page of help.
  void PrintPage(std::string_view utf8);
  // A line on standard error, UTF-8, its control characters shown. All that was printed ahead of it is flushed first.
  void PrintMessage(std::string_view utf8);

  // Standard output could not be written, and not because its reader has gone: whoever closes a pipe has seen enough.
  bool write_failed() const { return write_failed_; }

 private:
  void WritePiece(std::string_view piece);
  void Write(std::string_view text);
  void Flush();
  void NoteFailure();

  std::FILE* out_;
  std::FILE* err_;
  const OutputLog* log_ = nullptr;
  std::size_t printed_ = 0;
  LogForm form_ = LogForm::kText;
  bool to_terminal_;
  bool closed_ = false;
  bool write_failed_ = false;
};

}  // namespace tessara
