#pragma once

#include <cstddef>
#include <optional>
#include <string>

class QTextDocument;

// Which part of the sheet the user has changed since it was stored, so that a remark typed into a large log is stored
// without a look at the rest of it.

namespace tessara {

// Bytes of the text that was stored, and what stands in their place.
struct SheetEdit {
  std::size_t at = 0;
  std::size_t removed = 0;
  std::string text;
};

class SheetChanges {
 public:
  // The sheet shows a text of so many bytes, and nothing of it is changed.
  void Begin(const QTextDocument& sheet, std::size_t bytes);
  // The sheet has changed: `added` characters at a position are new.
  void Note(const QTextDocument& sheet, int position, int added);
  // All changes as one. Nothing when places on the sheet do not tell places in the bytes, as where a character takes
  // two of the sheet's; then the whole text must be taken.
  std::optional<SheetEdit> Edit(const QTextDocument& sheet) const;

 private:
  bool places_agree_ = false;
  std::size_t bytes_ = 0;
  // Characters at both ends of the sheet that are as they were.
  int head_ = 0;
  int tail_ = 0;
};

}  // namespace tessara
