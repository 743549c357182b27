#pragma once

#include <QLabel>

namespace tessara {

// A label whose words stand back behind the others: in the palette's own text colour, but weaker, so that they can be
// read on a light and on a dark ground alike, whatever a style makes of the colour of hints.
class HintLabel : public QLabel {
  Q_OBJECT

 public:
  // The role of the text that the words stand among.
  HintLabel(QPalette::ColorRole text, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void TakeColour();

  QPalette::ColorRole text_;
};

}  // namespace tessara
