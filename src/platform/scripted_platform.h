#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"

// A platform for tests: it answers from queues and records what it was asked. An empty queue answers with Cancel, and a
// box with OK alone with OK.

namespace tessara {

class ScriptedPlatform : public Platform {
 public:
  // Answers, taken from the front.
  std::deque<std::optional<ChosenFile>> open_answers;
  std::deque<std::optional<ChosenFile>> save_answers;
  std::deque<std::optional<PrintChoice>> print_answers;
  std::deque<Answer> message_answers;
  bool printer_works = true;
  bool sound_works = true;
  bool documents_open = true;
  // The progress form's Cancel button is pressed at this value.
  std::optional<double> cancel_progress_at;
  std::string clipboard;
  std::string clipboard_html;
  DateTime now{{2026, 11, 5}, 15, 7, 9};
  std::uint64_t entropy = 1;
  Path program_folder = "/program";
  Path documents_folder = "/documents";

  // Records, oldest first.
  struct ProgressRun {
    double minimum = 0;
    double maximum = 0;
    std::string caption;
    double last_value = 0;
    bool hidden = false;
  };
  std::vector<FileDialog> open_dialogs;
  std::vector<FileDialog> save_dialogs;
  std::vector<PrintDialog> print_dialogs;
  std::vector<MessageBox> messages;
  std::vector<std::vector<std::string>> printed;  // the texts of the sheets
  std::vector<PrintJob> print_jobs;               // the same jobs whole
  std::vector<PrintJob> previews;
  std::vector<std::pair<Path, PrintJob>> pdf_files;
  std::vector<ProgressRun> progress;
  std::vector<Path> sounds;
  std::vector<std::string> documents;
  std::vector<Path> entered_folders;
  std::string panes[4];  // 1 to 3
  std::vector<std::string> notes;
  int wait_cursors = 0;  // shown now
  int most_wait_cursors = 0;

  std::optional<ChosenFile> AskOpenFile(const FileDialog& dialog) override;
  std::optional<ChosenFile> AskSaveFile(const FileDialog& dialog) override;
  std::optional<PrintChoice> AskPrint(const PrintDialog& dialog) override;
  Answer ShowMessage(const MessageBox& box) override;
  bool Print(const PrintJob& job) override;
  bool Preview(const PrintJob& job) override;
  bool WritePdf(const PrintJob& job, const Path& path) override;
  void ShowWaitCursor() override;
  void HideWaitCursor() override;
  void SetStatusPane(int pane, const std::string& text) override;
  void ShowNote(const std::string& text) override;
  void ShowProgress(double minimum, double maximum, const std::string& caption) override;
  bool UpdateProgress(double value) override;
  void HideProgress() override;
  std::string ClipboardText() override;
  void SetClipboard(const ClipboardContent& content) override;
  bool PlaySoundFile(const Path& path) override;
  bool OpenDocument(const std::string& address) override;
  DateTime Now() override;
  std::uint64_t Entropy() override;
  Path ProgramFolder() override;
  Path DocumentsFolder() override;
  void EnterFolder(const Path& folder) override;
};

}  // namespace tessara
