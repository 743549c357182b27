#include <QClipboard>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>

#include "shell/command_row.h"
#include "window_fixture.h"

// The Glossary view: what is clicked and typed there, and the records that stand in the file afterwards.

namespace tessara {
namespace {

using Notes = std::vector<std::pair<std::string, std::string>>;

std::string Record(int number, const std::string& subject, const std::string& text) {
  std::string bytes;
  bytes += static_cast<char>(number % 256);
  bytes += static_cast<char>(number / 256);
  bytes += subject + std::string(60 - subject.size(), ' ');
  bytes += text + std::string(3000 - text.size(), ' ');
  return bytes + std::string(18, '\0');
}

std::string GlossaryBytes(const Notes& notes) {
  int number = 1;
  std::string bytes = Record(static_cast<int>(notes.size()) + 1, "", "");
  for (const auto& [subject, text] : notes) bytes += Record(++number, subject, text);
  return bytes;
}

const Notes kNotes = {{"Median", "The middle value."}, {"Mean", "The sum\r\nby the number."}, {"Mode", "Most often."}};

// The view in front, on a glossary of three notes.
class GlossaryWindow : public WindowFixture {
 public:
  explicit GlossaryWindow(const std::string& bytes = GlossaryBytes(kNotes)) {
    if (!bytes.empty()) WriteFile(file(), bytes);
    Start();
    ShowView(View::ViewGlossary);
  }

  Path file() const { return program_folder() / "Lexicards.lx1"; }
  bool FileHolds(const Notes& notes) const { return ReadFile(file()) == GlossaryBytes(notes); }

  QListView* list() { return Find<QListView>("List1"); }
  QLineEdit* subject() { return Find<QLineEdit>("Text1"); }
  QPlainTextEdit* text() { return Find<QPlainTextEdit>("Text2"); }

  QString Lines() {
    QStringList lines;
    for (int row = 0; row < list()->model()->rowCount(); ++row) lines += Line(row);
    return lines.join(", ");
  }
  QString Line(int row) { return list()->model()->index(row, 0).data().toString(); }
  void Click(int row) {
    const QRect place = list()->visualRect(list()->model()->index(row, 0));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, place.center());
    QCoreApplication::processEvents();
  }
  void Search(const std::string& words) {
    session().glossary.SearchText = words;
    Trigger(202);
  }
};

}  // namespace

class GlossaryTest : public QObject {
  Q_OBJECT

