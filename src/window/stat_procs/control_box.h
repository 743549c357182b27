#pragma once

#include <QLineEdit>
#include <QRadioButton>
#include <QWidget>
#include <array>

#include "platform/platform.h"
#include "procedures/panel.h"

class QButtonGroup;
class QGridLayout;

namespace tessara {

class VariableListView;

// The control variable's field, which takes variables that are dropped on it.
class ControlField : public QLineEdit {
  Q_OBJECT

 public:
  explicit ControlField(QWidget* parent = nullptr);

 signals:
  void DroppedFrom(VariableListView* source);
  void DeletePressed();

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

// The relation of the case control: six options of which at most one is selected, four of them with a value.
class ControlBox : public QWidget {
  Q_OBJECT

 public:
  explicit ControlBox(Platform& platform, QWidget* parent = nullptr);

  // Shows a choice. One that differs from the last one shown or stored empties the other value fields.
  void Show(const ControlChoice& choice);
  // Selects none and empties all fields.
  void Clear();
  // The choice as it stands; a value that must be a number and is not one is for the run to refuse.
  ControlChoice Choice();
  void FocusValue();
  // What the choice says behind the variable's name: "greater than 30"; empty without one.
  QString Words() const;

 signals:
  void Changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static constexpr std::size_t kRelations = 6;

  void AddRelation(std::size_t place, QGridLayout* layout);
  void Clicked(std::size_t place);
  void CheckNumber(std::size_t place);
  void CheckLater(std::size_t place);
  void EnableFields();
  void Fill(const ControlChoice& choice);
  // The place of the selected relation; kRelations for none.
  std::size_t Selected() const;

  Platform& platform_;
  QButtonGroup* group_;
  std::array<QRadioButton*, kRelations> options_{};
  std::array<QLineEdit*, kRelations> values_{};  // nullptr where a relation has none
  ControlChoice known_;
  bool selected_at_press_ = false;
};

}  // namespace tessara
