#include <QAbstractItemView>
#include <QChart>
#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QGraphicsTextItem>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStatusBar>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QToolButton>
#include <cmath>

#include "window/reference/help_pane.h"
#include "window_walk.h"

namespace tessara {
namespace {

// Relative luminance and contrast ratio of the Web Content Accessibility Guidelines 2.1.
double Luminance(QRgb colour) {
  const auto linear = [](int channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}
double Ratio(QRgb one, QRgb other) {
  const double a = Luminance(one), b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// The colour that most of a picture's pixels, or of one of its rows, have.
QRgb MostFrequent(const QImage& image, int first_row, int end_row) {
  QHash<QRgb, int> counts;
  QRgb best = 0;
  for (int y = first_row; y < end_row; ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb colour = image.pixel(x, y) | 0xFF000000;
      if (++counts[colour] > counts.value(best)) best = colour;
    }
  }
  return best;
}

// What stands out most from the ground of a picture, against the worst row of the ground that it stands on: the ground
// may be a run of colours from top to bottom. 0 for a picture of one colour.
double MeasuredContrast(const QImage& image) {
  const QRgb ground = MostFrequent(image, 0, image.height());
  QRgb mark = ground;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb colour = image.pixel(x, y) | 0xFF000000;
      if (Ratio(colour, ground) > Ratio(mark, ground)) mark = colour;
    }
  }
  if (Ratio(mark, ground) < 1.02) return 0;
  double least = Ratio(mark, ground);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (Ratio(image.pixel(x, y), mark) > 1.3) continue;
      const QRgb of_row = MostFrequent(image, y, y + 1);
      if (Ratio(of_row, mark) > 1.3) least = std::min(least, Ratio(mark, of_row));  // else a row of the mark itself
      break;
    }
  }
  return least;
}

constexpr double kText = 4.5;
constexpr double kMark = 3;
constexpr int kScale = 3;  // strokes are thick enough to have their full colour

QPalette Desktop(const QString& name) {
  struct Colours {
    QRgb window, base, button, text, highlight, highlighted_text, link;
  };
  static const QHash<QString, Colours> kDesktops = {
      {"light", {0xEFEFEF, 0xFFFFFF, 0xEFEFEF, 0x000000, 0x308CC6, 0xFFFFFF, 0x0000FF}},
      {"pale", {0xEFF0F1, 0xFCFCFC, 0xFCFCFC, 0x232629, 0x3DAEE9, 0xFCFCFC, 0x2980B9}},
      {"dark", {0x323232, 0x242424, 0x323232, 0xFFFFFF, 0x308CC6, 0xFFFFFF, 0x0000FF}},
      {"deep", {0x2A2E32, 0x1B1E20, 0x31363B, 0xFCFCFC, 0x3DAEE9, 0xFCFCFC, 0x1D99F3}},
  };
  const Colours c = kDesktops.value(name);
  QPalette palette(QColor(c.button), QColor(c.window));
  for (const auto& [role, colour] :
       std::initializer_list<std::pair<QPalette::ColorRole, QRgb>>{{QPalette::Base, c.base},
                                                                   {QPalette::AlternateBase, c.window},
                                                                   {QPalette::WindowText, c.text},
                                                                   {QPalette::Text, c.text},
                                                                   {QPalette::ButtonText, c.text},
                                                                   {QPalette::Highlight, c.highlight},
                                                                   {QPalette::HighlightedText, c.highlighted_text},
                                                                   {QPalette::Link, c.link},
                                                                   {QPalette::LinkVisited, c.link}}) {
    palette.setColor(QPalette::Active, role, QColor(colour));
    palette.setColor(QPalette::Inactive, role, QColor(colour));
  }
  QColor faint(c.text);
  faint.setAlpha(128);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  return palette;
}

QString Named(const QWidget* widget) {
  QString name = widget->metaObject()->className();
  for (; widget; widget = widget->parentWidget()) {
    if (!widget->objectName().isEmpty()) return name + " of " + widget->objectName();
  }
  return name;
}

