#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <vector>

#include "shell/palette.h"

// The lines of the palette: icon, caption, where it stands, and at the right its keys.

namespace tessara {

class PaletteModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  // The entries, and the places of those that the list shows.
  void SetEntries(std::vector<PaletteEntry> entries);
  void Show(std::vector<std::size_t> places);
  const std::vector<PaletteEntry>& entries() const { return entries_; }
  // The entry of a line; nullptr for none.
  const PaletteEntry* EntryAt(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<PaletteEntry> entries_;
  std::vector<std::size_t> shown_;
};

class PaletteList : public QListView {
  Q_OBJECT

 public:
  PaletteList(PaletteModel* model, QWidget* parent);

  int LineHeight() const;
  // The current line by so many lines, from one end of the list to the other.
  void Move(int lines);
  void MovePage(int pages);
};

}  // namespace tessara
