#pragma once

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>

#include "platform/scripted_platform.h"
#include "window/frame/frm_main.h"
#include "window/system/qt_platform.h"
#include "window/system/qt_settings_store.h"
#include "window/widgets/text.h"

// A window test has a program folder, a documents folder and a settings file of its own, and a frame whose dialogs are
// answered from a queue:
//
//     WindowFixture window;
//     window.script().open_answers.push_back(window.Chosen(window.WriteDataFile("scores.dcs", {...}, {...})));
//     window.Start();
//     window.Trigger(102);
//     QCOMPARE(window.Find<QLabel>("pane2")->text(), "4 Records");

namespace tessara {

// The window's own platform, but for what would wait for a user, a printer or a loudspeaker: that goes to a script,
// which answers and records.
class AnsweringPlatform : public QtPlatform {
 public:
  using QtPlatform::QtPlatform;

  ScriptedPlatform script;

  std::optional<ChosenFile> AskOpenFile(const FileDialog& dialog) override {
    BeforeDialog();
    return script.AskOpenFile(dialog);
  }
  std::optional<ChosenFile> AskSaveFile(const FileDialog& dialog) override {
    BeforeDialog();
    return script.AskSaveFile(dialog);
  }
  std::optional<PrintChoice> AskPrint(const PrintDialog& dialog) override {
    BeforeDialog();
    return script.AskPrint(dialog);
  }
  Answer ShowMessage(const MessageBox& box) override {
    BeforeDialog();
    return script.ShowMessage(box);
  }
  bool Print(const PrintJob& job) override { return script.Print(job); }
  bool Preview(const PrintJob& job) override {
    BeforeDialog();
    return script.Preview(job);
  }
  // The real file, and the job for a test that wants its words.
  bool WritePdf(const PrintJob& job, const Path& path) override {
    script.WritePdf(job, path);
    return QtPlatform::WritePdf(job, path);
  }
  // Paints on a sheet that the test can look at.
  bool PrintPicture(const std::function<void(QPainter&, const QRectF&)>& paint) override {
    if (!script.printer_works) return false;
    QImage sheet(1100, 800, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    paint(painter, QRectF(sheet.rect()));
    printed_pictures.push_back(sheet);
    return true;
  }
  bool PrintPictures(int sheets, const std::function<void(QPainter&, const QRectF&, int)>& paint) override {
    if (!script.printer_works) return false;
    for (int i = 0; i < sheets; ++i) {
      QImage sheet(800, 1100, QImage::Format_RGB32);
      sheet.fill(Qt::white);
      QPainter painter(&sheet);
      paint(painter, QRectF(sheet.rect()), i);
      painter.end();
      printed_pictures.push_back(sheet);
    }
    return true;
  }
  std::vector<QImage> printed_pictures;
  void SetStatusPane(int pane, const std::string& text) override {
    ++pane_writes[pane];
    QtPlatform::SetStatusPane(pane, text);
  }
  std::map<int, int> pane_writes;
  bool PlaySoundFile(const Path& path) override { return script.PlaySoundFile(path); }
  bool OpenOnDesktop(const QString& address) override { return script.OpenDocument(address.toStdString()); }
  DateTime Now() override { return script.Now(); }
  std::uint64_t Entropy() override { return script.Entropy(); }
};

class WindowFixture {
 public:
  // The quick tips stay away unless a test writes Op16 anew, so that the Data Grid is in front at the start.
  WindowFixture() {
    for (const char* folder : {"program/Data", "program/Help", "program/Media", "documents"}) {
      std::filesystem::create_directories(folder_ / folder);
    }
    OpenStore();
    store_->Write("Op16", "1");
    platform_ = std::make_unique<AnsweringPlatform>(PlatformFolders{program_folder(), folder_ / "documents"});
  }

  // Builds the frame and shows it, without a splash and without waiting for the timers.
  void Start(const Path& command_line_file = {}) {
    FrameStart start;
    start.command_line_file = command_line_file;
    start.splash = false;
    start.Timer1 = 0;
    start.Timer2 = 0;
    StartWith(start);
  }
  void StartWith(const FrameStart& start) {
    frame_ = std::make_unique<FrmMain>(*platform_, *store_, start);
    frame_->show();
    QVERIFY(QTest::qWaitForWindowExposed(frame_.get()));
    QApplication::setActiveWindow(frame_.get());
    QCoreApplication::processEvents();
  }
  // Lets the frame go and reads the settings file anew, as the next start of the program does.
  void End() {
    frame_.reset();
    OpenStore();
  }

  FrmMain& frame() { return *frame_; }
  Session& session() { return frame_->session(); }
  AnsweringPlatform& platform() { return *platform_; }
  ScriptedPlatform& script() { return platform_->script; }
  QtSettingsStore& store() { return *store_; }
  std::string Setting(const std::string& name) { return store_->Read(name).value_or(""); }
  Path program_folder() const { return folder_ / "program"; }
  Path documents_folder() const { return folder_ / "documents"; }
  Path folder() const { return folder_; }

  // The widget of that object name.
  template <typename Widget = QWidget>
  Widget* Find(const char* name) {
    // Views share names of boxes: the one in front comes first.
    const QString wanted = QString::fromLatin1(name);
    const QWidget* front = frame_->current_view();
    Widget* found = front ? front->findChild<Widget*>(wanted) : nullptr;
    if (!found) found = frame_->findChild<Widget*>(wanted);
    if (!found) qWarning("no widget %s", name);
    return found;
  }
  // The action of a command.
  QAction* Command(int id) { return Find<QAction>(std::to_string(id).c_str()); }
  // Chooses a command from the menus; one that is hidden or greyed does nothing, as for a user.
  void Trigger(int id) {
    QAction* action = Command(id);
    if (action && action->isVisible() && action->isEnabled()) action->trigger();
    QCoreApplication::processEvents();
  }
  void ShowView(View view) {
    frame_->ShowView(view);
    QCoreApplication::processEvents();
  }
  // What a status pane shows.
  QString Pane(int pane) { return Find<QLabel>(("pane" + std::to_string(pane)).c_str())->text(); }

  // A file in the program's Data folder.
  Path WriteFile(const Path& name, const std::string& content) {
    const Path path = name.is_absolute() ? name : program_folder() / "Data" / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  static std::string ReadFile(const Path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  // A data file with these variables, and these records of as many cells.
  Path WriteDataFile(const Path& name, const std::vector<std::string>& variables,
                     const std::vector<std::vector<std::string>>& records) {
    const auto line = [](const std::vector<std::string>& cells) {
      std::string text;
      for (std::size_t i = 0; i < cells.size(); ++i) text += (i == 0 ? "" : "\x01") + cells[i];
      return text + "\r\n";
    };
    std::string content =
        line({std::to_string(records.size()) + " " + std::to_string(variables.size()) + " Tessara data"});
    // Rows 1 to 15 are the dictionary; the names stand in the last of them.
    for (int row = 1; row <= 14; ++row) content += line(std::vector<std::string>(variables.size()));
    content += line(variables);
    for (const auto& record : records) content += line(record);
    return WriteFile(name, content);
  }
  static ChosenFile Chosen(const Path& path) { return {path, path.filename().string()}; }

 private:
  void OpenStore() { store_ = std::make_unique<QtSettingsStore>(PathToQt(folder_ / "settings.ini")); }

  QTemporaryDir temporary_;
  Path folder_ = PathFromQt(temporary_.path());
  std::unique_ptr<QtSettingsStore> store_;
  std::unique_ptr<AnsweringPlatform> platform_;
  std::unique_ptr<FrmMain> frame_;
};

}  // namespace tessara
