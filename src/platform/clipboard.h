#pragma once

#include <string>

namespace tessara {

struct ClipboardContent {
  std::string text;
  std::string html = {};  // the same for programs that can show more than plain text; empty for none
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;

  virtual std::string ClipboardText() = 0;
  virtual void SetClipboard(const ClipboardContent& content) = 0;

  void SetClipboardText(const std::string& text) { SetClipboard({text}); }
};

}  // namespace tessara
