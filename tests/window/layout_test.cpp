#include <QLayout>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>

#include "window/widgets/elided_label.h"
#include "window_fixture.h"

namespace tessara {

// Forms with small and large type in the least window: nothing overlaps, nothing is squeezed below what it needs, and
// the buttons that run and calculate are in sight.
class LayoutTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  QFont font_;
  WindowFixture& window() { return *window_; }

  void StartWithType(int points) {
    QFont type = font_;
    type.setPointSize(points);
    QApplication::setFont(type);
    window_ = std::make_unique<WindowFixture>();
    window().Start(window().WriteDataFile("scores.dcs", {"AGE", "SEX"}, {{"34", "1"}, {"41", "2"}}));
    window().frame().resize(window().frame().minimumSize());
    Settle();
  }
  static void Settle() {
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
  }

  static QString NameOf(const QWidget* widget) {
    QString name = widget->metaObject()->className();
    for (; widget; widget = widget->parentWidget()) {
      if (!widget->objectName().isEmpty()) return name + " of " + widget->objectName();
    }
    return name;
  }
  static void CollectWidgets(const QLayout* layout, QList<QWidget*>* widgets) {
    for (int i = 0; i < layout->count(); ++i) {
      QLayoutItem* item = layout->itemAt(i);
      if (item->widget() && item->widget()->isVisible()) widgets->append(item->widget());
      if (item->layout()) CollectWidgets(item->layout(), widgets);
    }
  }
  // What the widget must have: a label that wraps needs its lines, one that gives way needs its height alone.
  static QSize Needed(const QWidget* widget) {
    QSize needed = widget->minimumSizeHint().expandedTo(widget->minimumSize()).boundedTo(widget->maximumSize());
    const QSizePolicy policy = widget->sizePolicy();
    if (policy.horizontalPolicy() == QSizePolicy::Ignored) needed.setWidth(0);
    if (policy.verticalPolicy() == QSizePolicy::Ignored) needed.setHeight(0);
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->wordWrap()) needed = {0, label->heightForWidth(label->width())};
    return needed;
  }
  // The first flaw in what is laid out within a widget; empty when there is none.
  static QString FlawIn(QWidget* form) {
    QList<QWidget*> all = form->findChildren<QWidget*>();
    all.prepend(form);
    for (QWidget* parent : all) {
      if (!parent->isVisible() || !parent->layout()) continue;
      QList<QWidget*> laid_out;
      CollectWidgets(parent->layout(), &laid_out);
      for (qsizetype i = 0; i < laid_out.size(); ++i) {
        const QWidget* widget = laid_out[i];
        const QSize needed = Needed(widget);
        if (widget->width() < needed.width() || widget->height() < needed.height()) {
          return QString("%1 has %2 x %3 of %4 x %5")
              .arg(NameOf(widget))
              .arg(widget->width())
              .arg(widget->height())
              .arg(needed.width())
              .arg(needed.height());
        }
        if (!parent->rect().contains(widget->geometry())) return NameOf(widget) + " leaves " + NameOf(parent);
        for (qsizetype other = i + 1; other < laid_out.size(); ++other) {
          if (widget->geometry().intersects(laid_out[other]->geometry())) {
            return NameOf(widget) + " overlaps " + NameOf(laid_out[other]);
          }
        }
      }
    }
    return {};
  }
  // The button as a whole in the frame, and under nothing.
  bool IsWhollyInSight(const char* name) {
    auto* button = window().Find<QWidget>(name);
    const QRect place(button->mapTo(&window().frame(), QPoint()), button->size());
    return button->isVisible() && window().frame().rect().contains(place) &&
           button->visibleRegion().boundingRect() == button->rect();
  }
  void Press(QWidget* view, const QString& name) {
    view->findChild<QAbstractButton*>(name)->click();
    Settle();
  }

 private slots:
  void initTestCase() { font_ = QApplication::font(); }
  void cleanup() {
    window_.reset();
    QApplication::setFont(font_);
  }

  void Types_data() {
    QTest::addColumn<int>("points");
    for (const int points : {9, 11, 16, 22}) QTest::addRow("%d points", points) << points;
  }

  // The largest type is for what is worked with: a page of words alone and the figures of the data may be cut by it.
  void UsualTypes_data() {
    QTest::addColumn<int>("points");
    for (const int points : {9, 11, 16}) QTest::addRow("%d points", points) << points;
  }

  void EveryViewFits_data() { UsualTypes_data(); }
  void EveryViewFits() {
    QFETCH(int, points);
    StartWithType(points);
    auto* workspace = window().Find<QTabWidget>("workspace");
    for (int tab = 0; tab < workspace->count(); ++tab) {
      workspace->setCurrentIndex(tab);
      Settle();
      QVERIFY2(FlawIn(workspace->currentWidget()).isEmpty(),
               qPrintable(workspace->tabText(tab) + ": " + FlawIn(workspace->currentWidget())));
    }
  }

  void EveryFaceOfTheProcedurePanelFits_data() { UsualTypes_data(); }
  void EveryFaceOfTheProcedurePanelFits() {
    QFETCH(int, points);
    StartWithType(points);
    window().ShowView(View::ViewStatProcs);
    auto* view = window().Find<QWidget>("StatProc1");
    const char* options[] = {"Option1", "Option3", "Option4", "Option7", "Option12", "Option18", "Option19", "Reports"};
    for (const char* option : options) {
      view->findChild<QRadioButton*>(option)->click();
      for (int face = 0; face < 5; ++face) {
        if (face == 4 && view->findChild<QWidget*>("Text9")->isVisible()) continue;  // a second press folds it away
        Press(view, QString("Viewbar1(%1)").arg(face));
        QVERIFY2(FlawIn(view).isEmpty(), qPrintable(QString("%1, face %2: ").arg(option).arg(face) + FlawIn(view)));
        QVERIFY(IsWhollyInSight("RunButton"));
      }
    }
  }

  void EveryCalculatorFits_data() { Types_data(); }
  void EveryCalculatorFits() {
    QFETCH(int, points);
    StartWithType(points);
    window().ShowView(View::ViewBrevarum);
    auto* view = window().Find<QWidget>("Brevarum1");
    for (int option = 0; option < 9; ++option) {
      Press(view, QString("Option1(%1)").arg(option));
      for (int samples = 0; samples < 2; ++samples) {
        Press(view, QString("Option2(%1)").arg(samples));
        for (int tab = 2; tab >= 0; --tab) {
          Press(view, QString("Viewbar1(%1)").arg(tab));
          QVERIFY2(FlawIn(view).isEmpty(), qPrintable(QString("%1, tab %2: ").arg(option).arg(tab) + FlawIn(view)));
          QVERIFY(IsWhollyInSight("CalculateButton"));
        }
      }
    }
  }

  void WithRoomTheFacesStandBesideEachOther() {
    StartWithType(11);
    window().frame().resize(1400, 1000);
    window().ShowView(View::ViewStatProcs);
    Settle();
    for (const char* name : {"List1", "Option1", "Text9", "RunButton"}) {
      QVERIFY2(window().Find<QWidget>("StatProc1")->findChild<QWidget*>(name)->isVisible(), name);
    }
    QVERIFY(FlawIn(window().Find<QWidget>("StatProc1")).isEmpty());
    window().ShowView(View::ViewBrevarum);
    Settle();
    QVERIFY(window().Find<QWidget>("Text25")->mapTo(&window().frame(), QPoint()).x() >
            window().Find<QWidget>("T5")->mapTo(&window().frame(), QPoint()).x());
  }

  void ABoxThatTakesTheKeyboardComesIntoSight() {
    StartWithType(22);
    window().ShowView(View::ViewBrevarum);
    auto* view = window().Find<QWidget>("Brevarum1");
    Press(view, "Option1(3)");
    for (const char* name : {"C1R1", "C5R5", "C1R5", "C5R1"}) {
      auto* box = view->findChild<QWidget*>(name);
      box->setFocus();
      Settle();
      QCOMPARE(box->visibleRegion().boundingRect(), box->rect());
    }
  }

  void TheLeastSizeIsNotAboveThatOfTheScreen() {
    StartWithType(11);
    const QSize screen = window().frame().screen()->availableSize();
    const QSize least = window().frame().minimumSize();
    QCOMPARE(least, QSize(9800 / 15, 7400 / 15).boundedTo(screen));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::LayoutTest)
#include "layout_test.moc"
