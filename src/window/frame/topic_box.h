#pragma once

#include <QWidgetAction>

class QComboBox;
class QStackedWidget;

// The box of the toolbar that command 904 belongs to. In the Handbook view it is a list of the topics, in the Glossary
// view the text to search for.

namespace tessara {

class SearchBox;
struct Session;

class TopicBox : public QWidgetAction {
  Q_OBJECT

 public:
  // Its choice stands in the session when it is triggered.
  TopicBox(Session& session, QWidget* frame);

  // Shows what belongs to the view in front.
  void ShowSession();
  // Takes the keyboard to the text to search for, which is selected as a whole.
  void FocusSearch();

 private:
  void BuildTopics();
  void BuildSearch();
  // The list is filled when it is first seen.
  void FillTopics();

  Session& session_;
  QStackedWidget* box_ = nullptr;
  QComboBox* topics_ = nullptr;
  SearchBox* search_ = nullptr;
};

}  // namespace tessara
