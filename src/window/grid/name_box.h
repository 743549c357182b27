#pragma once

#include <QLineEdit>

namespace tessara {

// Shows the place of the cursor, and takes the name of another one.
class NameBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit NameBox(QWidget* parent = nullptr);

  // The name of the place, which comes back when what the user types is given up.
  void ShowName(const QString& name);
  void Ask();

 signals:
  void Named(const QString& name);
  void GivenUp();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QString name_;
};

}  // namespace tessara
