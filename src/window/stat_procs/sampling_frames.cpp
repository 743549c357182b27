#include "window/stat_procs/sampling_frames.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace tessara {
namespace {

void AddText(QFormLayout* layout, const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  layout->addRow(label);
}

void AddNumber(QFormLayout* layout, const QString& caption, const char* name) {
  auto* field = new QLineEdit;
  field->setObjectName(name);
  field->setAccessibleName(caption);
  field->setMaxLength(10);
  layout->addRow(caption, field);
}

}  // namespace

SamplingFrames::SamplingFrames(QWidget* parent)
    : QWidget(parent),
      random_(new QGroupBox("Random Sample", this)),
      repeated_(new QGroupBox("Repeated Random Sampling", this)) {
  auto* random = new QFormLayout(random_);
  AddText(
      random,
      "This procedure is used to create a data file that is a randomly selected subset of the current spreadsheet.");
  AddText(random,
          "Enter the number of observations you want to randomly select. Please note that the number of observations "
          "must be less than the total number of records in the current data.");
  AddNumber(random, "Observations", "Text8");

  auto* repeated = new QFormLayout(repeated_);
  AddText(repeated,
          "This procedure creates repeated random samples from the current spreadsheet. For each sample (iteration), "
          "the mean and standard deviation are computed and placed into the spreadsheet. This results in a new data "
          "file where each row contains the summary statistics for one random sample.");
  AddText(repeated,
          "Enter the number of observations you want to randomly select (sample size) and the number of random samples "
          "you wish to create (iterations). Please note that the sample size must be less than the total number of "
          "records in the current data.");
  AddNumber(repeated, "Sample size", "Text15");
  AddNumber(repeated, "Iterations", "Text16");

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(random_);
  layout->addWidget(repeated_);
}

void SamplingFrames::ShowFrame(Procedure procedure) {
  random_->setVisible(procedure == Procedure::kRandomSample);
  repeated_->setVisible(procedure == Procedure::kRepeatedSampling);
}

}  // namespace tessara
