#include "platform/scripted_platform.h"

#include <algorithm>

namespace tessara {
namespace {

template <typename T>
std::optional<T> Take(std::deque<std::optional<T>>& answers) {
  if (answers.empty()) return std::nullopt;
  std::optional<T> answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace

std::optional<ChosenFile> ScriptedPlatform::AskOpenFile(const FileDialog& dialog) {
  open_dialogs.push_back(dialog);
  return Take(open_answers);
}

std::optional<ChosenFile> ScriptedPlatform::AskSaveFile(const FileDialog& dialog) {
  save_dialogs.push_back(dialog);
  return Take(save_answers);
}

std::optional<PrintChoice> ScriptedPlatform::AskPrint(const PrintDialog& dialog) {
  print_dialogs.push_back(dialog);
  return Take(print_answers);
}

Answer ScriptedPlatform::ShowMessage(const MessageBox& box) {
  messages.push_back(box);
  if (message_answers.empty()) return box.buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel;
  const Answer answer = message_answers.front();
  message_answers.pop_front();
  return answer;
}

bool ScriptedPlatform::Print(const PrintJob& job) {
  if (!printer_works) return false;
  std::vector<std::string> texts;
  for (const Sheet& sheet : job.sheets) texts.push_back(sheet.text);
  printed.push_back(std::move(texts));
  print_jobs.push_back(job);
  return true;
}

bool ScriptedPlatform::Preview(const PrintJob& job) {
  if (printer_works) previews.push_back(job);
  return printer_works;
}

bool ScriptedPlatform::WritePdf(const PrintJob& job, const Path& path) {
  if (printer_works) pdf_files.emplace_back(path, job);
  return printer_works;
}

void ScriptedPlatform::ShowWaitCursor() { most_wait_cursors = std::max(most_wait_cursors, ++wait_cursors); }
void ScriptedPlatform::HideWaitCursor() { --wait_cursors; }

void ScriptedPlatform::SetStatusPane(int pane, const std::string& text) { panes[pane] = text; }
void ScriptedPlatform::ShowNote(const std::string& text) { notes.push_back(text); }

void ScriptedPlatform::ShowProgress(double minimum, double maximum, const std::string& caption) {
  progress.push_back({minimum, maximum, caption, 0, false});
}

bool ScriptedPlatform::UpdateProgress(double value) {
  if (!progress.empty()) progress.back().last_value = value;
  return !cancel_progress_at || value < *cancel_progress_at;
}

void ScriptedPlatform::HideProgress() {
  if (!progress.empty()) progress.back().hidden = true;
}

std::string ScriptedPlatform::ClipboardText() { return clipboard; }

void ScriptedPlatform::SetClipboard(const ClipboardContent& content) {
  clipboard = content.text;
  clipboard_html = content.html;
}

bool ScriptedPlatform::PlaySoundFile(const Path& path) {
  sounds.push_back(path);
  return sound_works;
}

bool ScriptedPlatform::OpenDocument(const std::string& address) {
  documents.push_back(address);
  return documents_open;
}

DateTime ScriptedPlatform::Now() { return now; }
std::uint64_t ScriptedPlatform::Entropy() { return entropy; }
Path ScriptedPlatform::ProgramFolder() { return program_folder; }
Path ScriptedPlatform::DocumentsFolder() { return documents_folder; }

void ScriptedPlatform::EnterFolder(const Path& folder) { entered_folders.push_back(folder); }

}  // namespace tessara