// A window's picture, enlarged.
QImage PictureOf(QWidget* window) {
  QImage picture(window->size() * kScale, QImage::Format_RGB32);
  picture.setDevicePixelRatio(kScale);
  picture.fill(window->palette().color(QPalette::Window));
  window->render(&picture);
  picture.setDevicePixelRatio(1);
  return picture;
}
QImage PartOf(const QImage& picture, const QWidget* window, const QWidget* widget, const QRect& part) {
  const QRect seen = part & widget->visibleRegion().boundingRect();
  const QPoint corner = widget->mapTo(window, seen.topLeft());
  return picture.copy(QRect(corner * kScale, seen.size() * kScale));
}

// Where a widget shows its words; empty for one that shows none.
QRect PlaceOfWords(QWidget* widget) {
  if (const auto* label = qobject_cast<QLabel*>(widget)) {
    return label->text().trimmed().isEmpty() ? QRect() : label->contentsRect();
  }
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    if (button->text().isEmpty()) return {};
    const auto* tool = qobject_cast<QToolButton*>(button);
    if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull()) return {};
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    if (qobject_cast<QCheckBox*>(button)) {
      return button->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, button);
    }
    if (qobject_cast<QRadioButton*>(button)) {
      return button->style()->subElementRect(QStyle::SE_RadioButtonContents, &option, button);
    }
    return button->rect().adjusted(5, 5, -5, -5);
  }
  if (const auto* box = qobject_cast<QLineEdit*>(widget)) {
    return box->text().isEmpty() && box->placeholderText().isEmpty() ? QRect() : box->rect().adjusted(4, 4, -4, -4);
  }
  return {};
}

}  // namespace

