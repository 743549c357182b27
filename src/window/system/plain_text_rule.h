#pragma once

#include <QObject>

class QPoint;
class QWidget;

// Text of files is plain text wherever it is shown. Labels and tips guess whether a text is HTML, and HTML may load
// pictures from anywhere; while this rule stands, they do not guess. A label that is meant to be rich says so itself.

namespace tessara {

class PlainTextRule : public QObject {
 public:
  // Holds in the whole application until it goes.
  explicit PlainTextRule(QObject* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

// A tip whose words stand as they are, whatever they look like.
QString PlainTip(const QString& text);

}  // namespace tessara
