#pragma once

#include <QPlainTextEdit>

class QLabel;

// A fixed-pitch text on a sheet: a page with a margin, in the middle of what room there is.

namespace tessara {

class TextPage : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TextPage(QWidget* parent);

  int zoom() const { return zoom_; }  // percent
  void SetZoom(int percent);

  // What an empty sheet says.
  void SetEmptyText(const QString& text);

  // Puts a text on the sheet. One that begins with the text shown is only lengthened, and its new part comes into view.
  void ShowText(const QString& text);
  void LengthenText(const QString& addition);
  // The text as it stands, with no-break spaces, lines ended by LF.
  QString Text() const;

 signals:
  void ZoomChanged(int percent);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ApplyType();
  void PlaceSheet();
  void ShowEmptyText();
  void PaintDesk();
  void PaintPageBreaks();

  QLabel* empty_text_ = nullptr;
  int zoom_ = 100;
};

}  // namespace tessara
