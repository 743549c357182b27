#include "window/system/progress_form.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessara {
namespace {

constexpr int kBarSteps = 1000;

}  // namespace

ProgressForm::ProgressForm(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::WindowStaysOnTopHint) {
  setObjectName("frmProgress");
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(tr("Please wait"));
  caption_ = new QLabel(this);
  caption_->setObjectName("ProgressCaption");
  bar_ = new QProgressBar(this);
  bar_->setObjectName("ProgressBar");
  bar_->setRange(0, kBarSteps);
  bar_->setAccessibleName(tr("Progress"));
  bar_->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Cancel)->setObjectName("ProgressCancel");
  connect(buttons, &QDialogButtonBox::rejected, this, &ProgressForm::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(caption_);
  layout->addWidget(bar_);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void ProgressForm::Open(double minimum, double maximum, const QString& caption) {
  minimum_ = minimum;
  maximum_ = maximum;
  cancelled_ = false;
  caption_->setText(caption);
  bar_->setValue(0);
  setCursor(Qt::ArrowCursor);
  show();
  raise();
  QApplication::processEvents();
}

bool ProgressForm::Step(double value) {
  const double range = maximum_ - minimum_;
  if (range > 0) bar_->setValue(static_cast<int>(kBarSteps * qBound(0.0, (value - minimum_) / range, 1.0)));
  QApplication::processEvents();
  return !cancelled_;
}

}  // namespace tessara
