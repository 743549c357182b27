#pragma once

#include <QWidget>

class QKeyEvent;
class QLabel;
class QPdfDocument;
class QPdfView;
class QToolButton;

// A PDF document with its pages one below the other: turn pages, larger, smaller, as wide as there is room.

namespace tessara {

class QtPlatform;

class DocumentView : public QWidget {
  Q_OBJECT

 public:
  explicit DocumentView(QWidget* parent);

  // False when the file cannot be read as a PDF document; what was shown stays then.
  bool Open(const QString& file);
  bool has_document() const { return document_ != nullptr; }
  QPdfDocument* document() const { return document_; }
  int page() const;  // counted from 0
  // Asks for the printer and prints all pages. A printer that refuses gets its box.
  void Print(QtPlatform& platform) const;
  void GoToPage(int page);
  void ZoomStep(int steps);
  void FitWidth();
  // The keys and the wheel of the window's own zoom: 0 for the width of the window.
  Q_INVOKABLE void ZoomBy(int steps);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeBar();
  void ShowPlace();
  bool TakeKey(const QKeyEvent& event);

  QPdfDocument* document_ = nullptr;
  QPdfView* view_ = nullptr;
  QToolButton* previous_ = nullptr;
  QToolButton* next_ = nullptr;
  QLabel* place_ = nullptr;
};

}  // namespace tessara
