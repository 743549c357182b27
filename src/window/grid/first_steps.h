#pragma once

#include <QFrame>

#include "platform/path.h"

class QMenu;
class QPushButton;

namespace tessara {

// Stands in the middle of a grid that holds nothing yet, and offers where to begin. It never takes the keyboard by
// itself: who types, types into the grid.
class FirstSteps : public QFrame {
  Q_OBJECT

 public:
  FirstSteps(Path samples, QWidget* parent);

  // The buttons in the order of the Tab key.
  QList<QPushButton*> Buttons() const { return buttons_; }

 signals:
  void SampleChosen(const Path& file);
  void CommandAsked(int id);
  void HelpAsked(const QString& page);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QPushButton* AddOffer(const char* name, const QString& caption, const char* icon, const QString& tip);
  void FillSamples(QMenu* menu);
  void LookAtClipboard();

  Path samples_;
  QList<QPushButton*> buttons_;
  QPushButton* paste_ = nullptr;
};

}  // namespace tessara
