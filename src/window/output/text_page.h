#pragma once

#include <QPlainTextEdit>

class QLabel;
class QMimeData;

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

  // Puts a text on the sheet, from its beginning.
  void ShowText(const QString& text);
  // Adds to the end of the text shown, and brings the addition into view.
  void LengthenText(const QString& addition);
  // Puts a text in the place of the other as one step that the user can take back.
  void ReplaceText(const QString& text);
  // The text as it stands, with no-break spaces, lines ended by LF.
  QString Text() const;

 signals:
  void ZoomChanged(int percent);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  // Text, and the same in a fixed pitch for programs that take formatted text: columns stay aligned there.
  QMimeData* createMimeDataFromSelection() const override;
  // The usual entries of a text, and behind them the actions that the sheet has been given.
  void contextMenuEvent(QContextMenuEvent* event) override;
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
