#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QShortcut;
class QTextEdit;
class QToolButton;

namespace tessara {

// Finds words in a page while they are typed: Ctrl+F shows the bar, F3 and Shift+F3 go on, Escape hides it. The keys
// belong to the widget that holds both.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  FindBar(QTextEdit* page, QWidget* holder);

  void Open();
  void Close();

 private:
  void AddKeys(QWidget* holder);
  QToolButton* AddTool(const char* name, const char* icon, const QString& words);
  // From the match at hand while its words are still being typed, otherwise from behind it. At an end of the page it
  // goes on from the other one.
  void Find(bool backward);
  void FindTyped();
  bool FindFrom(int position, bool backward);

  QTextEdit* page_;
  QLineEdit* words_ = nullptr;
  QLabel* result_ = nullptr;
  QShortcut* escape_ = nullptr;
};

}  // namespace tessara
