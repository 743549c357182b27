#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

// The progress display of long work: a caption, a bar and "Cancel". It stays on top, and no other window gets input
// while it shows.

namespace tessara {

class ProgressForm : public QDialog {
  Q_OBJECT

 public:
  explicit ProgressForm(QWidget* parent);

  void Open(double minimum, double maximum, const QString& caption);
  // Shows the value and lets the windows paint. False once Cancel has been pressed.
  bool Step(double value);

  void reject() override { cancelled_ = true; }

 private:
  QLabel* caption_ = nullptr;
  QProgressBar* bar_ = nullptr;
  double minimum_ = 0;
  double maximum_ = 0;
  bool cancelled_ = false;
};

}  // namespace tessara
