#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "batch/log_stream.h"
#include "platform/platform.h"

// The outside as a script sees it: dialogs are answered as the command implies, message boxes go to standard error.

namespace tessara {

class BatchPlatform : public Platform {
 public:
  BatchPlatform(LogStream& stream, std::optional<std::uint64_t> seed) : stream_(stream), seed_(seed) {}

  Answer answer = Answer::kYes;  // to a question, as the command at hand implies
  bool refused = false;          // a box of refusal or warning has been shown

  // Paths are words of the commands: no command asks for one, nor for a printer.
  std::optional<ChosenFile> AskOpenFile(const FileDialog&) override { return std::nullopt; }
  std::optional<ChosenFile> AskSaveFile(const FileDialog&) override { return std::nullopt; }
  std::optional<PrintChoice> AskPrint(const PrintDialog&) override { return std::nullopt; }
  Answer ShowMessage(const MessageBox& box) override;
  bool Print(const PrintJob&) override { return false; }
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

// Whether this installation can write PDF.
bool CanWritePdf();

}  // namespace tessara
