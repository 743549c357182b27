#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QToolBar>

#include "window_walk.h"

namespace tessara {
namespace {

QString Named(const QWidget* widget) {
  QString name = widget->metaObject()->className();
  for (; widget; widget = widget->parentWidget()) {
    if (!widget->objectName().isEmpty()) return name + " of " + widget->objectName();
  }
  return name;
}

// Whether the keyboard comes to a widget by Tab.
bool TakesTab(const QWidget* widget) {
  return (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() && widget->isEnabled() &&
         !widget->focusProxy() && !widget->isWindow();
}

QChar AccessLetter(const QString& text) {
  QString plain = text;
  plain.replace("&&", "");
  const qsizetype mark = plain.indexOf('&');
  return mark < 0 || mark + 1 >= plain.size() ? QChar() : plain[mark + 1].toLower();
}

}  // namespace

// What screen readers and users without a mouse need: names, roles, keys of their own, and room for
// large type.
class AccessibleControlsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  QFont font_;
  WindowFixture& window() { return *window_; }

  void Start() {
    window_ = std::make_unique<WindowFixture>();
    window().store().Write("Op16", "0");
    window().WriteFile(window().program_folder() / "Help" / "t0.html",
                       "<html><head><title>First</title></head><body><p>Words</p></body></html>");
    window().WriteFile(window().program_folder() / "Help" / "t1.html",
                       "<html><head><title>Second</title></head><body><p>Words</p></body></html>");
    window().Start(window().WriteDataFile("people.dcs", {"SEX", "AGE"}, {{"1", "20"}, {"2", "30"}, {"2", "40"}}));
    window().frame().resize(1000, 760);
    window().Trigger(602);
    SettleEvents();
  }

  QStringList faults_;  // of the whole walk, so that a run tells of all
  void Fault(const QString& fault) {
    if (!faults_.contains(fault)) faults_ += fault;
  }
  void TellFaults() { QVERIFY2(faults_.isEmpty(), qPrintable("\n" + faults_.join('\n'))); }

  void LookAtNames(QWidget* root) {
    QList<QWidget*> all = root->findChildren<QWidget*>();
    for (QWidget* widget : all) {
      const bool is_control = TakesTab(widget) || (widget->isVisible() && qobject_cast<QAbstractButton*>(widget));
      if (!is_control || widget->objectName().startsWith("qt_")) continue;
      QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
      QVERIFY2(face, qPrintable(Named(widget)));
      if (face->text(QAccessible::Name).trimmed().isEmpty()) Fault("no name: " + Named(widget));
      const QAccessible::Role role = face->role();
      if (role == QAccessible::NoRole || role == QAccessible::Client) Fault("no role: " + Named(widget));
    }
  }

  void LookAtLetters(QWidget* form, const QString& name) {
    QHash<QChar, QString> letters;
    const auto add = [&](const QString& text, const QWidget* widget) {
      const QChar letter = AccessLetter(text);
      if (letter.isNull()) return;
      if (letters.contains(letter)) {
        Fault(QString("%1: Alt+%2 is that of %3 and of %4").arg(name, letter, letters.value(letter), Named(widget)));
      }
      letters[letter] = Named(widget);
    };
    for (QWidget* widget : form->findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      if (const auto* button = qobject_cast<QAbstractButton*>(widget)) add(button->text(), button);
      if (const auto* group = qobject_cast<QGroupBox*>(widget)) add(group->title(), group);
      const auto* label = qobject_cast<QLabel*>(widget);
      if (label && label->buddy()) add(label->text(), label);
      if (const auto* tabs = qobject_cast<QTabBar*>(widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab) add(tabs->tabText(tab), tabs);
      }
    }
  }

