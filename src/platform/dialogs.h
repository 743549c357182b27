#pragma once

#include <optional>
#include <string>

#include "platform/path.h"

// What a user is asked and told in a dialog.

namespace tessara {

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

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;

  // Nothing means Cancel.
  virtual std::optional<ChosenFile> AskOpenFile(const FileDialog& dialog) = 0;
  virtual std::optional<ChosenFile> AskSaveFile(const FileDialog& dialog) = 0;
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

class Messages {
 public:
  virtual ~Messages() = default;

  virtual Answer ShowMessage(const MessageBox& box) = 0;
};

}  // namespace tessara
