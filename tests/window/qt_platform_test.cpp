#include "window/system/qt_platform.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>

#include "platform/file_calls.h"
#include "window/widgets/text.h"

namespace tessara {

// The window's own platform, with its real dialogs: a hand presses their buttons as soon as they are open.
class QtPlatformTest : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> temporary_;
  std::unique_ptr<QtPlatform> platform_;
  std::unique_ptr<QMainWindow> frame_;
  std::array<QLabel*, 3> panes_{};
  int dialogs_announced_ = 0;

  QtPlatform& platform() { return *platform_; }
  Path folder() const { return PathFromQt(temporary_->path()); }

  Path Write(const char* name, const std::string& content = "x") const {
    std::ofstream(folder() / name, std::ios::binary) << content;
    return folder() / name;
  }

  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  // Waits for a dialog of that type and hands it to `answer`; one that stays open is closed, so that a test fails
  // rather than hangs. Later dialogs on top of it are answered by hands of their own, which are held out first.
  template <typename Dialog>
  void WhenOpen(std::function<void(Dialog&)> answer, int patience = 100) {
    QTimer::singleShot(20, this, [this, answer, patience] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      if (dialog) return answer(*dialog);
      if (patience > 0) return WhenOpen<Dialog>(answer, patience - 1);
      if (auto* other = qobject_cast<QDialog*>(QApplication::activeModalWidget())) other->reject();
    });
  }

  static void Press(QMessageBox& box, QMessageBox::StandardButton button) {
    QAbstractButton* found = box.button(button);
    if (found) return found->click();
    qWarning("the box has no such button");
    box.reject();
  }

  // The name that a file dialog proposes, and a name typed instead.
  static QLineEdit& NameBox(QFileDialog& form) { return *form.findChild<QLineEdit*>("fileNameEdit"); }

  static FileDialog SaveDialog(const Path& start) {
    FileDialog dialog;
    dialog.title = "Save As";
    dialog.filter = "Text files (*.txt)|*.txt|Data files (*.csv)|*.csv|All files (*.*)|*.*";
    dialog.initial_folder = start;
    dialog.default_extension = "txt";
    dialog.overwrite_prompt = true;
    return dialog;
  }

  // The answer of the user who types a name and presses the button that accepts.
  std::optional<ChosenFile> SaveAs(const FileDialog& dialog, const QString& name) {
    WhenOpen<QFileDialog>([name](QFileDialog& form) {
      NameBox(form).setText(name);
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    return platform().AskSaveFile(dialog);
  }

  Answer Pressed(Buttons buttons, QMessageBox::StandardButton button) {
    WhenOpen<QMessageBox>([button](QMessageBox& box) { Press(box, button); });
    return platform().ShowMessage({"Warning!", "Go on?", buttons, Tone::kQuestion});
  }
  // Escape, or the cross of the title bar.
  Answer Closed(Buttons buttons) {
    WhenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    return platform().ShowMessage({"Warning!", "Go on?", buttons, Tone::kQuestion});
  }

 private slots:
  void initTestCase() {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // No printer of this machine takes part: the dialog offers none but the file.
    qputenv("CUPS_SERVER", "/nonexistent");
  }
  void init() {
    temporary_ = std::make_unique<QTemporaryDir>();
    std::filesystem::create_directories(folder() / "documents");
    platform_ = std::make_unique<QtPlatform>(PlatformFolders{folder(), folder() / "documents"});
    frame_ = std::make_unique<QMainWindow>();
    for (QLabel*& pane : panes_) pane = new QLabel(frame_.get());
    dialogs_announced_ = 0;
    platform().AttachFrame(frame_.get(), panes_, [this] { ++dialogs_announced_; });
    frame_->show();
    QVERIFY(QTest::qWaitForWindowExposed(frame_.get()));
  }
  void cleanup() {
    while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
    platform_.reset();
    frame_.reset();
    temporary_.reset();
  }

  // Messages.

  void EachButtonIsItsAnswer() {
    QCOMPARE(Pressed(Buttons::kOk, QMessageBox::Ok), Answer::kOk);
    QCOMPARE(Pressed(Buttons::kOkCancel, QMessageBox::Ok), Answer::kOk);
    QCOMPARE(Pressed(Buttons::kOkCancel, QMessageBox::Cancel), Answer::kCancel);
    QCOMPARE(Pressed(Buttons::kYesNo, QMessageBox::Yes), Answer::kYes);
    QCOMPARE(Pressed(Buttons::kYesNo, QMessageBox::No), Answer::kNo);
    QCOMPARE(Pressed(Buttons::kYesNoCancel, QMessageBox::Yes), Answer::kYes);
    QCOMPARE(Pressed(Buttons::kYesNoCancel, QMessageBox::No), Answer::kNo);
    QCOMPARE(Pressed(Buttons::kYesNoCancel, QMessageBox::Cancel), Answer::kCancel);
  }

  void ABoxOfThreeButtonsThatIsClosedIsCancelledAndNotDenied() {
    QCOMPARE(Closed(Buttons::kYesNoCancel), Answer::kCancel);
    QCOMPARE(Closed(Buttons::kOkCancel), Answer::kCancel);
    QCOMPARE(Closed(Buttons::kOk), Answer::kOk);
  }

  void ABoxHasTheButtonsItWasGivenAndNoOthers() {
    const auto buttons_of = [this](Buttons buttons) {
      QMessageBox::StandardButtons found;
      WhenOpen<QMessageBox>([&found](QMessageBox& box) {
        found = box.standardButtons();
        box.done(0);
      });
      platform().ShowMessage({"t", "x", buttons, Tone::kQuestion});
      return found;
    };
    QCOMPARE(buttons_of(Buttons::kOk), QMessageBox::Ok);
    QCOMPARE(buttons_of(Buttons::kOkCancel), QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(buttons_of(Buttons::kYesNo), QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(buttons_of(Buttons::kYesNoCancel), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  }

  void ABoxShowsItsTitleAndItsTextAsPlainText() {
    QString title, text;
    Qt::TextFormat format = Qt::AutoText;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    WhenOpen<QMessageBox>([&](QMessageBox& box) {
      title = box.windowTitle();
      text = box.text();
      format = box.textFormat();
      icon = box.icon();
      Press(box, QMessageBox::Ok);
    });
    platform().ShowMessage({"Error", "<b>K\xF6ln</b>\r\nand more", Buttons::kOk, Tone::kRefusal});
    QCOMPARE(title, "Error");
    QCOMPARE(text, QString::fromUtf8("<b>K\xC3\xB6ln</b>\nand more"));
    QCOMPARE(format, Qt::PlainText);
    QCOMPARE(icon, QMessageBox::Warning);
    QCOMPARE(dialogs_announced_, 1);
  }

  void TheToneChoosesTheIcon() {
    const auto icon_of = [this](Tone tone) {
      QMessageBox::Icon icon = QMessageBox::NoIcon;
      WhenOpen<QMessageBox>([&icon](QMessageBox& box) {
        icon = box.icon();
        box.done(0);
      });
      platform().ShowMessage({"t", "x", Buttons::kOk, tone});
      return icon;
    };
    QCOMPARE(icon_of(Tone::kInformation), QMessageBox::Information);
    QCOMPARE(icon_of(Tone::kQuestion), QMessageBox::Question);
    QCOMPARE(icon_of(Tone::kWarning), QMessageBox::Warning);
  }

  void ABoxOfTheFrameStandsInFrontOfIt() {
    QWidget* owner = nullptr;
    WhenOpen<QMessageBox>([&owner](QMessageBox& box) {
      owner = box.parentWidget();
      box.done(0);
    });
    platform().ShowMessage({"t", "x", Buttons::kOk, Tone::kInformation});
    QCOMPARE(owner, frame_.get());
  }

  // A window beside the frame, the enlarged chart for one, has its boxes on top of itself.
  void ABoxOfAWindowBesideTheFrameStandsInFrontOfThat() {
    QDialog beside(frame_.get());
    beside.show();
    QVERIFY(QTest::qWaitForWindowExposed(&beside));
    QApplication::setActiveWindow(&beside);
    QWidget* owner = nullptr;
    WhenOpen<QMessageBox>([&owner](QMessageBox& box) {
      owner = box.parentWidget();
      box.done(0);
    });
    platform().ShowMessage({"t", "x", Buttons::kOk, Tone::kInformation});
    QCOMPARE(owner, &beside);
  }

  void AQuestionUnderTheWaitCursorHasAnArrow() {
    platform().ShowWaitCursor();
    platform().ShowWaitCursor();
    bool waiting = true;
    WhenOpen<QMessageBox>([&waiting](QMessageBox& box) {
      waiting = QApplication::overrideCursor() != nullptr;
      box.done(0);
    });
    platform().ShowMessage({"t", "x", Buttons::kOk, Tone::kInformation});
    QVERIFY(!waiting);
    QVERIFY(QApplication::overrideCursor());  // and behind it one waits again, as often as before
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    platform().HideWaitCursor();
    QVERIFY(QApplication::overrideCursor());
    platform().HideWaitCursor();
    QVERIFY(!QApplication::overrideCursor());
  }

  // Files to open.

  void OpenYieldsTheChosenFileAndItsName() {
    const Path file = Write("sc\u00f6res.dcs");
    FileDialog dialog;
    dialog.title = "Open";
    dialog.filter = "Tessara data files (*.dcs)|*.dcs";
    dialog.initial_folder = folder();
    QString title, start;
    QStringList filters;
    WhenOpen<QFileDialog>([&](QFileDialog& form) {
      title = form.windowTitle();
      start = form.directory().absolutePath();
      filters = form.nameFilters();
      NameBox(form).setText(PathToQt(file.filename()));
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    });
    const auto chosen = platform().AskOpenFile(dialog);
    QCOMPARE(title, "Open");
    QCOMPARE(QFileInfo(start).canonicalFilePath(), QFileInfo(temporary_->path()).canonicalFilePath());
    QCOMPARE(filters, QStringList("Tessara data files (*.dcs)"));
    QVERIFY(chosen);
    QVERIFY(std::filesystem::equivalent(chosen->path, file));
    QCOMPARE(chosen->title, std::string("sc\xF6res.dcs"));  // in the code page
    QCOMPARE(dialogs_announced_, 1);
  }

  void OpenThatIsCancelledYieldsNothing() {
    Write("scores.dcs");
    WhenOpen<QFileDialog>([](QFileDialog& form) {
      NameBox(form).setText("scores.dcs");
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
    });
    FileDialog dialog;
    dialog.filter = "Tessara data files (*.dcs)|*.dcs";
    dialog.initial_folder = folder();
    QVERIFY(!platform().AskOpenFile(dialog));
  }

  void OpenTakesNoFileThatIsNotThere() {
    bool still_open = false;
    WhenOpen<QFileDialog>([&](QFileDialog& form) {
      NameBox(form).setText("missing.dcs");
      // The dialog says so in a box of its own, and stays.
      QTimer::singleShot(100, &form, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->done(QMessageBox::Ok);
        QTimer::singleShot(50, &form, [&] {
          still_open = form.isVisible();
          form.reject();
        });
      });
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
    });
    FileDialog dialog;
    dialog.filter = "Tessara data files (*.dcs)|*.dcs";
    dialog.initial_folder = folder();
    QVERIFY(!platform().AskOpenFile(dialog));
    QVERIFY(still_open);
  }

  // Where a file was opened last, the dialog starts; what it is given may be that file itself.
  void TheFolderOfAFileIsWhereADialogStarts() {
    const Path file = Write("report.txt");
    QString start;
    WhenOpen<QFileDialog>([&start](QFileDialog& form) {
      start = form.directory().absolutePath();
      form.reject();
    });
    QVERIFY(!platform().AskSaveFile(SaveDialog(file)));
    QCOMPARE(QFileInfo(start).canonicalFilePath(), QFileInfo(temporary_->path()).canonicalFilePath());
    WhenOpen<QFileDialog>([&start](QFileDialog& form) {
      start = form.directory().absolutePath();
      form.reject();
    });
    QVERIFY(!platform().AskSaveFile(SaveDialog(folder() / "documents")));
    QVERIFY(start.endsWith("/documents"));
  }

  // Files to save.

  void SaveProposesTheName() {
    FileDialog dialog = SaveDialog(folder());
    dialog.initial_name = "Output.txt";
    QString proposed;
    WhenOpen<QFileDialog>([&proposed](QFileDialog& form) {
      proposed = NameBox(form).text();
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    const auto chosen = platform().AskSaveFile(dialog);
    QCOMPARE(proposed, "Output.txt");
    QVERIFY(chosen);
    QCOMPARE(chosen->title, std::string("Output.txt"));
    QVERIFY(!std::filesystem::exists(chosen->path));  // it is only a name
  }

  void ANameWithoutAnEndingTakesTheUsualOne() {
    const auto chosen = SaveAs(SaveDialog(folder()), "report");
    QVERIFY(chosen);
    QCOMPARE(chosen->title, std::string("report.txt"));
    const auto with_ending = SaveAs(SaveDialog(folder()), "report.log");
    QVERIFY(with_ending);
    QCOMPARE(with_ending->title, std::string("report.log"));
  }

  void ANameWithoutAnEndingTakesThatOfTheChosenKind() {
    WhenOpen<QFileDialog>([](QFileDialog& form) {
      form.selectNameFilter("Data files (*.csv)");
      emit form.filterSelected("Data files (*.csv)");
      NameBox(form).setText("report");
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    const auto chosen = platform().AskSaveFile(SaveDialog(folder()));
    QVERIFY(chosen);
    QCOMPARE(chosen->title, std::string("report.csv"));
  }

  void AllFilesHavePatternsOfTheirOwn() {
    QStringList filters;
    WhenOpen<QFileDialog>([&filters](QFileDialog& form) {
      filters = form.nameFilters();
      form.reject();
    });
    platform().AskSaveFile(SaveDialog(folder()));
    QCOMPARE(filters, QStringList({"Text files (*.txt)", "Data files (*.csv)", "All files (*)"}));
  }

  // The file that is there is asked about, and No leads back to the dialog.
  void AnExistingFileIsAskedAboutAheadOfItsLoss() {
    const Path file = Write("report.txt", "the old one");
    int questions = 0;
    bool denied = false;
    WhenOpen<QFileDialog>([&](QFileDialog& form) {
      NameBox(form).setText("report.txt");
      WhenOpen<QMessageBox>([&](QMessageBox& box) {
        ++questions;
        Press(box, QMessageBox::No);
        QTimer::singleShot(50, &form, [&] {
          denied = form.isVisible();
          form.reject();
        });
      });
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    QVERIFY(!platform().AskSaveFile(SaveDialog(folder())));
    QCOMPARE(questions, 1);
    QVERIFY(denied);

    WhenOpen<QFileDialog>([&](QFileDialog& form) {
      NameBox(form).setText("report.txt");
      WhenOpen<QMessageBox>([&](QMessageBox& box) {
        ++questions;
        Press(box, QMessageBox::Yes);
      });
      form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    const auto chosen = platform().AskSaveFile(SaveDialog(folder()));
    QCOMPARE(questions, 2);
    QVERIFY(chosen);
    QVERIFY(std::filesystem::equivalent(chosen->path, file));
  }

  void WithoutTheOverwritePromptNothingIsAsked() {
    Write("report.txt");
    FileDialog dialog = SaveDialog(folder());
    dialog.overwrite_prompt = false;
    const auto chosen = SaveAs(dialog, "report.txt");
    QVERIFY(chosen);
    QCOMPARE(chosen->title, std::string("report.txt"));
  }

  void SaveThatIsCancelledYieldsNothing() {
    WhenOpen<QFileDialog>([](QFileDialog& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    QVERIFY(!platform().AskSaveFile(SaveDialog(folder())));
    QCOMPARE(dialogs_announced_, 1);
  }

  // Printing.

  void TheCopiesThatAreChosenAreTold() {
    WhenOpen<QPrintDialog>([this](QPrintDialog& form) {
      form.printer()->setOutputFormat(QPrinter::PdfFormat);
      form.printer()->setOutputFileName(temporary_->filePath("out.pdf"));
      form.printer()->setCopyCount(3);
      form.done(QDialog::Accepted);
    });
    const auto choice = platform().AskPrint({"Print", false});
    QVERIFY(choice);
    QCOMPARE(choice->copies, 3);
    QCOMPARE(dialogs_announced_, 1);
  }

  // The device is full at the first byte that is written to it.
  void AFileThatCannotBePrintedToStaysAsItWas() {
    const QString target = temporary_->filePath("out.pdf");
    const auto print = [&] {
      WhenOpen<QPrintDialog>([&](QPrintDialog& form) {
        form.printer()->setOutputFormat(QPrinter::PdfFormat);
        form.printer()->setOutputFileName(target);
        form.done(QDialog::Accepted);
      });
      return platform().AskPrint({"Print", false}) && platform().Print(JobOfPages({"A page\r\n"}));
    };
    QVERIFY(print());
    QVERIFY(Bytes(target).startsWith("%PDF"));
    QFile old(target);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("the old file");
    old.close();
    CallsOfFiles().write = [](int, const char*, std::size_t) -> std::int64_t {
      errno = ENOSPC;
      return -1;
    };
    const bool printed = print();
    CallsOfFiles() = SystemFileCalls();
    QVERIFY(!printed);
    QCOMPARE(Bytes(target), QByteArray("the old file"));
    QCOMPARE(QDir(temporary_->path()).entryList({"out*"}, QDir::Files | QDir::Hidden), QStringList("out.pdf"));
  }

  void APrintThatIsCancelledYieldsNothing() {
    WhenOpen<QPrintDialog>([](QPrintDialog& form) { form.reject(); });
    QVERIFY(!platform().AskPrint({"Print", false}));
  }

  void TheSelectionIsOfferedWhenThereIsOne() {
    const auto range_of = [this](bool selection) {
      std::pair<bool, bool> found;
      WhenOpen<QPrintDialog>([&found](QPrintDialog& form) {
        found = {form.testOption(QAbstractPrintDialog::PrintSelection),
                 form.printRange() == QAbstractPrintDialog::Selection};
        form.reject();
      });
      platform().AskPrint({"Print", selection});
      return found;
    };
    QCOMPARE(range_of(true), std::pair(true, true));
    QCOMPARE(range_of(false), std::pair(false, false));
  }

  // Panes and progress.

  void APaneShowsItsTextAlsoOneThatCameAheadOfTheFrame() {
    platform().SetStatusPane(1, "Ready");
    platform().SetStatusPane(3, "20 Variables");
    platform().SetStatusPane(4, "nowhere");
    QCOMPARE(panes_[0]->text(), "Ready");
    QCOMPARE(panes_[1]->text(), "");
    QCOMPARE(panes_[2]->text(), "20 Variables");
    QLabel late;
    platform().AttachFrame(frame_.get(), {&late, nullptr, nullptr}, {});
    QCOMPARE(late.text(), "Ready");
  }

  QWidget* Progress() const {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == "frmProgress" && widget->isVisible()) return widget;
    }
    return nullptr;
  }

  void ProgressGoesOnUntilCancelIsPressed() {
    QVERIFY(platform().UpdateProgress(1));  // none is shown: nobody can cancel
    platform().ShowProgress(0, 200, "Saving scores.dcs");
    QVERIFY(Progress());
    QCOMPARE(Progress()->findChild<QLabel*>("ProgressCaption")->text(), "Saving scores.dcs");
    auto* bar = Progress()->findChild<QProgressBar*>("ProgressBar");
    const auto share = [bar] { return double(bar->value() - bar->minimum()) / (bar->maximum() - bar->minimum()); };
    QVERIFY(platform().UpdateProgress(50));
    QCOMPARE(share(), 0.25);
    QVERIFY(platform().UpdateProgress(200));
    QCOMPARE(share(), 1.0);
    QVERIFY(platform().UpdateProgress(1000));
    QCOMPARE(share(), 1.0);
    Progress()->findChild<QPushButton*>("ProgressCancel")->click();
    QVERIFY(!platform().UpdateProgress(100));
    QVERIFY(!platform().UpdateProgress(101));  // it stays cancelled
    platform().HideProgress();
    QVERIFY(!Progress());
    platform().ShowProgress(10, 20, "Loading");  // and the next one begins anew
    QVERIFY(platform().UpdateProgress(15));
    auto* next = Progress()->findChild<QProgressBar*>("ProgressBar");
    QCOMPARE(double(next->value() - next->minimum()) / (next->maximum() - next->minimum()), 0.5);
    platform().HideProgress();
  }

  void EscapeCancelsTheProgress() {
    platform().ShowProgress(0, 10, "Loading");
    QTest::keyClick(Progress(), Qt::Key_Escape);
    QVERIFY(!platform().UpdateProgress(5));
    platform().HideProgress();
  }

  // The rest.

  void TheClipboardHoldsTextOfTheCodePage() {
    platform().SetClipboardText("K\xF6ln\r\n2 rows");
    QCOMPARE(platform().ClipboardText(), std::string("K\xF6ln\r\n2 rows"));
  }

  void ASoundThatIsNotThereIsNotPlayed() {
    QVERIFY(!platform().PlaySoundFile(folder() / "missing.wav"));
    QVERIFY(!platform().PlaySoundFile(folder()));
  }

  void TheFoldersAreThoseItWasGiven() {
    QCOMPARE(platform().ProgramFolder(), folder());
    QCOMPARE(platform().DocumentsFolder(), folder() / "documents");
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::QtPlatformTest)
#include "qt_platform_test.moc"
