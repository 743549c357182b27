#pragma once

#include <QDialog>

// The About box: mark, name, version and licence.

namespace tessara {

class AboutBox : public QDialog {
  Q_OBJECT

 public:
  explicit AboutBox(QWidget* parent);
};

}  // namespace tessara
