#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <array>
#include <vector>

#include "procedures/panel.h"
#include "procedures/samples/sample_panel.h"
#include "window/system/progress_place.h"

namespace tessara {

// The frames "Random Sample" and "Repeated Random Sampling", of which one is shown at a time: what the procedure does,
// the sizes it asks for, its button, and how far it is.
class SamplingFrames : public QWidget, public ProgressPlace {
  Q_OBJECT

 public:
  explicit SamplingFrames(SamplePanel& samples, QWidget* parent = nullptr);

  void ShowFrame(Procedure procedure);
  // Shows the boxes as they are kept, and of how many records a sample would be.
  void ShowSamples(std::size_t record_count);

  // While it lives, a command of these frames is at work and shows its progress here.
  class AtWork {
   public:
    explicit AtWork(SamplingFrames& frames) : frames_(frames) { frames_.at_work_ = true; }
    ~AtWork() { frames_.at_work_ = false; }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;

   private:
    SamplingFrames& frames_;
  };

  bool Takes() const override { return at_work_; }
  void Open(double minimum, double maximum, const QString& caption) override;
  void Step(double value) override;
  void Close() override;

 signals:
  // A button, or Enter in a box: the command that it stands for.
  void Asked(int command);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Field {
    QLineEdit* box = nullptr;
    std::string SamplePanel::*text = nullptr;
  };
  struct Frame {
    QGroupBox* group = nullptr;
    std::vector<Field> fields;
    QPushButton* button = nullptr;
    QLabel* caption = nullptr;
    QProgressBar* bar = nullptr;
    int command = 0;
  };
  // The names of a frame's widgets and what they say.
  struct Words;

  Frame BuildFrame(const Words& words);
  void AddField(Frame& frame, const char* caption, const char* name, std::string SamplePanel::*text);
  void AddEnd(Frame& frame, const Words& words);
  Frame* ShownFrame();

  SamplePanel& samples_;
  std::array<Frame, 2> frames_;
  bool at_work_ = false;
  double minimum_ = 0;
  double maximum_ = 0;
};

}  // namespace tessara
