#pragma once

#include <QAbstractButton>

namespace tessara {

enum class CalcKeyKind { kDigit, kFunction, kOperator, kEqual, kMemory };

// What is drawn on a key: a text, and one that is raised behind it.
struct CalcKeyFace {
  const char* text;  // UTF-8
  const char* raised = "";
  CalcKeyKind kind = CalcKeyKind::kDigit;
};

// A key of the desk calculator. Its face is drawn, in the colours of the palette and at the size of its type.
class CalcKeyButton : public QAbstractButton {
  Q_OBJECT

 public:
  CalcKeyButton(const CalcKeyFace& face, QWidget* parent);

  // Looks pressed for a moment, as an answer to the keyboard.
  void Flash();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QColor Ground() const;
  QColor Ink() const;
  void PaintFace(QPainter& painter, const QRectF& place) const;

  CalcKeyFace face_;
};

}  // namespace tessara
