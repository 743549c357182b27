#include "window/output/report_form.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "numerics/number_text.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCharactersOfALine = 52;
constexpr const char* kHint =
    "Create subgroup columns of equal width.  This operation truncates the end of labels to fit the column.";

}  // namespace

ReportForm::ReportForm(std::function<bool(const std::string& typed)> apply, double width, QWidget* parent)
    : QDialog(parent), apply_(std::move(apply)) {
  setObjectName("ReportForm");
  setWindowTitle(tr("Equalize Column Width"));
  auto* hint = new QLabel(kHint, this);
  hint->setObjectName("Label1");
  hint->setWordWrap(true);
  FollowFont(hint, [hint] { hint->setMinimumWidth(hint->fontMetrics().averageCharWidth() * kCharactersOfALine); });
  width_ = new QLineEdit(ToQt(GeneralText(width)), this);
  width_->setObjectName("Text1");
  width_->setMaxLength(20);
  width_->setToolTip(tr("100 for each character"));
  auto* form = new QFormLayout;
  form->addRow(tr("Column &width (100 for each character)"), width_);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* apply_button = buttons->addButton(tr("&Apply"), QDialogButtonBox::AcceptRole);
  apply_button->setObjectName("Command1");
  apply_button->setDefault(true);
  QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
  cancel->setObjectName("Command2");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(hint);
  layout->addLayout(form);
  layout->addStretch(1);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &ReportForm::Apply);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  width_->selectAll();
  width_->setFocus();
}

// A width that cannot be used stays in its box, to be mended.
void ReportForm::Apply() {
  if (apply_(FromQt(width_->text()))) return accept();
  width_->selectAll();
  width_->setFocus();
}

}  // namespace tessara
