#pragma once

#include <QPointer>
#include <QWidget>

namespace tessara {

// A line around the widget that has the keyboard focus, for those whose own look does not tell: lists, read-only texts,
// coloured buttons.
class FocusOutline : public QWidget {
  Q_OBJECT

 public:
  // Has the focus of all windows watched for as long as the owner lives.
  static void Watch(QObject* owner);
  static void AskFor(QWidget* widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  explicit FocusOutline(QWidget* outlined);
  void Follow();

  QPointer<QWidget> outlined_;
};

}  // namespace tessara
