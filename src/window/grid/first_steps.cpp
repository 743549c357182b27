#include "window/grid/first_steps.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>

#include "data/sample_files.h"
#include "shell/command_row.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kColumns = 2;

QString Counted(std::size_t count, const char* one, const char* many) {
  return QString("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

// The size stands where a menu shows keys.
QString EntryOf(const SampleFile& sample) {
  QString name = ToQt(sample.name).simplified();
  return name.replace('&', "&&") + '\t' + Counted(sample.records, "record", "records") + QString::fromUtf8(" \u00D7 ") +
         Counted(sample.variables, "variable", "variables");
}

}  // namespace

FirstSteps::FirstSteps(Path samples, QWidget* parent) : QFrame(parent), samples_(std::move(samples)) {
  setObjectName("FirstSteps");
  setAccessibleName(tr("First steps"));
  setFocusPolicy(Qt::NoFocus);
  auto* layout = new QGridLayout(this);
  auto* heading = new QLabel(tr("Where to begin"), this);
  heading->setAlignment(Qt::AlignCenter);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  layout->addWidget(heading, 0, 0, 1, kColumns);

  QPushButton* open_sample =
      AddOffer("OpenSample", tr("Open a sample"), "view-list-details", tr("Data to try things on"));
  auto* menu = new QMenu(open_sample);
  menu->setObjectName("SampleMenu");
  menu->setToolTipsVisible(true);
  open_sample->setMenu(menu);
  connect(menu, &QMenu::aboutToShow, this, [this, menu] { FillSamples(menu); });
  QPushButton* open_file = AddOffer("OpenFile", tr("Open a file"), "document-open", tr("A data file of your own"));
  connect(open_file, &QPushButton::clicked, this, [this] { emit CommandAsked(kOpenCommand); });
  paste_ = AddOffer("PasteData", tr("Paste data"), "edit-paste", {});
  connect(paste_, &QPushButton::clicked, this, [this] { emit CommandAsked(kPasteCommand); });
  QPushButton* read =
      AddOffer("ReadFirstSteps", tr("Read the first steps"), "help-contents", tr("From data to a report"));
  connect(read, &QPushButton::clicked, this, [this] { emit HelpAsked("Index.html#first"); });

  for (int column = 0; column < kColumns; ++column) layout->setColumnStretch(column, 1);
  auto* hint = new QLabel("Open a data file (Ctrl+O) or drop one here", this);
  hint->setObjectName("GridHint");
  hint->setAlignment(Qt::AlignCenter);
  layout->addWidget(hint, layout->rowCount(), 0, 1, kColumns);
  FollowFont(this, [this, layout] {
    const int line = fontMetrics().height();
    layout->setContentsMargins(line * 3 / 2, line, line * 3 / 2, line);
    layout->setSpacing(line / 2);
    for (QPushButton* offer : buttons_) offer->setIconSize({line, line});
  });
  connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &FirstSteps::LookAtClipboard);
}

QPushButton* FirstSteps::AddOffer(const char* name, const QString& caption, const char* icon, const QString& tip) {
  auto* offer = new QPushButton(ThemeIcon(icon), caption, this);
  offer->setObjectName(name);
  offer->setToolTip(tip);
  offer->setAccessibleName(caption);
  offer->setFocusPolicy(Qt::TabFocus);
  offer->setAutoDefault(true);  // Enter presses the one that has the keyboard
  const int place = static_cast<int>(buttons_.size());
  static_cast<QGridLayout*>(layout())->addWidget(offer, 1 + place / kColumns, place % kColumns);
  buttons_ += offer;
  return offer;
}

// Read when it is asked for: files come and go.
void FirstSteps::FillSamples(QMenu* menu) {
  menu->clear();
  for (const SampleFile& sample : SampleFiles(samples_)) {
    QAction* entry = menu->addAction(EntryOf(sample), this, [this, path = sample.path] { emit SampleChosen(path); });
    entry->setToolTip(ToQt(sample.about).simplified());
  }
  if (menu->isEmpty()) menu->addAction(tr("There are no samples in the program folder"))->setEnabled(false);
}

void FirstSteps::LookAtClipboard() {
  if (!isVisible()) return;
  const QMimeData* content = QApplication::clipboard()->mimeData();
  const bool has_text = content && content->hasText();
  paste_->setEnabled(has_text);
  paste_->setToolTip(has_text ? tr("What you copied in another program, from the current cell on")
                              : tr("The clipboard holds no text"));
}

void FirstSteps::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  LookAtClipboard();
}

void FirstSteps::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal corner = fontMetrics().height() / 2.0;
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().color(QPalette::Window));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
}

}  // namespace tessara