// Contrast of words and marks, measured on the pictures of the real windows.
class ContrastTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  QPalette palette_;
  WindowFixture& window() { return *window_; }

  void Start(const QString& desktop) {
    QApplication::setPalette(Desktop(desktop));
    window_ = std::make_unique<WindowFixture>();
    window().store().Write("Op16", "0");
    const Path file = window().WriteDataFile("people.dcs", {"SEX", "AGE"},
                                             {{"1", "20"}, {"2", "30"}, {"2", "40"}, {"1", "50"}, {"2", "60"}});
    window().WriteFile(window().program_folder() / "Help" / "t0.html",
                       "<html><head><title>First</title></head><body><p>Words and <a href=\"t1.html\">a link</a></p>");
    window().WriteFile(window().program_folder() / "Help" / "UserManual1.html",
                       "<html><body><a href=\"t0.html\">MMMMMMMMMMMM</a></body></html>");
    window().Start(file);
    window().frame().resize(1100, 760);
    SettleEvents();
  }
  void RunFrequencies() {
    window().ShowView(View::ViewStatProcs);
    SelectProcedure(window().session().panel, Procedure::kFrequencies);
    window().session().panel.SelectedVariables = {1};
    window().Trigger(308);
  }

  QStringList faults_;  // of a whole walk, so that a run tells of all
  void TellFaults() { QVERIFY2(faults_.isEmpty(), qPrintable("\n" + faults_.join('\n'))); }
  void Look(double contrast, double least, const QString& what) {
    if (contrast < least) faults_ += what + QString(" has %1").arg(contrast);
  }

  // The words of all that can be seen within a widget, in the picture of its window.
  void LookAtWords(QWidget* root, const QString& where) {
    QWidget* top = root->window();
    const QImage picture = PictureOf(top);
    for (QWidget* widget : root->findChildren<QWidget*>()) {
      if (!widget->isVisible() || !widget->isEnabled()) continue;
      const QRect words = PlaceOfWords(widget) & widget->visibleRegion().boundingRect();
      if (words.width() < 8 || words.height() < 8) continue;
      QImage part;
      auto* button = qobject_cast<QAbstractButton*>(widget);
      if (button && !button->icon().isNull()) {  // the icon would stand in for the words
        const QIcon icon = button->icon();
        button->setIcon({});
        part = PartOf(PictureOf(top), top, widget, words);
        button->setIcon(icon);
      } else {
        part = PartOf(picture, top, widget, words);
      }
      const double contrast = MeasuredContrast(part);
      if (contrast == 0) continue;  // the words stand beside what can be seen
      Look(contrast, kText, where + ": " + Named(widget));
    }
  }

  void LookAtCells(QAbstractItemView* view, const QString& where) {
    if (!view->model() || !view->isVisible() || !view->isEnabled()) return;
    const QImage picture = PictureOf(view->window());
    for (int row = 0; row < std::min(view->model()->rowCount(view->rootIndex()), 3); ++row) {
      const QModelIndex index = view->model()->index(row, 0, view->rootIndex());
      if (index.data().toString().isEmpty() || !(index.flags() & Qt::ItemIsEnabled)) continue;
      const QRect place = view->visualRect(index).adjusted(3, 3, -3, -3);
      if (place.isEmpty()) continue;
      const double contrast = MeasuredContrast(PartOf(picture, view->window(), view->viewport(), place));
      if (contrast == 0) continue;
      Look(contrast, kText, where + ": " + Named(view) + QString(" row %1").arg(row));
    }
  }

 private slots:
  void initTestCase() {
    palette_ = QApplication::palette();
    // The measure itself, against figures that are published or worked out by hand.
    QVERIFY(std::abs(Ratio(qRgb(0, 0, 0), qRgb(255, 255, 255)) - 21) < 1e-9);
    QVERIFY(std::abs(Ratio(qRgb(0x77, 0x77, 0x77), qRgb(255, 255, 255)) - 4.48) < 0.005);
    QVERIFY(std::abs(Ratio(qRgb(255, 0, 0), qRgb(255, 255, 255)) - 3.998) < 0.005);
    QImage sheet(10, 10, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QCOMPARE(MeasuredContrast(sheet), 0.0);
    sheet.setPixel(5, 5, qRgb(0x77, 0x77, 0x77));
    QVERIFY(std::abs(MeasuredContrast(sheet) - 4.48) < 0.005);
  }
  void cleanup() {
    faults_.clear();
    window_.reset();
    QApplication::setPalette(palette_);
  }

  void Desktops_data() {
    QTest::addColumn<QString>("desktop");
    for (const char* name : {"light", "pale", "dark", "deep"}) QTest::newRow(name) << name;
  }

  void ColoursOfThePaletteCanBeRead_data() { Desktops_data(); }
  void ColoursOfThePaletteCanBeRead() {
    QFETCH(QString, desktop);
    Start(desktop);
    const QPalette palette = QApplication::palette();
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Base},
        {QPalette::LinkVisited, QPalette::Base},
        {QPalette::PlaceholderText, QPalette::Base},
    };
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      for (const auto& [text, ground] : pairs) {
        QColor shown = palette.color(group, text);
        const QColor below = palette.color(group, ground);
        const auto mix = [&](int above, int under) {
          return static_cast<int>(std::lround(under + (above - under) * double{shown.alphaF()}));
        };
        shown =
            QColor(mix(shown.red(), below.red()), mix(shown.green(), below.green()), mix(shown.blue(), below.blue()));
        const double contrast = Ratio(shown.rgb(), below.rgb());
        QVERIFY2(contrast >= kText, qPrintable(QString("%1 on %2: %3").arg(shown.name(), below.name()).arg(contrast)));
      }
    }
  }

  void BarsOfEveryStyleCanBeRead_data() {
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<int>("style");
    for (const char* name : {"light", "pale", "dark", "deep"}) {
      for (int style = 0; style < 5; ++style) QTest::addRow("%s %d", name, style) << QString(name) << style;
    }
  }
  void BarsOfEveryStyleCanBeRead() {
    QFETCH(QString, desktop);
    QFETCH(int, style);
    Start(desktop);
    window().Trigger(602);
    window().session().settings.Op6 = style;
    window().frame().ApplyBars();
    SettleEvents();
    LookAtWords(window().Find<QToolBar>("Standard"), "toolbar");
    LookAtWords(window().frame().statusBar(), "status bar");
    LookAtWords(window().Find<QDockWidget>("TaskPanel"), "help pane");
    auto* menus = window().frame().menuBar();
    const QImage picture = PictureOf(&window().frame());
    for (QAction* menu : menus->actions()) {
      if (!menu->isVisible()) continue;
      const QRect place = menus->actionGeometry(menu).adjusted(5, 3, -5, -3);
      const double contrast = MeasuredContrast(PartOf(picture, &window().frame(), menus, place));
      Look(contrast, kText, menu->text());
    }
    for (QToolButton* button : window().Find<QToolBar>("Standard")->findChildren<QToolButton*>()) {
      if (!button->isVisible() || !button->isEnabled() || button->icon().isNull()) continue;
      const double contrast =
          MeasuredContrast(PartOf(picture, &window().frame(), button, button->rect().adjusted(2, 2, -2, -2)));
      Look(contrast, kMark, "icon of " + Named(button) + " " + button->text());
    }
    TellFaults();
  }

  void WordsOfEveryViewCanBeRead_data() { Desktops_data(); }
  void WordsOfEveryViewCanBeRead() {
    QFETCH(QString, desktop);
    Start(desktop);
    RunFrequencies();
    for (const View view : EveryView()) {
      if (!window().frame().view(view)) continue;
      window().ShowView(view);
      SettleEvents();
      const QString where = window().frame().current_view()->objectName();
      LookAtWords(window().frame().current_view(), where);
      for (auto* cells : window().frame().current_view()->findChildren<QAbstractItemView*>()) {
        if (!qobject_cast<QHeaderView*>(cells)) LookAtCells(cells, where);
      }
    }
    auto* tabs = window().Find<QTabWidget>("workspace")->tabBar();
    const QImage picture = PictureOf(&window().frame());
    for (int tab = 0; tab < tabs->count(); ++tab) {
      const int icon = tabs->iconSize().width();
      const QRect place = tabs->tabRect(tab).adjusted(icon + 14, 5, -8, -5);
      const double contrast = MeasuredContrast(PartOf(picture, &window().frame(), tabs, place));
      Look(contrast, kText, tabs->tabText(tab));
    }
    TellFaults();
  }

  void SelectedCellsAndHeadingsOfTheGridCanBeRead_data() { Desktops_data(); }
  void SelectedCellsAndHeadingsOfTheGridCanBeRead() {
    QFETCH(QString, desktop);
    Start(desktop);
    window().ShowView(View::ViewDataGrid);
    SettleEvents();
    auto* grid = window().frame().current_view()->findChild<QAbstractItemView*>("MSFlexGrid1");
    if (!grid) {
      for (auto* view : window().frame().current_view()->findChildren<QAbstractItemView*>()) {
        if (!qobject_cast<QHeaderView*>(view) && view->isVisible()) grid = view;
      }
    }
    QVERIFY(grid);
    window().Trigger(204);
    SettleEvents();
    LookAtCells(grid, "selected");
    const QImage picture = PictureOf(&window().frame());
    for (auto* header : grid->findChildren<QHeaderView*>()) {
      for (int section = 0; section < 2; ++section) {
        const int at = header->sectionViewportPosition(section);
        const int size = header->sectionSize(section);
        const QRect place = header->orientation() == Qt::Horizontal ? QRect(at, 0, size, header->height())
                                                                    : QRect(0, at, header->width(), size);
        const double contrast =
            MeasuredContrast(PartOf(picture, &window().frame(), header->viewport(), place.adjusted(3, 3, -3, -3)));
        Look(contrast, kText, QString("heading %1").arg(section));
      }
    }
    TellFaults();
  }

  void TheTextOfAReportCanBeRead_data() { Desktops_data(); }
  void TheTextOfAReportCanBeRead() {
    QFETCH(QString, desktop);
    Start(desktop);
    RunFrequencies();
    window().ShowView(View::ViewOutput);
    SettleEvents();
    QAbstractScrollArea* text = nullptr;
    for (auto* box : window().frame().current_view()->findChildren<QAbstractScrollArea*>()) {
      const bool is_text = qobject_cast<QPlainTextEdit*>(box) || qobject_cast<QTextEdit*>(box);
      if (is_text && box->isVisible()) text = box;
    }
    QVERIFY(text);
    const double contrast = MeasuredContrast(
        PartOf(PictureOf(&window().frame()), &window().frame(), text->viewport(), text->viewport()->rect()));
    QVERIFY2(contrast >= kText, qPrintable(QString::number(contrast)));
  }

  void LinksOfHelpPagesCanBeReadAlsoAfterAChangeOfThePalette_data() { Desktops_data(); }
  void LinksOfHelpPagesCanBeReadAlsoAfterAChangeOfThePalette() {
    QFETCH(QString, desktop);
    Start(desktop);
    window().Trigger(602);
    SettleEvents();
    auto* browser = window().frame().findChild<HelpPane*>()->findChild<QTextBrowser*>("WebBrowser1");
    const auto look = [&] {
      const QImage picture = PictureOf(&window().frame());
      const double contrast = MeasuredContrast(
          PartOf(picture, &window().frame(), browser->viewport(), QRect(0, 0, 120, 3 * fontHeight(browser))));
      QVERIFY2(contrast >= kText, qPrintable(QString::number(contrast)));
    };
    look();
    const bool is_dark = desktop == "dark" || desktop == "deep";
    QApplication::setPalette(Desktop(is_dark ? "pale" : "deep"));
    SettleEvents();
    look();
    QCOMPARE(browser->source().fileName(), "UserManual1.html");
  }
  static int fontHeight(const QWidget* widget) { return widget->fontMetrics().height(); }

  void TheRunButtonFollowsThePalette() {
    Start("light");
    window().ShowView(View::ViewStatProcs);
    QApplication::setPalette(Desktop("deep"));
    SettleEvents();
    auto* run = window().Find<QAbstractButton>("RunButton");
    const QRect place = run->rect().adjusted(4, 4, -4, -4);
    const double contrast = MeasuredContrast(PartOf(PictureOf(&window().frame()), &window().frame(), run, place));
    QVERIFY2(contrast >= kText, qPrintable(QString::number(contrast)));
    const QRgb ground = MostFrequent(PartOf(PictureOf(&window().frame()), &window().frame(), run, place), 0, 10);
    QVERIFY2(Ratio(ground, qRgb(0x3D, 0xAE, 0xE9)) < 1.6, qPrintable(QColor(ground).name()));
  }

  void WordsOfChartsCanBeRead_data() { Desktops_data(); }
  void WordsOfChartsCanBeRead() {
    QFETCH(QString, desktop);
    Start(desktop);
    RunFrequencies();
    window().ShowView(View::ViewCharts);
    SettleEvents();
    int words = 0;
    for (auto* view : window().frame().current_view()->findChildren<QChartView*>()) {
      if (!view->isVisible()) continue;
      const QRgb ground = view->chart()->isBackgroundVisible() ? view->chart()->backgroundBrush().color().rgb()
                                                               : view->palette().color(QPalette::Base).rgb();
      for (const QGraphicsItem* item : view->scene()->items()) {
        QColor colour;
        if (const auto* text = dynamic_cast<const QGraphicsTextItem*>(item)) {
          if (text->toPlainText().isEmpty()) continue;
          colour = text->defaultTextColor();
        } else if (const auto* simple = dynamic_cast<const QGraphicsSimpleTextItem*>(item)) {
          if (simple->text().isEmpty()) continue;
          colour = simple->brush().color();
        } else {
          continue;
        }
        if (!item->isVisible()) continue;
        ++words;
        QVERIFY2(Ratio(colour.rgb(), ground) >= kText, qPrintable(colour.name() + " on " + QColor(ground).name()));
      }
    }
    QVERIFY(words > 0);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ContrastTest)
#include "contrast_test.moc"
