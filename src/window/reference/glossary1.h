#pragma once

#include "window/widgets/view_form.h"

class QLabel;
class QLineEdit;
class QListView;
class QSplitter;

// The Glossary view: the subjects to the left, the note on show to the right.

namespace tessara {

class ElidedLabel;
class HintLabel;
class NoteBox;
class NoteList;

class Glossary1 : public ViewForm {
  Q_OBJECT

 public:
  explicit Glossary1(Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  void StoreWidgets() override;
  void FocusFirst() override;
  WidgetState State() const override;
  void Perform(WidgetAction action) override;
  void SetZoom(int percent) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeHead();
  QWidget* MakeList();
  QWidget* MakeNote();
  void AddField(QWidget* note, const QString& caption, QWidget* box, QLabel* counter);
  QLabel* MakeCounter(const char* name);
  void ApplyType();
  QString TextHint() const;
  void ShowNote();
  void ShowCurrentLine();
  void ShowCounters();
  void ShowCaption();
  void UserEdited();
  void ChooseLine(int row);
  bool TakesListKey(int key);
  // The box of the two that has the focus, or else one with a selection.
  QWidget* BoxAtWork() const;

  NoteList* list_ = nullptr;
  ElidedLabel* caption_ = nullptr;
  HintLabel* state_ = nullptr;
  HintLabel* empty_ = nullptr;
  QListView* List1 = nullptr;
  QLineEdit* Text1 = nullptr;
  NoteBox* Text2 = nullptr;
  QLabel* subject_counter_ = nullptr;
  QLabel* text_counter_ = nullptr;
  std::uint64_t shown_ = 0;    // the revision that shows
  int shown_note_ = 0;         // the record that shows
  std::string shown_subject_;  // what the boxes were given to show
  std::string shown_text_;
  bool showing_ = false;  // the boxes change by the program's hand
  bool has_selection_ = false;
  int zoom_ = 100;
};

}  // namespace tessara
