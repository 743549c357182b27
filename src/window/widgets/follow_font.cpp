#include "window/widgets/follow_font.h"

#include <QEvent>
#include <QWidget>

namespace tessara {
namespace {

class FontFollower : public QObject {
 public:
  FontFollower(QWidget* widget, std::function<void()> measure) : QObject(widget), measure_(std::move(measure)) {
    widget->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) measure_();
    return QObject::eventFilter(watched, event);
  }

 private:
  std::function<void()> measure_;
};

}  // namespace

void FollowFont(QWidget* widget, std::function<void()> measure) {
  measure();
  new FontFollower(widget, std::move(measure));
}

}  // namespace tessara
