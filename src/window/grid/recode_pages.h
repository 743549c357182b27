#pragma once

#include <QStackedWidget>
#include <functional>
#include <map>
#include <vector>

#include "shell/session.h"

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tessara {

// The boxes of the recode panel, a page for each mode or for two that share their boxes. They stand by their names in
// the panel of the session, which is filled as one types.
class RecodePages : public QStackedWidget {
  Q_OBJECT

 public:
  RecodePages(Session& session, QWidget* parent);

  // Shows the page of the mode with what the panel holds.
  void ShowPanel();
  // The keyboard goes to the first box of the page.
  void FocusFirst();

  QSize minimumSizeHint() const override;

 signals:
  // Something was typed or chosen.
  void Changed();
  // The button for the first or the second variable of two.
  void VariableAsked(int which);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Box = std::string RecodePanel::*;
  struct BoxWidget {
    QLineEdit* edit = nullptr;
    Box box = nullptr;
  };

  QWidget* BuildRecode();
  QWidget* BuildCompute();
  QWidget* BuildTwoVariables();
  QWidget* BuildTrim();
  QWidget* BuildFind();

  QLabel* AddVariable(QGridLayout* layout, int row, const QString& caption);
  QLabel* AddBox(QGridLayout* layout, int row, const char* name, const QString& caption, Box box);
  QLineEdit* MakeBox(QWidget* page, const char* name, const QString& caption, Box box);
  QCheckBox* AddCheck(QGridLayout* layout, int row, const char* name, const QString& caption, bool RecodePanel::*check);
  template <typename Option>
  void AddOptions(QGridLayout* layout, int row, Option RecodePanel::*option,
                  const std::vector<std::pair<const char*, const char*>>& rows);
  void Edited(const BoxWidget& box);
  bool PressComma(QLineEdit* edit);
  bool PressConstantKey(QLineEdit* edit, const QString& key);
  void ShowOptions();

  Session& session_;
  std::map<RecodeMode, QWidget*> pages_;
  std::vector<BoxWidget> boxes_;
  std::vector<QLabel*> variables_;  // the name of the picked variable, on each page
  std::vector<std::pair<QCheckBox*, bool RecodePanel::*>> checks_;
  std::vector<std::pair<QButtonGroup*, std::function<int()>>> options_;
  std::vector<QWidget*> operators_;    // of Combine alone
  std::vector<QWidget*> replacement_;  // of Replace alone
  QLabel* label21_ = nullptr;
};

}  // namespace tessara
