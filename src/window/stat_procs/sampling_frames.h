#pragma once

#include <QGroupBox>
#include <QWidget>

#include "procedures/panel.h"

namespace tessara {

// The frames "Random Sample" and "Repeated Random Sampling", of which one is shown at a time: what the procedure does
// and the sizes it asks for.
class SamplingFrames : public QWidget {
  Q_OBJECT

 public:
  explicit SamplingFrames(QWidget* parent = nullptr);

  void ShowFrame(Procedure procedure);

 private:
  QGroupBox* random_;
  QGroupBox* repeated_;
};

}  // namespace tessara
