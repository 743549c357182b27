#include "batch/log_stream.h"

#include <algorithm>
#include <cerrno>
#include <string>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

#include "batch/visible_text.h"

namespace tessara {
namespace {

// A log of any length is converted in pieces.
constexpr std::size_t kPiece = std::size_t{1} << 16;

bool IsTerminal(std::FILE* file) {
#if defined(_WIN32)
  return _isatty(_fileno(file)) != 0;
#else
  return ::isatty(::fileno(file)) != 0;
#endif
}

// The length of the next piece, which does not part a CR from its LF.
std::size_t PieceLength(std::string_view text) {
  const std::size_t length = std::min(text.size(), kPiece);
  const bool parts_line_end = length < text.size() && text[length - 1] == '\r';
  return parts_line_end ? length + 1 : length;
}

}  // namespace

LogStream::LogStream(std::FILE* out, std::FILE* err) : out_(out), err_(err), to_terminal_(IsTerminal(out)) {}

void LogStream::NoteFailure() {
  closed_ = true;
  write_failed_ = errno != EPIPE;
}

void LogStream::Write(std::string_view text) {
  if (closed_) return;
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), out_) != text.size()) NoteFailure();
}

void LogStream::Flush() {
  if (closed_) return;
  errno = 0;
  if (std::fflush(out_) != 0) NoteFailure();
}

void LogStream::WritePiece(std::string_view piece) {
  if (form_ == LogForm::kBytes) return Write(piece);
  const std::string text = TerminalText(piece);
  Write(to_terminal_ ? WithVisibleControls(text) : text);
}

void LogStream::PrintNews() {
  if (!log_) return;
  const std::string_view text = log_->OutputLogText;
  if (text.size() < printed_) printed_ = 0;  // the log has been replaced
  if (printed_ == text.size()) return;
  while (printed_ < text.size()) {
    const std::string_view rest = text.substr(printed_);
    const std::string_view piece = rest.substr(0, PieceLength(rest));
    WritePiece(piece);
    printed_ += piece.size();  // behind it: a piece that could not be converted is still to be printed
  }
  Flush();
}

void LogStream::PrintText(std::string_view held_text) {
  PrintNews();
  if (held_text.empty()) return;
  while (!held_text.empty()) {
    const std::string_view piece = held_text.substr(0, PieceLength(held_text));
    WritePiece(piece);
    held_text.remove_prefix(piece.size());
  }
  Flush();
}

void LogStream::PrintPage(std::string_view utf8) {
  Write(utf8);
  Flush();
}

void LogStream::PrintMessage(std::string_view utf8) {
  PrintNews();
  const std::string line = WithVisibleControls(utf8) + "\n";
  std::fwrite(line.data(), 1, line.size(), err_);
  std::fflush(err_);
}

}  // namespace tessara
