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

// Of a group of radio buttons Tab comes to one alone.
bool IsLeftOut(const QWidget* widget) {
  const auto* option = qobject_cast<const QRadioButton*>(widget);
  return option && !option->isChecked();
}

QChar AccessLetter(const QString& text) {
  QString plain = text;
  plain.replace("&&", "");
  const qsizetype mark = plain.indexOf('&');
  return mark < 0 || mark + 1 >= plain.size() ? QChar() : plain[mark + 1].toLower();
}

}  // namespace

// What screen readers and users without a mouse need: names, roles, an order of Tab, visible focus, keys of their own,
// and type of the size that the desktop has.
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

  // Tab after Tab through a form, from where it begins to where it begins again.
  static QList<QWidget*> TabOrder(QWidget* form) {
    QList<QWidget*> order;
    for (int i = 0; i < 300; ++i) {
      QWidget* now = QApplication::focusWidget();
      if (!now || order.contains(now)) return order;
      order += now;
      QTest::keyClick(now, Qt::Key_Tab);
      QCoreApplication::processEvents();
      if (QApplication::focusWidget() == now) {  // a box that takes Tab as a character
        QTest::keyClick(now, Qt::Key_Tab, Qt::ControlModifier);
        QCoreApplication::processEvents();
      }
      if (QApplication::focusWidget() && QApplication::focusWidget()->window() != form->window()) return order;
    }
    return order;
  }
  void LookAtTabOrder(QWidget* form, const QString& name) {
    form->activateWindow();
    SettleEvents();
    if (!QApplication::focusWidget() || QApplication::focusWidget()->window() != form) return;
    const QList<QWidget*> order = TabOrder(form);
    for (QWidget* widget : form->findChildren<QWidget*>()) {
      if (!TakesTab(widget) || IsLeftOut(widget) || widget->objectName().startsWith("qt_")) continue;
      if (widget->visibleRegion().isEmpty()) continue;
      QStringList names;
      for (const QWidget* stop : order) names += stop->objectName();
      if (!order.contains(widget)) {
        Fault(name + ": Tab does not come to " + Named(widget) + ", but to " + names.join(' '));
      }
    }
    for (qsizetype i = 0; i + 1 < order.size(); ++i) {
      const QRect from(order[i]->mapTo(form, QPoint()), order[i]->size());
      const QRect to(order[i + 1]->mapTo(form, QPoint()), order[i + 1]->size());
      const bool back_up = to.bottom() < from.top() && to.left() < from.right();
      const bool starts_again = order[i + 1] == order.first();
      if (back_up && !starts_again && !WasBegunInTheMiddle(order, i + 1, form)) {
        Fault(name + ": Tab goes up from " + Named(order[i]) + " to " + Named(order[i + 1]));
      }
    }
  }
  // The form's focus stood below its first control: one way back to the top is in order.
  static bool WasBegunInTheMiddle(const QList<QWidget*>& order, qsizetype at, QWidget* form) {
    const int top = order[at]->mapTo(form, QPoint()).y();
    for (qsizetype i = 0; i < at; ++i) {
      if (order[i]->mapTo(form, QPoint()).y() < top) return false;
    }
    return true;
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

  // Whether the keyboard's place can be seen: the pictures with and without it differ by a contrast of 3.
  static double Seen(QWidget* form, QWidget* widget, QWidget* elsewhere) {
    elsewhere->setFocus(Qt::TabFocusReason);
    SettleEvents();
    const QImage without = form->grab().toImage();
    widget->setFocus(Qt::TabFocusReason);
    SettleEvents();
    const QImage with = form->grab().toImage();
    if (without.size() != with.size()) return 21;  // the form has changed its shape for it
    const QRect place = QRect(widget->mapTo(form, QPoint()), widget->size()).adjusted(-4, -4, 4, 4) & form->rect();
    double most = 1;
    for (int y = place.top(); y <= place.bottom(); ++y) {
      for (int x = place.left(); x <= place.right(); ++x) {
        most = std::max(most, Difference(without.pixel(x, y), with.pixel(x, y)));
      }
    }
    return most;
  }
  static double Difference(QRgb one, QRgb other) {
    const auto luminance = [](QRgb colour) {
      const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
      };
      return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
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

  void EveryFormIsWorkedByTabAlone() {
    Start();
    ForEachForm(window(), [this](QWidget* form, const QString& name) { LookAtTabOrder(form, name); });
    TellFaults();
  }

  void NoLetterStandsTwiceInAForm() {
    Start();
    ForEachForm(window(), [this](QWidget* form, const QString& name) { LookAtLetters(form, name); });
    TellFaults();
  }

  void TheFocusCanBeSeenInEveryForm() {
    Start();
    ForEachForm(window(), [this](QWidget* form, const QString& name) {
      form->activateWindow();
      form->setAttribute(Qt::WA_KeyboardFocusChange);  // as behind a key of Tab
      SettleEvents();
      QList<QWidget*> controls;
      for (QWidget* widget : form->findChildren<QWidget*>()) {
        if (TakesTab(widget) && !widget->objectName().startsWith("qt_") && !widget->visibleRegion().isEmpty()) {
          controls += widget;
        }
      }
      for (qsizetype i = 0; i < controls.size() && controls.size() > 1; ++i) {
        QWidget* elsewhere = controls[i == 0 ? 1 : 0];
        const double seen = Seen(form, controls[i], elsewhere);
        if (seen < 3) Fault(QString("%1: %2 has %3").arg(name, Named(controls[i])).arg(seen));
      }
    });
    TellFaults();
  }

  void EscapeClosesEveryForm() {
    Start();
    ForEachForm(window(), [](QWidget* form, const QString& name) {
      form->activateWindow();
      SettleEvents();
      QWidget* at = form->focusWidget() ? form->focusWidget() : form;
      QPointer<QWidget> left(form);
      QTest::keyClick(at, Qt::Key_Escape);
      SettleEvents();
      QVERIFY2(!left || !left->isVisible(), qPrintable(name));
    });
  }

  void TypeFollowsThatOfTheDesktop() {
    Start();
    QFont large = font_;
    large.setPointSize(16);
    QApplication::setFont(large);
    SettleEvents();
    for (const View view : EveryView()) {
      if (!window().frame().view(view)) continue;
      window().ShowView(view);
      SettleEvents();
      for (QWidget* widget : window().frame().findChildren<QWidget*>()) {
        const bool has_words = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                               qobject_cast<QLabel*>(widget) || qobject_cast<QAbstractItemView*>(widget);
        if (!has_words || !widget->isVisible()) continue;
        const double points = QFontInfo(widget->font()).pointSizeF();
        QVERIFY2(points >= 13, qPrintable(Named(widget) + QString(" has %1 points").arg(points)));
      }
    }
  }

  void FormsHaveRoomForLargeType_data() {
    QTest::addColumn<int>("points");
    for (const int points : {9, 16, 20}) QTest::addRow("%d points", points) << points;
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
