#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <cstdint>
#include <vector>

#include "data/data_set.h"
#include "window/widgets/pending_changes.h"

// Lists of variables as models on the data set: twenty thousand variables cost a list no more than the rows it shows.

namespace tessara {

enum VariableRole { kColumnRole = Qt::UserRole, kLabelRole };

// Every variable in column order, "None" first.
class AllVariablesModel : public QAbstractListModel {
  Q_OBJECT

 public:
  explicit AllVariablesModel(const DataSet& data, QObject* parent = nullptr);

  // Looks at the data set again when it has changed.
  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  void Tell(const ChangeNote& note);

  const DataSet& data_;
  int count_ = 0;
  PendingChanges changes_;
};

// The variables whose name or label holds the typed text; "None" stands in the unfiltered list only.
class VariableFilter : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;
  void SetTyped(const QString& typed);

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  QString typed_;
};

// The variables that a list of the panel has been given.
class ChosenVariablesModel : public QAbstractListModel {
  Q_OBJECT

 public:
  ChosenVariablesModel(const DataSet& data, const std::vector<std::size_t>& columns, QObject* parent = nullptr);

  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const DataSet& data_;
  const std::vector<std::size_t>& columns_;
  std::vector<std::size_t> shown_;
  std::uint64_t revision_ = 0;
};

// Paints the name and, where there is room, the label behind it in a quieter colour.
class VariableDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

// A list of variables with extended selection, from which and onto which variables can be dragged. An empty one shows
// its hint.
class VariableListView : public QListView {
  Q_OBJECT

 public:
  explicit VariableListView(QWidget* parent = nullptr);

  void SetHint(const QString& hint);
  // The selected rows in list order, from 0.
  std::vector<std::size_t> SelectedPlaces() const;
  // Their column numbers.
  std::vector<std::size_t> SelectedColumns() const;
  void ClearSelection();

  void keyboardSearch(const QString& search) override;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 signals:
  void SelectionChanged();
  void EnterPressed();
  void DeletePressed();
  void Typed(const QString& text);
  void DroppedFrom(VariableListView* source);

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void startDrag(Qt::DropActions actions) override;

 private:
  QString hint_;
};

// The list that a drag comes from, when it comes from one and not from the given one; nullptr otherwise.
VariableListView* SourceOfDrag(const QDropEvent* event, const QObject* target);

}  // namespace tessara
