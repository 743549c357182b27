#include "window/output/sheet_changes.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

#include "window/widgets/text.h"

namespace tessara {
namespace {

// The document ends in a separator that is no part of its text.
int CharactersOf(const QTextDocument& sheet) { return sheet.characterCount() - 1; }

// Line ends ahead of a position. In the bytes each takes one more than on the sheet.
int LineEndsBefore(const QTextDocument& sheet, int position) { return sheet.findBlock(position).blockNumber(); }

QString TextBetween(const QTextDocument& sheet, int from, int to) {
  QTextCursor part(const_cast<QTextDocument*>(&sheet));  // a cursor that only reads
  part.setPosition(from);
  part.setPosition(to, QTextCursor::KeepAnchor);
  QString text = part.selectedText();
  text.replace(QChar::ParagraphSeparator, '\n');
  text.replace(QChar::LineSeparator, '\n');
  return text;
}

}  // namespace

void SheetChanges::Begin(const QTextDocument& sheet, std::size_t bytes) {
  bytes_ = bytes;
  head_ = tail_ = CharactersOf(sheet);
  places_agree_ = static_cast<std::size_t>(CharactersOf(sheet) + sheet.blockCount() - 1) == bytes;
}

void SheetChanges::Note(const QTextDocument& sheet, int position, int added) {
  head_ = std::min(head_, position);
  tail_ = std::min(tail_, std::max(0, CharactersOf(sheet) - position - added));
}

std::optional<SheetEdit> SheetChanges::Edit(const QTextDocument& sheet) const {
  if (!places_agree_) return std::nullopt;
  const int characters = CharactersOf(sheet);
  const int from = std::min(head_, characters);
  const int to = std::max(from, characters - tail_);
  const auto bytes_before = static_cast<std::size_t>(from + LineEndsBefore(sheet, from));
  const auto bytes_behind =
      static_cast<std::size_t>(characters - to + sheet.blockCount() - 1 - LineEndsBefore(sheet, to));
  // What is repeated, "aa" made "aaa", may have been counted to both ends.
  if (bytes_before + bytes_behind > bytes_) return std::nullopt;
  return SheetEdit{bytes_before, bytes_ - bytes_before - bytes_behind, FromQtLines(TextBetween(sheet, from, to))};
}

}  // namespace tessara