  // What is laid out has the room that it needs.
  static void LookAtRoom(QWidget* form, const QString& name) {
    for (QWidget* widget : form->findChildren<QWidget*>()) {
      const bool has_words = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget) ||
                             qobject_cast<QLineEdit*>(widget) || qobject_cast<QLabel*>(widget);
      if (!has_words || !widget->isVisible() || widget->objectName().startsWith("qt_")) continue;
      QSize needed = widget->minimumSizeHint().boundedTo(widget->maximumSize());
      if (widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) needed.setWidth(0);
      if (widget->sizePolicy().verticalPolicy() == QSizePolicy::Ignored) needed.setHeight(0);
      const auto* label = qobject_cast<QLabel*>(widget);
      if (label && label->wordWrap()) needed = {0, label->heightForWidth(label->width())};
      QVERIFY2(widget->width() >= needed.width() && widget->height() >= needed.height(),
               qPrintable(QString("%1: %2 has %3 x %4 of %5 x %6")
                              .arg(name, Named(widget))
                              .arg(widget->width())
                              .arg(widget->height())
                              .arg(needed.width())
                              .arg(needed.height())));
    }
  }

 private slots:
  void initTestCase() { font_ = QApplication::font(); }
  void cleanup() {
    faults_.clear();
    window_.reset();
    QApplication::setFont(font_);
  }

  void EveryControlOfTheViewsHasANameAndARole() {
    Start();
    for (const View view : EveryView()) {
      if (!window().frame().view(view)) continue;
      window().ShowView(view);
      SettleEvents();
      LookAtNames(&window().frame());
    }
    TellFaults();
  }

  void EveryControlOfTheFormsHasANameAndARole() {
    Start();
    QStringList forms;
    ForEachForm(window(), [&](QWidget* form, const QString& name) {
      forms += name;
      QVERIFY2(!form->windowTitle().isEmpty(), qPrintable(name));
      LookAtNames(form);
      for (auto* pages : form->findChildren<QTabWidget*>()) {
        for (int page = 0; page < pages->count(); ++page) {
          pages->setCurrentIndex(page);
          SettleEvents();
          LookAtNames(form);
        }
      }
    });
    for (const char* name : {"frmOptions", "frmAbout", "Delimit", "SplitData"}) {
      QVERIFY2(forms.contains(name), qPrintable(QString(name) + " is not among " + forms.join(", ")));
    }
    TellFaults();
  }

  void EveryMenuAndEntryHasAnAccessLetterOrAKeyOfItsOwnAndMenusDoNotShareOne() {
    Start();
    QHash<QChar, QString> letters;
    for (const QAction* menu : window().frame().menuBar()->actions()) {
      if (!menu->isVisible()) continue;
      const QChar letter = AccessLetter(menu->text());
      QVERIFY2(!letter.isNull(), qPrintable(menu->text()));
      QVERIFY2(!letters.contains(letter), qPrintable(menu->text() + " and " + letters.value(letter)));
      letters[letter] = menu->text();
    }
  }

  void NoLetterStandsTwiceInAForm() {
    Start();
    ForEachForm(window(), [this](QWidget* form, const QString& name) { LookAtLetters(form, name); });
    TellFaults();
  }

  void EscapeClosesEveryForm() {
    Start();
    ForEachForm(window(), [](QWidget* form, const QString& name) {
      if (name == "CalcPad") return;  // there it is the key that clears
      form->activateWindow();
      SettleEvents();
      QWidget* at = form->focusWidget() ? form->focusWidget() : form;
      QPointer<QWidget> left(form);
      QTest::keyClick(at, Qt::Key_Escape);
      SettleEvents();
      QVERIFY2(!left || !left->isVisible(), qPrintable(name));
    });
  }

  void FormsHaveRoomForLargeType_data() {
    QTest::addColumn<int>("points");
    for (const int points : {9, 16}) QTest::addRow("%d points", points) << points;
  }
  void FormsHaveRoomForLargeType() {
    QFETCH(int, points);
    QFont type = font_;
    type.setPointSize(points);
    QApplication::setFont(type);
    Start();
    ForEachForm(window(), [](QWidget* form, const QString& name) {
      LookAtRoom(form, name);
      for (auto* pages : form->findChildren<QTabWidget*>()) {
        for (int page = 0; page < pages->count(); ++page) {
          pages->setCurrentIndex(page);
          SettleEvents();
          LookAtRoom(form, name);
        }
      }
    });
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::AccessibleControlsTest)
#include "accessible_controls_test.moc"
