#pragma once

#include <QTextBrowser>

#include "platform/platform.h"

class QToolButton;

// Local pages of the Help folder: navigate, back, forward and print. A page that is not there shows a line that says
// so.

namespace tessara {

class QtPlatform;

class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  HelpBrowser(QtPlatform& platform, QWidget* parent);

  // A page of the Help folder, "UserManual1.html" or "UserManual3.html#means".
  void ShowPage(const QString& page);
  void PrintPage();

  QVariant loadResource(int type, const QUrl& name) override;

 signals:
  // A link to a note of the glossary, "glossary:Mean deviation".
  void TermAsked(const QString& subject);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Follow(const QUrl& link);
  QString HelpFolder() const;

  QtPlatform& platform_;
  int anchored_at_ = 0;  // where the page was scrolled to when it was shown
  QColor link_colour_;   // of the links of the page that is shown
};

// The buttons back, forward and print of a browser: Image1(0) to Image1(2).
struct BrowserButtons {
  QWidget* bar = nullptr;
  QToolButton* back = nullptr;
  QToolButton* forward = nullptr;
  QToolButton* print = nullptr;
};
BrowserButtons MakeBrowserButtons(QWidget* parent);
// The same with the actions of one browser.
QWidget* MakeBrowserButtons(HelpBrowser* browser, QWidget* parent);

}  // namespace tessara
