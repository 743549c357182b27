#pragma once

#include "window/widgets/view_form.h"

// The quick tips: up to seven labels, each with its page.

namespace tessara {

class HelpBrowser;
class QtPlatform;

class Tips : public ViewForm {
  Q_OBJECT

 public:
  Tips(QtPlatform& platform, Session& session, QWidget* parent = nullptr);

  void Perform(WidgetAction action) override;

 private:
  HelpBrowser* browser_ = nullptr;
};

}  // namespace tessara
