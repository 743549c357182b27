#include "batch/log_stream.h"

#include <cerrno>
#include <string>

#include "numerics/code_page.h"

namespace tessara {

std::string TerminalText(std::string_view held_text) {
  std::string text = ToUtf8(held_text);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    text[kept++] = text[i];
  }
  text.resize(kept);
  return text;
}

void LogStream::WriteHeld(std::string_view held_text) {
  if (closed_ || held_text.empty()) return;
  std::string converted;
  if (form_ == LogForm::kText) {
    converted = TerminalText(held_text);
    held_text = converted;
  }
  errno = 0;
  if (std::fwrite(held_text.data(), 1, held_text.size(), out_) == held_text.size() && std::fflush(out_) == 0) return;
  closed_ = true;
  write_failed_ = errno != EPIPE;
}

void LogStream::PrintNews() {
  if (!log_) return;
  const std::string_view text = log_->OutputLogText;
  if (text.size() < printed_) printed_ = 0;  // the log has been replaced
  WriteHeld(text.substr(printed_));
  printed_ = text.size();
}

void LogStream::PrintText(std::string_view held_text) {
  PrintNews();
  WriteHeld(held_text);
}

void LogStream::PrintMessage(std::string_view utf8) {
  PrintNews();
  std::fwrite(utf8.data(), 1, utf8.size(), err_);
  std::fputc('\n', err_);
  std::fflush(err_);
}

}  // namespace tessara
