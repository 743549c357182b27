#include "window/reference/note_list.h"

#include <algorithm>

#include "window/widgets/text.h"

namespace tessara {
namespace {

// A subject on one line, whatever stands in it.
QString Shown(const std::string& subject) {
  if (subject.empty()) return NoteList::tr("(no subject)");
  QString text = ToQt(subject);
  std::replace_if(
      text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(' '));
  return text;
}

}  // namespace

NoteList::NoteList(const Glossary& glossary, QObject* parent) : QAbstractListModel(parent), glossary_(glossary) {}

void NoteList::Refresh() {
  if (shown_ == glossary_.list_revision) return;
  beginResetModel();
  shown_ = glossary_.list_revision;
  rows_ = static_cast<int>(glossary_.List.size());
  endResetModel();
}

// The list may have become shorter while that has still to be told.
bool NoteList::IsThere(int row) const { return row >= 0 && row < static_cast<int>(glossary_.List.size()); }

int NoteList::RowOf(int record) const {
  const auto found = std::ranges::find(glossary_.List, record, &GlossarySubject::record);
  return found == glossary_.List.end() ? -1 : static_cast<int>(found - glossary_.List.begin());
}

int NoteList::RecordOf(int row) const {
  return IsThere(row) ? glossary_.List[static_cast<std::size_t>(row)].record : 0;
}

int NoteList::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

QVariant NoteList::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !IsThere(index.row())) return {};
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  return Shown(glossary_.List[static_cast<std::size_t>(index.row())].subject);
}

}  // namespace tessara
