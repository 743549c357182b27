#include "window/frame/palette_list.h"

#include <QKeySequence>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <array>
#include <utility>

#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

// By the kind of what is chosen.
constexpr std::array<const char*, std::variant_size_v<PaletteTarget>> kIcons = {
    "system-run",    "view-statistics", "accessories-calculator", "code-variable",
    "documentation", "help-contents",   "view-list-text"};
constexpr std::array<const char*, std::variant_size_v<PaletteTarget>> kKinds = {
    "Command", "Procedure", "Calculator", "Variable", "Handbook topic", "Help page", "Glossary note"};

QIcon IconOf(const PaletteEntry& entry) {
  const auto* command = std::get_if<CommandTarget>(&entry.target);
  const CommandRow* row = command ? FindCommand(command->id) : nullptr;
  if (row && !row->icon.empty()) return ThemeIcon(std::string(row->icon).c_str());
  return ThemeIcon(kIcons[entry.target.index()]);
}

QString KeysOf(const PaletteEntry& entry) {
  return QKeySequence(ToQt(entry.shortcut), QKeySequence::PortableText).toString(QKeySequence::NativeText);
}

// What a screen reader says of a line.
QString SpokenText(const PaletteEntry& entry) {
  QStringList said = {ToQt(entry.caption), QLatin1String(kKinds[entry.target.index()]), ToQt(entry.where)};
  if (!entry.shortcut.empty()) said += KeysOf(entry);
  if (!entry.enabled) said += PaletteList::tr("not available");
  return said.join(", ");
}

class LineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {0, option.fontMetrics.height() * 17 / 10};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& item, const QModelIndex& index) const override {
    const PaletteEntry* entry = static_cast<const PaletteModel*>(index.model())->EntryAt(index);
    if (!entry) return;
    const bool selected = item.state & QStyle::State_Selected;
    painter->save();
    if (selected) painter->fillRect(item.rect, item.palette.color(QPalette::Active, QPalette::Highlight));
    const QPalette::ColorGroup group = entry->enabled ? QPalette::Active : QPalette::Disabled;
    const QColor text =
        item.palette.color(selected ? QPalette::Active : group, selected ? QPalette::HighlightedText : QPalette::Text);
    PaintLine(*painter, item, *entry, text);
    painter->restore();
  }

 private:
  // From the left the icon and the caption, from the right the keys; where it stands takes what is left between.
  static void PaintLine(QPainter& painter, const QStyleOptionViewItem& item, const PaletteEntry& entry,
                        const QColor& text) {
    const int gap = item.fontMetrics.height() / 2;
    QRect place = item.rect.adjusted(gap, 0, -gap, 0);
    const int side = item.fontMetrics.height();
    IconOf(entry).paint(&painter, QRect(place.left(), place.center().y() - side / 2, side, side), Qt::AlignCenter,
                        entry.enabled ? QIcon::Normal : QIcon::Disabled);
    place.setLeft(place.left() + side + gap);
    painter.setPen(text);
    const QString keys = KeysOf(entry);
    PaintText(painter, item, place, keys, Qt::AlignRight);
    if (!keys.isEmpty()) place.setRight(place.right() - item.fontMetrics.horizontalAdvance(keys) - 2 * gap);
    const int caption = PaintText(painter, item, place, ToQt(entry.caption), Qt::AlignLeft);
    place.setLeft(place.left() + caption + gap);
    QColor weak = text;
    weak.setAlphaF(text.alphaF() * kWeak);
    painter.setPen(weak);
    PaintText(painter, item, place, ToQt(entry.where), Qt::AlignLeft);
  }

  static int PaintText(QPainter& painter, const QStyleOptionViewItem& item, const QRect& place, const QString& text,
                       Qt::Alignment side) {
    if (place.width() <= 0) return 0;
    const QString shown = item.fontMetrics.elidedText(text, Qt::ElideRight, place.width());
    painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip, shown);
    return item.fontMetrics.horizontalAdvance(shown);
  }

  static constexpr float kWeak = 0.75F;
};

}  // namespace

void PaletteModel::SetEntries(std::vector<PaletteEntry> entries) {
  beginResetModel();
  entries_ = std::move(entries);
  shown_.clear();
  endResetModel();
}

void PaletteModel::Show(std::vector<std::size_t> places) {
  beginResetModel();
  shown_ = std::move(places);
  endResetModel();
}

const PaletteEntry* PaletteModel::EntryAt(const QModelIndex& index) const {
  const auto row = static_cast<std::size_t>(index.row());
  return index.isValid() && row < shown_.size() ? &entries_[shown_[row]] : nullptr;
}

int PaletteModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant PaletteModel::data(const QModelIndex& index, int role) const {
  const PaletteEntry* entry = EntryAt(index);
  if (!entry) return {};
  if (role == Qt::DisplayRole) return ToQt(entry->caption);
  if (role == Qt::AccessibleTextRole) return SpokenText(*entry);
  return {};
}

PaletteList::PaletteList(PaletteModel* model, QWidget* parent) : QListView(parent) {
  setObjectName("PaletteList");
  setAccessibleName(tr("What was found"));
  setModel(model);
  setItemDelegate(new LineDelegate(this));
  setUniformItemSizes(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(NoEditTriggers);
  setFocusPolicy(Qt::NoFocus);  // the keyboard stays with what is typed
}

int PaletteList::LineHeight() const { return fontMetrics().height() * 17 / 10; }

void PaletteList::Move(int lines) {
  const int rows = model()->rowCount();
  if (rows == 0) return;
  const int to = (currentIndex().row() + lines % rows + rows) % rows;
  setCurrentIndex(model()->index(to, 0));
}

void PaletteList::MovePage(int pages) {
  const int rows = model()->rowCount();
  if (rows == 0) return;
  const int page = std::max(1, viewport()->height() / LineHeight() - 1);
  setCurrentIndex(model()->index(std::clamp(currentIndex().row() + pages * page, 0, rows - 1), 0));
}

}  // namespace tessara
