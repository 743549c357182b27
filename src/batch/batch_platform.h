#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "batch/log_stream.h"
#include "platform/platform.h"

// The outside as a script sees it: dialogs are answered as the command implies, message boxes go to standard error.

namespace tessara {

// What the command at hand implies. Answers to dialogs serve once.
struct ImpliedAnswers {
  std::optional<Path> print_path;
  Answer question = Answer::kYes;
};

class BatchPlatform : public Platform {
 public:
  BatchPlatform(LogStream& stream, std::optional<std::uint64_t> seed) : stream_(stream), seed_(seed) {}

  ImpliedAnswers answers;
  bool refused = false;  // a box of refusal or warning has been shown

  // Paths are words of the commands: no command asks for one.
  std::optional<ChosenFile> AskOpenFile(const FileDialog&) override { return std::nullopt; }
  std::optional<ChosenFile> AskSaveFile(const FileDialog&) override { return std::nullopt; }
  std::optional<PrintChoice> AskPrint(const PrintDialog& dialog) override;
  Answer ShowMessage(const MessageBox& box) override;
  // Writes the sheets to the path of the command: PDF when it ends in .pdf, else text with form feeds between them.
  bool Print(const PrintJob& job) override;
  bool Preview(const PrintJob&) override { return false; }
  bool WritePdf(const PrintJob& job, const Path& path) override;

  void ShowWaitCursor() override {}
  void HideWaitCursor() override {}
  void SetStatusPane(int, const std::string&) override {}
  void ShowNote(const std::string& text) override;
  void ShowProgress(double, double, const std::string&) override {}
  bool UpdateProgress(double) override { return true; }
  void HideProgress() override {}
  std::string ClipboardText() override { return clipboard_; }
  void SetClipboard(const ClipboardContent& content) override { clipboard_ = content.text; }
  bool PlaySoundFile(const Path&) override { return false; }
  bool OpenDocument(const std::string&) override { return false; }
  DateTime Now() override;
  std::uint64_t Entropy() override;
  Path ProgramFolder() override;
  Path DocumentsFolder() override;
  void EnterFolder(const Path&) override {}  // the paths of a script are the shell's

 private:
  LogStream& stream_;
  std::optional<std::uint64_t> seed_;
  std::string clipboard_;
};

// Whether the name ends in .pdf, in any case.
bool IsPdfPath(const Path& path);
// Whether this installation can write PDF.
bool CanWritePdf();

}  // namespace tessara