 private slots:
  void WhatIsUndoneIsNotSaved() {
    GlossaryWindow window;
    window.Click(1);  // Median
    window.text()->setFocus();
    window.text()->moveCursor(QTextCursor::End);
    QTest::keyClicks(window.text(), " PASTED");
    QTest::keyClick(window.text(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.text()->toPlainText(), "The middle value.");
    window.subject()->setFocus();
    window.subject()->end(false);
    QTest::keyClicks(window.subject(), "x");
    QTest::keyClick(window.subject(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.subject()->text(), "Median");
    window.Trigger(103);
    QCOMPARE(window.text()->toPlainText(), "The middle value.");
    QVERIFY(window.FileHolds(kNotes));
    window.text()->selectAll();
    QTest::keyClicks(window.text(), "w");
    QTest::keyClick(window.text(), Qt::Key_Z, Qt::ControlModifier);
    window.subject()->setFocus();
    window.subject()->end(false);
    QTest::keyClicks(window.subject(), "s");
    window.Trigger(103);
    QVERIFY(window.FileHolds({{"Medians", "The middle value."}, kNotes[1], kNotes[2]}));
  }

  void TheFileIsOpenedWithTheView() {
    GlossaryWindow window;
    QCOMPARE(window.Find<QLabel>("GlossaryCaption")->text(), "Glossary - Lexicards.lx1");
    QCOMPARE(window.Lines(), "Mean, Median, Mode");
    QCOMPARE(window.subject()->text(), "Median");
    QCOMPARE(window.text()->toPlainText(), "The middle value.");
    QCOMPARE(window.list()->currentIndex().row(), 1);
    QCOMPARE(window.Pane(2), "3 Notes");
    QVERIFY(!window.Find<QLabel>("NoNotes")->isVisible());
  }

  void AnEmptyGlossarySaysWhatToDo() {
    GlossaryWindow window("");
    QCOMPARE(window.Lines(), "");
    QVERIFY(window.Find<QLabel>("NoNotes")->isVisible());
    QCOMPARE(window.Pane(2), "0 Notes");
    QTest::keyClicks(window.subject(), "Range");
    window.Trigger(103);
    QVERIFY(window.FileHolds({{"Range", ""}}));
    QCOMPARE(window.Lines(), "Range");
    QVERIFY(!window.Find<QLabel>("NoNotes")->isVisible());
  }

  void ALineShowsItsNote() {
    GlossaryWindow window;
    window.Click(0);
    QCOMPARE(window.subject()->text(), "Mean");
    QCOMPARE(window.text()->toPlainText(), "The sum\nby the number.");
    QTest::keyClick(window.list(), Qt::Key_End);
    QCOMPARE(window.subject()->text(), "Mode");
    QTest::keyClick(window.list(), Qt::Key_Return);
    QVERIFY(window.text()->hasFocus());
    QVERIFY(window.FileHolds(kNotes));
  }

  void CountersFollowWhatIsTyped() {
    GlossaryWindow window;
    window.Click(0);
    QCOMPARE(window.Find<QLabel>("SubjectCounter")->text(), "4 characters used (56 remaining)");
    // Seven letters, a line end of two characters, fourteen more.
    QCOMPARE(window.Find<QLabel>("TextCounter")->text(), "23 characters used (2977 remaining)");
    QTest::keyClicks(window.subject(), "s");
    QCOMPARE(window.Find<QLabel>("SubjectCounter")->text(), "5 characters used (55 remaining)");
  }

  void AnEditIsSavedBySelectingAnotherLine() {
    GlossaryWindow window;
    window.text()->moveCursor(QTextCursor::End);
    QTest::keyClicks(window.text(), " Half are above.");
    QVERIFY(window.session().glossary.NoteDirty);
    QCOMPARE(window.Find<QLabel>("NoteState")->text(), "Not saved yet");
    window.Click(2);
    QVERIFY(window.FileHolds({{"Median", "The middle value. Half are above."}, kNotes[1], kNotes[2]}));
    QCOMPARE(window.subject()->text(), "Mode");
    QCOMPARE(window.Find<QLabel>("NoteState")->text(), "");
    QCOMPARE(window.list()->currentIndex().row(), 2);
  }

  void ASavedSubjectTakesItsPlaceInTheList() {
    GlossaryWindow window;
    window.subject()->setFocus();
    window.subject()->selectAll();
    QTest::keyClicks(window.subject(), "Zero");
    window.Trigger(103);
    QCOMPARE(window.Pane(1), "Save Completed");
    QCOMPARE(window.Lines(), "Mean, Mode, Zero");
    QCOMPARE(window.list()->currentIndex().row(), 2);
    QVERIFY(window.FileHolds({{"Zero", "The middle value."}, kNotes[1], kNotes[2]}));
  }

  void LinesOfTheBoxAreLinesOfTheFile() {
    GlossaryWindow window;
    window.text()->selectAll();
    QTest::keyClicks(window.text(), "one");
    QTest::keyClick(window.text(), Qt::Key_Return);
    QTest::keyClicks(window.text(), "two");
    window.Trigger(103);
    QVERIFY(window.FileHolds({{"Median", "one\r\ntwo"}, kNotes[1], kNotes[2]}));
  }

  void NothingIsTakenBeyondTheLimits() {
    GlossaryWindow window;
    QApplication::clipboard()->setText(QString(3001, 'x'));
    window.text()->selectAll();
    window.text()->paste();
    QCOMPARE(window.text()->toPlainText(), QString(3000, 'x'));
    QTest::keyClicks(window.text(), "more");
    QCOMPARE(window.Find<QLabel>("TextCounter")->text(), "3000 characters used (0 remaining)");
    window.text()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(window.text(), "y");
    QCOMPARE(window.text()->toPlainText(), QString(3000, 'x'));
    QTest::keyClick(window.text(), Qt::Key_Return);  // two characters in the file
    QCOMPARE(window.text()->toPlainText(), QString(3000, 'x'));
    window.subject()->selectAll();
    QApplication::clipboard()->setText(QString(61, 's'));
    window.subject()->paste();
    window.Trigger(103);
    QVERIFY(window.FileHolds({{std::string(60, 's'), std::string(3000, 'x')}, kNotes[1], kNotes[2]}));
  }

  void AnEditCanBeTakenBack() {
    GlossaryWindow window;
    QApplication::clipboard()->setText(QString(4000, 'x'));
    window.text()->selectAll();
    window.text()->paste();
    window.text()->setFocus();
    QTest::keyClick(window.text(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.text()->toPlainText(), "The middle value.");
  }

  void ANewNoteBeginsWithItsSubject() {
    GlossaryWindow window;
    window.Trigger(801);
    QVERIFY(window.subject()->hasFocus());
    QVERIFY(window.subject()->text().isEmpty() && window.text()->toPlainText().isEmpty());
    QVERIFY(!window.list()->currentIndex().isValid());
    QTest::keyClicks(window.subject(), "Range");
    window.Click(0);
    Notes notes = kNotes;
    notes.push_back({"Range", ""});
    QVERIFY(window.FileHolds(notes));
    QCOMPARE(window.Lines(), "Mean, Median, Mode, Range");
  }

  void DeleteAsksAndLeavesNoNoteOnShow() {
    GlossaryWindow window;
    window.Click(0);
    window.script().message_answers = {Answer::kOk};
    QTest::keyClick(window.list(), Qt::Key_Delete);
    QCOMPARE(window.script().messages[0].title, "Warning! Confirm Delete...");
    QCOMPARE(window.Lines(), "Median, Mode");
    QVERIFY(!window.subject()->isEnabled() && !window.text()->isEnabled());
    QCOMPARE(WindowFixture::ReadFile(window.file()), Record(3, "", "") + Record(2, "Median", "The middle value.") +
                                                         Record(3, "Mode", "Most often.") + Record(4, "", ""));
    window.Click(1);
    QCOMPARE(window.subject()->text(), "Mode");
    QVERIFY(window.subject()->isEnabled());
  }

  void ASearchShowsItsMatchesUntilItIsReset() {
    GlossaryWindow window;
    window.Search("e v");
    QCOMPARE(window.Lines(), "Median");
    QCOMPARE(window.Pane(1), "Find> e v");
    QCOMPARE(window.Pane(2), "The search found 1 matching records.");
    window.Search("Mo");
    QCOMPARE(window.Lines(), "Mode");
    window.Search("nothing");
    QCOMPARE(window.script().messages[0].text, "Sorry...  ' nothing ' not found");
    QCOMPARE(window.Lines(), "Mode");
    QTest::keyClick(window.list(), Qt::Key_Escape);
    QCOMPARE(window.Lines(), "Mean, Median, Mode");
    QCOMPARE(window.Pane(2), "3 Notes");
  }

  void TheClipboardWorksInTheBoxWithTheFocus() {
    GlossaryWindow window;
    QVERIFY(!window.Command(205)->isEnabled());
    window.subject()->setFocus();
    window.subject()->selectAll();
    QVERIFY(window.Command(205)->isEnabled());
    window.Trigger(213);
    QCOMPARE(QApplication::clipboard()->text(), "Median");
    QVERIFY(!window.Command(205)->isEnabled());
    window.text()->setFocus();
    window.text()->moveCursor(QTextCursor::End);
    window.Trigger(206);
    window.Trigger(103);
    QVERIFY(window.FileHolds({{"", "The middle value.Median"}, kNotes[1], kNotes[2]}));
  }

  void AnotherFileTakesThePlaceOfThisOne() {
    GlossaryWindow window;
    const Path other =
        window.WriteFile(window.folder() / "other.lx1", GlossaryBytes({{"Range", "Largest less smallest."}}));
    window.script().open_answers.push_back(WindowFixture::Chosen(other));
    window.Trigger(102);
    QCOMPARE(window.Find<QLabel>("GlossaryCaption")->text(), "Glossary - other.lx1");
    QCOMPARE(window.Lines(), "Range");
    QCOMPARE(window.text()->toPlainText(), "Largest less smallest.");
  }

  void AnImportIsWorkedOnAsTemp() {
    GlossaryWindow window;
    const Path terms = window.WriteFile(window.folder() / "terms.txt", "a\t1\r\nb\t2\r\n");
    window.script().open_answers.push_back(WindowFixture::Chosen(terms));
    window.Trigger(104);
    QCOMPARE(window.Find<QLabel>("GlossaryCaption")->text(), "Glossary - Temp.lx1");
    QCOMPARE(WindowFixture::ReadFile(window.program_folder() / "Temp.lx1"), GlossaryBytes({{"a", "1"}, {"b", "2"}}));
  }

  void AnEditSurvivesTheCloseOfTheFrame() {
    GlossaryWindow window;
    window.text()->moveCursor(QTextCursor::End);
    QTest::keyClicks(window.text(), "!");
    window.ShowView(View::ViewOutput);
    window.frame().close();
    QVERIFY(window.FileHolds({{"Median", "The middle value.!"}, kNotes[1], kNotes[2]}));
  }

  void ANoteThatCannotBeSavedStaysOnShow() {
    GlossaryWindow window;
    QTest::keyClicks(window.subject(), "s");
    std::filesystem::remove(window.file());
    std::filesystem::create_directory(window.file());
    window.script().message_answers = {Answer::kOk, Answer::kNo};
    window.Click(0);
    QCOMPARE(window.list()->currentIndex().row(), 1);
    QVERIFY(window.session().glossary.NoteDirty);
    window.script().message_answers = {Answer::kOk, Answer::kNo};
    QVERIFY(!window.frame().close());
    QCOMPARE(window.frame().current_view()->objectName(), "Glossary1");
    window.script().message_answers = {Answer::kOk, Answer::kYes};
    QVERIFY(window.frame().close());
  }

  void BytesThatTheBoxesDoNotShowSurvive() {
    const std::string strange("a\0b\x01\x7F\r c\n<b>d</b>", 18);
    GlossaryWindow window(GlossaryBytes({{"x<i>y", strange}, {"b", ""}}));
    QCOMPARE(window.Line(1), "x<i>y");
    QTest::keyClicks(window.subject(), "z");
    window.Trigger(103);
    QCOMPARE(WindowFixture::ReadFile(window.file()).substr(3080 + 62, 18), strange);
  }

  void ALargeListShowsAtOnceAndIsWalkedByKeys() {
    Notes notes;
    for (int i = 0; i < 2000; ++i) notes.push_back({std::string(1, static_cast<char>('a' + i % 26)), "text"});
    GlossaryWindow window(GlossaryBytes(notes));
    QCOMPARE(window.list()->model()->rowCount(), 2000);
    window.list()->setFocus();
    QTest::keyClick(window.list(), Qt::Key_End);
    QCOMPARE(window.subject()->text(), "z");
    QTest::keyClick(window.list(), Qt::Key_Home);
    QCOMPARE(window.subject()->text(), "a");
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::GlossaryTest)
#include "glossary_test.moc"
