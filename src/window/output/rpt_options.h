#pragma once

#include <QDialog>

#include "presentation/report_page.h"

class QCheckBox;
class QLineEdit;
class QToolBar;

namespace tessara {

// "Format Header/Footers": the header and footer of the printed summary table.
class RptOptions : public QDialog {
  Q_OBJECT

 public:
  RptOptions(ReportPage& page, QWidget* parent);

 signals:
  void HelpAsked(const QString& page);
  // The page has what the dialog shows.
  void Applied();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeKeys();
  QAction* AddKey(QToolBar* keys, const char* name, const char* icon, const QString& tip);
  QWidget* MakeBoxes();
  QWidget* MakeButtons();
  void ShowPage(const ReportPage& page);
  void ShowAlignment();
  void Align(TableAlignment alignment);
  void Append(std::string_view token);
  void Apply();
  TableAlignment& AlignmentInFocus();

  ReportPage& page_;
  ReportPage shown_;  // its texts are those of the boxes
  QLineEdit* header_ = nullptr;
  QLineEdit* footer_ = nullptr;
  QLineEdit* in_focus_ = nullptr;  // the box that had the focus last
  QCheckBox* header_rule_ = nullptr;
  QCheckBox* footer_rule_ = nullptr;
  QAction* left_ = nullptr;
  QAction* centre_ = nullptr;
  QAction* right_ = nullptr;
};

}  // namespace tessara
