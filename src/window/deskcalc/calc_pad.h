#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

#include "deskcalc/desk_calculator.h"

class QAction;
class QGridLayout;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListView;
class QMenu;
class QToolButton;

namespace tessara {

class CalcKeyButton;
class QtPlatform;
class TapeModel;
struct CalcKeyFace;
struct Session;

// The desk calculator's window: it floats over the frame, stays there while the user works in it, and keeps tape and
// memories when it is closed.
class CalcPad : public QWidget {
  Q_OBJECT

 public:
  CalcPad(QtPlatform& platform, Session& session, QWidget* frame);

  // Brings the pad to the front, with the keyboard.
  void Open();

 signals:
  void HelpAsked(const QString& page);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Memory {
    CalcMemory cell;
    const char* label;
    const char* caption;
    const char* name;
    int first_image;
  };

  void BuildHead();
  void BuildDisplay();
  QWidget* BuildMemory(const Memory& memory);
  QWidget* BuildKeys();
  void BuildTape();
  void LayOut();
  CalcKeyButton* AddKey(int image, const CalcKeyFace& face, const QString& name, const QString& tip, QWidget* parent);
  void Measure();

  // Runs an operation of the calculator and shows what it leaves.
  void Do(const std::function<void()>& operation);
  void Press(CalcKey key);
  bool PressKeyboard(const QKeyEvent& event);
  bool PressControl(const QKeyEvent& event);
  void ShowCalculator();
  void ShowTape();
  void ToggleTape();
  void Copy();
  void Paste();
  void Transfer(const std::string& number);

  QMenu* NewMenu(const char* name);
  void ShowTapeMenu(const QPoint& place);
  void ShowDisplayMenu(const QPoint& place);

  QtPlatform& platform_;
  Session& session_;
  DeskCalculator& calculator_;
  QWidget* frame_;
  QWidget* pad_;  // all but the tape
  QToolButton* viewbar_ = nullptr;
  QToolButton* menu_button_ = nullptr;
  QLineEdit* display_ = nullptr;
  QListView* tape_ = nullptr;
  TapeModel* tape_model_ = nullptr;
  std::map<CalcMemory, QLabel*> memories_;
  std::map<CalcKey, CalcKeyButton*> keys_;
  bool gave_way_ = false;  // hidden while a box asks
};

}  // namespace tessara
