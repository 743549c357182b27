#pragma once

#include <QObject>

namespace tessara {

// Tells screen readers of the parts of widgets that have no words of their own and that no form makes itself: the
// corner of a table, the key that empties a field, a chart.
class AccessibleParts : public QObject {
 public:
  // Holds in the whole application until it goes.
  explicit AccessibleParts(QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tessara
