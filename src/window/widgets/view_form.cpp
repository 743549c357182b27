#include "window/widgets/view_form.h"

#include <QApplication>
#include <QFontInfo>

namespace tessara {

void ZoomType(QWidget* widget, int percent) {
  QFont type;  // at the usual size the widget has no type of its own
  if (percent != Zoom::kUsual)
    type.setPointSizeF(QFontInfo(QApplication::font()).pointSizeF() * percent / Zoom::kUsual);
  widget->setFont(type);
}

void ViewForm::SetZoom(int percent) { ZoomType(this, percent); }

}  // namespace tessara
