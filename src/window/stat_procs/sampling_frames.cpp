#include "window/stat_procs/sampling_frames.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "shell/command_row.h"
#include "window/widgets/text.h"

namespace tessara {

struct SamplingFrames::Words {
  const char* title;
  const char* heading;
  std::vector<QString> sentences;
  const char* button;
  const char* button_name;
  const char* caption_name;
  const char* bar_name;
  int command;
};

namespace {

constexpr int kBarSteps = 1000;
constexpr int kMostTyped = 20;

QFormLayout* LayoutOf(const QGroupBox* group) { return static_cast<QFormLayout*>(group->layout()); }

QLabel* AddText(QFormLayout* layout, const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  layout->addRow(label);
  return label;
}

}  // namespace

SamplingFrames::SamplingFrames(SamplePanel& samples, QWidget* parent) : QWidget(parent), samples_(samples) {
  frames_[0] = BuildFrame({"Random Sample",
                           "RANDOM SAMPLE",
                           {"This procedure is used to create a data file that is a randomly selected subset of the "
                            "current spreadsheet.",
                            "Enter the number of observations you want to randomly select. Please note that the "
                            "number of observations must be less than the total number of records in the current data.",
                            "Click 'Create Sample' to replace the current data with a random subset."},
                           "Create Sample",
                           "CreateSample",
                           "Label27",
                           "ProgressBar3",
                           kCreateSampleCommand});
  AddField(frames_[0], "Observations", "Text8", &SamplePanel::Text8);
  frames_[1] = BuildFrame({"Repeated Random Sampling",
                           "REPEATED RANDOM SAMPLING",
                           {"This procedure creates repeated random samples from the current spreadsheet. For each "
                            "sample (iteration), the mean and standard deviation are computed and placed into the "
                            "spreadsheet. This results in a new data file where each row contains the summary "
                            "statistics for one random sample.",
                            "Enter the number of observations you want to randomly select (sample size) and the number "
                            "of random samples you wish to create (iterations). Please note that the sample size must "
                            "be less than the total number of records in the current data.",
                            "Click 'Run Iterations' to replace the current data with a sampling distribution."},
                           "Run Iterations",
                           "RunIterations",
                           "Label28",
                           "ProgressBar4",
                           kRunIterationsCommand});
  AddField(frames_[1], "Sample size", "Text15", &SamplePanel::Text15);
  AddField(frames_[1], "Iterations", "Text16", &SamplePanel::Text16);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (Frame& frame : frames_) layout->addWidget(frame.group);
}

SamplingFrames::Frame SamplingFrames::BuildFrame(const Words& words) {
  Frame frame;
  frame.group = new QGroupBox(words.title, this);
  frame.command = words.command;
  auto* layout = new QFormLayout(frame.group);
  QLabel* heading = AddText(layout, words.heading);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  for (const QString& sentence : words.sentences) AddText(layout, sentence);
  AddEnd(frame, words);
  return frame;
}

// The button, and below it how far the work is: both are there from the start, so that nothing moves while it goes on.
void SamplingFrames::AddEnd(Frame& frame, const Words& words) {
  frame.button = new QPushButton(words.button, frame.group);
  frame.button->setObjectName(words.button_name);
  connect(frame.button, &QPushButton::clicked, this, [this, command = words.command] { emit Asked(command); });
  frame.caption = new QLabel(frame.group);
  frame.caption->setObjectName(words.caption_name);
  frame.caption->setTextFormat(Qt::PlainText);
  frame.bar = new QProgressBar(frame.group);
  frame.bar->setObjectName(words.bar_name);
  frame.bar->setAccessibleName("Progress");
  frame.bar->setRange(0, kBarSteps);
  QSizePolicy policy = frame.bar->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  frame.bar->setSizePolicy(policy);
  frame.bar->hide();
  LayoutOf(frame.group)->addRow(frame.button);
  LayoutOf(frame.group)->addRow(frame.caption);
  LayoutOf(frame.group)->addRow(frame.bar);
}

void SamplingFrames::AddField(Frame& frame, const char* caption, const char* name, std::string SamplePanel::*text) {
  constexpr int kRowsOfTheEnd = 3;
  auto* box = new QLineEdit(frame.group);
  box->setObjectName(name);
  box->setAccessibleName(caption);
  box->setMaxLength(kMostTyped);
  connect(box, &QLineEdit::textChanged, this, [this, text](const QString& typed) { samples_.*text = FromQt(typed); });
  connect(box, &QLineEdit::textEdited, frame.caption, &QLabel::clear);
  LayoutOf(frame.group)->insertRow(LayoutOf(frame.group)->rowCount() - kRowsOfTheEnd, caption, box);
  setTabOrder(frame.fields.empty() ? frame.group : static_cast<QWidget*>(frame.fields.back().box), box);
  setTabOrder(box, frame.button);
  frame.fields.push_back({box, text});
}

SamplingFrames::Frame* SamplingFrames::ShownFrame() {
  for (Frame& frame : frames_) {
    if (!frame.group->isHidden()) return &frame;
  }
  return nullptr;
}

void SamplingFrames::ShowFrame(Procedure procedure) {
  frames_[0].group->setVisible(procedure == Procedure::kRandomSample);
  frames_[1].group->setVisible(procedure == Procedure::kRepeatedSampling);
}

void SamplingFrames::ShowSamples(std::size_t record_count) {
  for (Frame& frame : frames_) {
    for (const Field& field : frame.fields) {
      const QString text = ToQt(samples_.*field.text);
      if (field.box->text() != text) field.box->setText(text);
    }
    frame.fields.front().box->setPlaceholderText(QString("of %1 records").arg(record_count));
  }
}

void SamplingFrames::Open(double minimum, double maximum, const QString& caption) {
  Frame* frame = ShownFrame();
  if (!frame) return;
  minimum_ = minimum;
  maximum_ = maximum;
  frame->caption->setText(caption);
  frame->bar->show();
}

// The window paints; what the user types or clicks meanwhile waits.
void SamplingFrames::Step(double value) {
  Frame* frame = ShownFrame();
  if (!frame) return;
  const double range = maximum_ - minimum_;
  if (range > 0) frame->bar->setValue(static_cast<int>(kBarSteps * qBound(0.0, (value - minimum_) / range, 1.0)));
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void SamplingFrames::Close() {
  for (Frame& frame : frames_) frame.bar->hide();
}

// Enter in a box, or on the button, runs what the frame is for, and not the procedure of the panel.
void SamplingFrames::keyPressEvent(QKeyEvent* event) {
  const Frame* frame = ShownFrame();
  if (frame && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    if (!event->isAutoRepeat()) emit Asked(frame->command);
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace tessara
