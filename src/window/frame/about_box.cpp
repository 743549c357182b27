#include "window/frame/about_box.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kLogoSize = 72;

}  // namespace

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle(tr("About Tessara"));

  auto* name = new QLabel("Tessara", this);
  QFont font = name->font();
  font.setPointSizeF(font.pointSizeF() * 1.8);
  font.setWeight(QFont::DemiBold);
  name->setFont(font);
  auto* text = new QLabel(tr("Version %1\n\nStatistics for students, teachers and researchers.\n"
                             "Your data stay on your machine.\n\n"
                             "Free software under the GNU General Public License,\nversion 3 or later.")
                              .arg(TESSARA_VERSION),
                          this);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* texts = new QVBoxLayout;
  texts->addWidget(name);
  texts->addWidget(text);

  auto* top = new QHBoxLayout;
  top->setSpacing(fontMetrics().height());
  top->addWidget(new LogoLabel(kLogoSize, this), 0, Qt::AlignTop);
  top->addLayout(texts);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(fontMetrics().height());
  layout->addLayout(top);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace tessara
