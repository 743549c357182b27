#pragma once

#include "window/widgets/view_form.h"

class QLabel;

// A view that has nothing to work with so far: its place in the workspace, and a page that says what it holds.

namespace tessara {

struct PageText {
  const char* icon;
  QString title;
  QString text;
};

class PageView : public ViewForm {
  Q_OBJECT

 public:
  PageView(Session& session, View view, const PageText& page, QWidget* parent = nullptr);

  QSize minimumSizeHint() const override { return {0, 0}; }  // the text is as wide as the page

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MeasureText();

  QLabel* text_ = nullptr;
};

}  // namespace tessara
