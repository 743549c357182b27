#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "numerics/dates.h"

// What the core asks of the outside. Operations never print, exit or touch a widget: they ask here, and a front end (or
// a script of answers in a test) replies. Texts are bytes of the system's code page; paths are the operating system's
// own.

namespace tessara {

using Path = std::filesystem::path;

struct FileDialog {
  std::string title;
  std::string filter;  // "Caption|pattern|Caption|pattern"
  Path initial_folder;
  std::string initial_name;
  std::string default_extension;
  bool overwrite_prompt = false;
};

struct ChosenFile {
  Path path;
  std::string title;  // the file name alone
};

enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Answer { kOk, kCancel, kYes, kNo };

// What a box is for: the icon that a window shows, and whether a batch command counts as refused.
enum class Tone { kInformation, kQuestion, kWarning, kRefusal };

struct MessageBox {
  std::string title;
  std::string text;
  Buttons buttons = Buttons::kOk;
  Tone tone = Tone::kRefusal;
};

struct PrintDialog {
  std::string title;
  bool offer_selection = false;  // preselects the button "Selection"; the whole text is printed all the same
};

struct PrintChoice {
  int copies = 1;
};

class Platform {
 public:
  virtual ~Platform() = default;

  // Dialogs. Nothing means Cancel.
  virtual std::optional<ChosenFile> AskOpenFile(const FileDialog& dialog) = 0;
  virtual std::optional<ChosenFile> AskSaveFile(const FileDialog& dialog) = 0;
  virtual std::optional<PrintChoice> AskPrint(const PrintDialog& dialog) = 0;
  virtual Answer ShowMessage(const MessageBox& box) = 0;

  // Prints each text on a page of its own, in a fixed-pitch font. False when the printer refuses.
  virtual bool PrintPages(const std::vector<std::string>& pages) = 0;

  virtual void ShowWaitCursor() = 0;
  virtual void HideWaitCursor() = 0;
  virtual void SetStatusPane(int pane, const std::string& text) = 0;  // panes 1 to 3

  // The progress form. UpdateProgress yields false once the user has pressed its Cancel button.
  virtual void ShowProgress(double minimum, double maximum, const std::string& caption) = 0;
  virtual bool UpdateProgress(double value) = 0;
  virtual void HideProgress() = 0;

  virtual std::string ClipboardText() = 0;
  virtual void SetClipboardText(const std::string& text) = 0;

  // Starts a sound file without waiting for its end. False when it cannot be played.
  virtual bool PlaySoundFile(const Path& path) = 0;
  // Opens a document or a web address with the program that the user's system has for it.
  virtual bool OpenDocument(const std::string& address) = 0;

  virtual DateTime Now() = 0;
  virtual std::uint64_t Entropy() = 0;

  // The folder that holds the executables, Data, Help and Media; and the user's documents.
  virtual Path ProgramFolder() = 0;
  virtual Path DocumentsFolder() = 0;
};

// The wait cursor for as long as the object lives.
class WaitCursor {
 public:
  explicit WaitCursor(Platform& platform) : platform_(platform) { platform_.ShowWaitCursor(); }
  ~WaitCursor() { platform_.HideWaitCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Platform& platform_;
};

}  // namespace tessara
