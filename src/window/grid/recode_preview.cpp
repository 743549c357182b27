#include "window/grid/recode_preview.h"

#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>
#include <algorithm>

#include "data/recode/recode_refusal.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostCells = 5;
constexpr std::size_t kMostRecords = 20000;  // a look at them takes no time that anybody notices
constexpr std::size_t kMostOfAName = 40;

QString Count(std::size_t count) { return QLocale(QLocale::English, QLocale::UnitedStates).toString(count); }

QString Name(const DataSet& data, std::size_t column) {
  return ToQt(data.VariableName(column).substr(0, kMostOfAName)).simplified();
}

bool TakesTwo(const RecodePanel& panel) {
  return panel.mode == RecodeMode::kCombine || panel.mode == RecodeMode::kCompareDates;
}

// What the columns of the table are about.
QStringList Headings(const RecodePanel& panel, const DataSet& data) {
  QStringList headings{"Record"};
  if (TakesTwo(panel)) {
    headings += {Name(data, panel.CombineColumn1), Name(data, panel.CombineColumn2)};
  } else {
    headings += Name(data, panel.RecodeColumn);
  }
  const std::string* name = NewNameBox(panel);
  headings += name ? ToQt(name->substr(0, kMostOfAName)).simplified() : QString("New value");
  return headings;
}

QString Caption(const RecodePanel& panel, const DataSet& data, const RecodePreview& preview) {
  if (const auto refusal = RecodeRefusal(panel)) return ToQt(*refusal);
  if (preview.cells.empty()) {
    return preview.looked_at < data.RecordCount
               ? "No cell changes among the first " + Count(preview.looked_at) + " records"
               : QString("No cell changes");
  }
  if (panel.mode == RecodeMode::kReplace) return "The first cells that change";
  if (RunGoesOn(panel, data)) return "Goes on in the variable " + Name(data, data.VariableCount);
  return "A new variable, its first cells";
}

}  // namespace

RecodePreviewTable::RecodePreviewTable(QWidget* parent)
    : QWidget(parent), caption_(new QLabel(this)), table_(new QTableWidget(this)) {
  caption_->setObjectName("PreviewCaption");
  caption_->setTextFormat(Qt::PlainText);
  table_->setObjectName("Preview");
  table_->setAccessibleName("The first cells that change");
  FocusOutline::AskFor(table_);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionMode(QAbstractItemView::NoSelection);
  table_->setFocusPolicy(Qt::NoFocus);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(caption_);
  layout->addWidget(table_);
  FollowFont(table_, [this] { Measure(); });
}

void RecodePreviewTable::Measure() {
  const int row = table_->fontMetrics().height() + table_->fontMetrics().height() / 3;
  table_->verticalHeader()->setMinimumSectionSize(row);
  table_->verticalHeader()->setDefaultSectionSize(row);
  const int heading = table_->horizontalHeader()->sizeHint().height();
  table_->setFixedHeight(heading + row * static_cast<int>(kMostCells) + 2 * table_->frameWidth());
}

void RecodePreviewTable::ShowPanel(const RecodePanel& panel, const DataSet& shown) {
  const RecodePreview preview = PreviewRecode(panel, shown, kMostCells, kMostRecords);
  caption_->setText(Caption(panel, shown, preview));
  ShowCells(panel, shown, preview);
}

void RecodePreviewTable::ShowCells(const RecodePanel& panel, const DataSet& shown, const RecodePreview& preview) {
  const QStringList headings = Headings(panel, shown);
  table_->setColumnCount(static_cast<int>(headings.size()));
  table_->setHorizontalHeaderLabels(headings);
  table_->setRowCount(static_cast<int>(preview.cells.size()));
  for (std::size_t i = 0; i < preview.cells.size(); ++i) {
    const PreviewedCell& cell = preview.cells[i];
    QStringList texts{Count(cell.record), ToQt(cell.source)};
    if (TakesTwo(panel)) texts += ToQt(cell.other_source);
    texts += ToQt(cell.new_text);
    for (int column = 0; column < texts.size(); ++column) {
      table_->setItem(static_cast<int>(i), column, new QTableWidgetItem(texts[column]));
    }
  }
}

}  // namespace tessara
