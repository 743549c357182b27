#pragma once

#include <QPushButton>

namespace tessara {

// The button of what a view is for, in the palette's accent colour.
class AccentButton : public QPushButton {
  Q_OBJECT

 public:
  // The icon by its name in the icon theme, a literal.
  AccentButton(const char* icon, const QString& text, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void TakeColours();

  const char* icon_name_;
};

}  // namespace tessara
