#include <deque>

#include "window_fixture.h"

namespace tessara {

// The close of the frame with each answer of both prompts.
class CloseTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  bool Close(std::deque<Answer> answers) {
    window().script().message_answers = std::move(answers);
    return window().frame().close();
  }
  std::string Question(std::size_t place) { return window().script().messages.at(place).text; }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start(window().WriteDataFile("scores.dcs", {"AGE"}, {{"34"}, {"41"}}));
  }
  void cleanup() { window_.reset(); }

  void WithoutChangesNothingIsAsked() {
    QVERIFY(Close({}));
    QVERIFY(window().script().messages.empty());
  }

  void DataYesCancelsTheCloseAndSavesAs() {
    window().session().data.DataDirty = true;
    const Path target = window().folder() / "kept.dcs";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    QVERIFY(!Close({Answer::kYes}));
    QCOMPARE(window().script().messages[0].title, std::string("Warning!"));
    QCOMPARE(Question(0), std::string("Do you wish to save the changes to the data file?"));
    QVERIFY(window().frame().isVisible());
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
    QVERIFY(std::filesystem::exists(target));
  }

  void DataNoLetsTheCloseGoOn() {
    window().session().data.DataDirty = true;
    QVERIFY(Close({Answer::kNo}));
    QVERIFY(!window().session().data.DataDirty);
  }

  void DataCancelCancelsTheClose() {
    window().session().data.DataDirty = true;
    QVERIFY(!Close({Answer::kCancel}));
    QVERIFY(window().session().data.DataDirty);
    QCOMPARE(window().session().data.RecordCount, std::size_t{2});
  }

  void OutputYesCancelsTheCloseAndSavesTheOutput() {
    EditBox(window().session().output, "A report");
    window().session().output.OutputChanged = true;
    const Path target = window().folder() / "report.txt";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    QVERIFY(!Close({Answer::kYes}));
    QCOMPARE(Question(0), std::string("Do you wish to save the contents of the Output Viewer?"));
    QCOMPARE(window().session().ActiveView, View::ViewOutput);
    QVERIFY(std::filesystem::exists(target));
    QVERIFY(!window().session().output.OutputChanged);
  }

  void OutputNoLetsTheCloseGoOn() {
    window().session().output.OutputChanged = true;
    QVERIFY(Close({Answer::kNo}));
    QVERIFY(!window().session().output.OutputChanged);
  }

  void OutputCancelCancelsTheClose() {
    window().session().output.OutputChanged = true;
    QVERIFY(!Close({Answer::kCancel}));
    QVERIFY(window().session().output.OutputChanged);
  }

  void ACancelAtTheSecondQuestionLeavesEverything() {
    window().session().data.DataDirty = true;
    window().session().output.OutputChanged = true;
    QVERIFY(!Close({Answer::kNo, Answer::kCancel}));
    QVERIFY(window().session().data.DataDirty);
    QVERIFY(window().session().output.OutputChanged);
    QVERIFY(window().session().data.matrix.Cell(16, 1).text() == "34");
    QVERIFY(window().frame().isWindowModified());
    QVERIFY(Close({Answer::kNo, Answer::kNo}));
    QCOMPARE(window().script().messages.size(), std::size_t{4});
  }

  void BothQuestionsAreAskedInTurn() {
    window().session().data.DataDirty = true;
    window().session().output.OutputChanged = true;
    QVERIFY(Close({Answer::kNo, Answer::kNo}));
    QCOMPARE(window().script().messages.size(), std::size_t{2});
    QCOMPARE(Question(1), std::string("Do you wish to save the contents of the Output Viewer?"));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::CloseTest)
#include "close_test.moc"
