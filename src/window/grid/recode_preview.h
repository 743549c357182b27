#pragma once

#include <QTableWidget>

#include "data/recode/recode_run.h"

class QLabel;

namespace tessara {

// The first cells that a run of the recode panel would change: what they are made of, and what they become.
class RecodePreviewTable : public QWidget {
  Q_OBJECT

 public:
  explicit RecodePreviewTable(QWidget* parent);

  void ShowPanel(const RecodePanel& panel, const DataSet& shown);

 private:
  void ShowCells(const RecodePanel& panel, const DataSet& shown, const RecodePreview& preview);
  void Measure();

  QLabel* caption_;
  QTableWidget* table_;
};

}  // namespace tessara
