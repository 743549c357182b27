#pragma once

#include "window/widgets/view_form.h"

class QShowEvent;
class QUrl;

// The handbook: a browser of its pages, with its history behind the commands that go back and forward, and a bar that
// finds words on a page.

namespace tessara {

class FindBar;
class HelpBrowser;
class QtPlatform;

class Handbook1 : public ViewForm {
  Q_OBJECT

 public:
  Handbook1(QtPlatform& platform, Session& session, QWidget* parent = nullptr);

  void FocusFirst() override;
  WidgetState State() const override;
  void Perform(WidgetAction action) override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  // The first page is loaded when somebody first wants to see one: the start of the program has no time for it.
  void LoadHome();
  // From its top, also when it is on show already.
  void ShowPage(const QString& page);
  void PageChanged(const QUrl& page);

  HelpBrowser* browser_ = nullptr;
  FindBar* find_ = nullptr;
};

}  // namespace tessara
