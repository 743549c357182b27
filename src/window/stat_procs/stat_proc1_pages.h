#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QToolButton>
#include <array>
#include <optional>

#include "shell/session.h"

// The smaller faces of the procedure panel: grid statistics, project notes and the example of output.

namespace tessara {

class StatisticsPage : public QGroupBox {
  Q_OBJECT

 public:
  explicit StatisticsPage(QWidget* parent = nullptr);
  void ShowData(const DataSet& data_set);

 private:
  std::array<QLabel*, 7> captions_{};
  std::array<QLabel*, 7> values_{};
  QProgressBar* usage_;
};

class NotesPage : public QGroupBox {
  Q_OBJECT

 public:
  explicit NotesPage(Session& session, QWidget* parent = nullptr);
  void ShowData();
  void FocusFirst() { notes_->setFocus(); }

 signals:
  void Changed();

 private:
  void Store();

  Session& session_;
  QPlainTextEdit* notes_;
};

// An example of the selected procedure's report under a heading that folds it away.
class ExamplePane : public QWidget {
  Q_OBJECT

 public:
  explicit ExamplePane(QWidget* parent = nullptr);

  void ShowPanel(const ProcedurePanel& panel);
  void SetOpen(bool open);
  void FocusFirst() { example_->setFocus(); }
  // The height of the heading, and the least one with a few lines of the example.
  int FoldedHeight() const;
  int LeastHeight() const;

 signals:
  void FoldPressed();

 private:
  QToolButton* fold_;
  QLabel* heading_;
  QPlainTextEdit* example_;
  std::optional<std::pair<Procedure, RegressionKind>> shown_;
};

}  // namespace tessara
