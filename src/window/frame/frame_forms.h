#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "shell/command_row.h"

class QDialog;
class QWidget;

// The dialogs that stand over the frame, one at a time: made when an action asks for them, gone when they are closed.

namespace tessara {

class CalcPad;
class QtPlatform;

class FrameForms : public QObject {
  Q_OBJECT

 public:
  // How a form runs an operation: with all that the frame does around a command.
  using Run = std::function<void(const std::function<void()>&)>;

  FrameForms(QtPlatform& platform, Session& session, Run run, QWidget* frame);

  // Shows the form of an action; false when no form belongs to it.
  bool Show(WidgetAction action);
  // The size of the type in what stays open beside the views, in percent of the usual one.
  void SetZoom(int percent);

 signals:
  // A form's key for help: a page, or a section of one.
  void HelpAsked(const QString& page);
  // The settings of icons and style have changed.
  void AppearanceChanged();

 private:
  QDialog* Make(WidgetAction action);
  void ShowCalculator();
  QDialog* MakeDelimit(bool to_import);
  QDialog* MakeSplit();
  QDialog* MakePageOptions();
  QDialog* MakeColumnWidth();
  QDialog* MakeOptions();

  QtPlatform& platform_;
  Session& session_;
  Run run_;
  QWidget* frame_;
  QPointer<QDialog> form_;
  QPointer<CalcPad> calculator_;  // made when it is first asked for, and kept
  int zoom_ = 100;
};

}  // namespace tessara
