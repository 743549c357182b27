#pragma once

#include <QFrame>
#include <QPointer>
#include <functional>

#include "shell/palette_search.h"

class QLabel;
class QLineEdit;
class QModelIndex;

// The command palette: a line to type in over a list of what that finds, at the top of the frame. It goes away when
// something is chosen, with Escape, and when the keyboard goes elsewhere.

namespace tessara {

class PaletteList;
class PaletteModel;

class Palette : public QFrame {
  Q_OBJECT

 public:
  // What it asks of the frame that it lies over.
  struct Frame {
    QWidget* window = nullptr;
    std::function<std::vector<PaletteEntry>()> build;
    std::function<View()> view_in_front;
    std::function<void(const PaletteEntry&)> choose;
  };
  explicit Palette(Frame frame);

  void Open();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  // To the place that belongs to it in the window as it is now.
  void Place();
  void Find(const QString& text);
  void ShowHint();
  bool TakeKey(const QKeyEvent& event);
  void Choose(const QModelIndex& index);
  // The keyboard goes back to where it was.
  void Dismiss();
  void Leave();

  Frame frame_;
  QLineEdit* text_ = nullptr;
  PaletteModel* model_ = nullptr;
  PaletteList* list_ = nullptr;
  QLabel* hint_ = nullptr;
  QPointer<QWidget> focus_before_;
  PaletteHistory history_;
};

}  // namespace tessara
