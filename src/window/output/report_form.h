#pragma once

#include <QDialog>
#include <functional>
#include <string>

class QLineEdit;

namespace tessara {

// "Equalize Column Width": one width for all data columns of the summary table.
class ReportForm : public QDialog {
  Q_OBJECT

 public:
  // `apply` gets what was typed, and answers whether it could be used.
  ReportForm(std::function<bool(const std::string& typed)> apply, double width, QWidget* parent);

 private:
  void Apply();

  std::function<bool(const std::string& typed)> apply_;
  QLineEdit* width_;
};

}  // namespace tessara
