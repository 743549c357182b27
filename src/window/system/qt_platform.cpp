#include "window/system/qt_platform.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPaintEngine>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QSoundEffect>
#include <QStandardPaths>
#include <QTextDocument>
#include <QTimer>
#include <QUrl>
#include <cstdlib>
#include <new>

#include "platform/files.h"
#include "window/system/desktop_programs.h"
#include "window/system/page_painter.h"
#include "window/system/plain_text_rule.h"
#include "window/system/printer_job.h"
#include "window/system/progress_form.h"
#include "window/system/progress_place.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr std::size_t kNotePane = 1;
constexpr const char* kReady = "Ready";

// The pointer of a dialog is an arrow, also when the operation that asks runs under the wait cursor.
class PlainCursor {
 public:
  PlainCursor() {
    while (QApplication::overrideCursor()) {
      QApplication::restoreOverrideCursor();
      ++depth_;
    }
  }
  ~PlainCursor() {
    for (; depth_ > 0; --depth_) QApplication::setOverrideCursor(Qt::WaitCursor);
  }
  PlainCursor(const PlainCursor&) = delete;
  PlainCursor& operator=(const PlainCursor&) = delete;

 private:
  int depth_ = 0;
};

// "Text files (*.txt)|*.txt|All files (*.*)|*.*" as a list of filters.
QStringList NameFilters(const std::string& filter) {
  const QStringList parts = ToQt(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString caption = parts[i].section(" (", 0, 0);
    const QString patterns = parts[i + 1] == "*.*" ? QString("*") : QString(parts[i + 1]).replace(';', ' ');
    filters += caption + " (" + patterns + ")";
  }
  return filters;
}

// A folder for a dialog to start in; of a file's path, its folder.
QString StartFolder(const Path& folder) {
  const QFileInfo info(PathToQt(folder));
  return info.isFile() ? info.absolutePath() : info.absoluteFilePath();
}

QMessageBox::StandardButtons BoxButtons(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOk:
      return QMessageBox::Ok;
    case Buttons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon BoxIcon(Tone tone) {
  switch (tone) {
    case Tone::kInformation:
      return QMessageBox::Information;
    case Tone::kQuestion:
      return QMessageBox::Question;
    case Tone::kWarning:
    case Tone::kRefusal:
      return QMessageBox::Warning;
  }
  return QMessageBox::NoIcon;
}

// A box that is closed without a button means Cancel, or No where there is no Cancel.
Answer AnswerOf(int button, Buttons buttons) {
  if (button == QMessageBox::Ok) return Answer::kOk;
  if (button == QMessageBox::Yes) return Answer::kYes;
  if (button == QMessageBox::No) return Answer::kNo;
  if (buttons == Buttons::kOk) return Answer::kOk;
  return buttons == Buttons::kYesNo ? Answer::kNo : Answer::kCancel;
}

// A dialog of the window system's ends the program when the memory fails it midway, some of it in threads of their own.
// Asked for ahead of it, the memory can be refused in good order: std::bad_alloc comes out.
void RequireRoomForDialog() {
  constexpr std::size_t kRoom = std::size_t{32} << 20;
  void* const volatile room = std::malloc(kRoom);  // NOLINT: only tried
  if (!room) throw std::bad_alloc();
  std::free(room);  // NOLINT
}

// What a preview asks for: to be shown, or to be printed by its button.
bool PaintSeen(QPrinter& printer, const PrintJob& job) {
  const bool is_shown = printer.paintEngine()->type() == QPaintEngine::Picture;
  if (is_shown) return PaintJob(printer, job);
  return PaintOnPrinter(printer, [&job](QPagedPaintDevice& device) { return PaintJob(device, job); });
}

}  // namespace

PlatformFolders SystemFolders() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const bool exists = !documents.isEmpty() && QFileInfo(documents).isDir();
  return {FindProgramFolder(), exists ? PathFromQt(documents) : UserDocumentsFolder()};
}

QtPlatform::QtPlatform(PlatformFolders folders)
    : folders_(std::move(folders)), note_end_(std::make_unique<QObject>()) {}
QtPlatform::~QtPlatform() = default;

void QtPlatform::AttachFrame(QWidget* frame, const std::array<QLabel*, 3>& panes, std::function<void()> before_dialog) {
  frame_ = frame;
  plain_text_ = std::make_unique<PlainTextRule>();
  before_dialog_ = std::move(before_dialog);
  for (std::size_t i = 0; i < panes.size(); ++i) {
    panes_[i] = panes[i];
    if (panes_[i]) panes_[i]->setTextFormat(Qt::PlainText);
    if (!pane_texts_[i].empty() || i + 1 == kNotePane) ShowPane(i);
  }
}

void QtPlatform::BeforeDialog() {
  if (before_dialog_) before_dialog_();
}

// The window that the user works in, so that no dialog opens behind it: the frame, or a window beside it.
QWidget* QtPlatform::DialogParent() const {
  auto* active = qobject_cast<QDialog*>(QApplication::activeWindow());
  const QWidget* owner = active ? active->parentWidget() : nullptr;
  const bool is_progress = qobject_cast<ProgressForm*>(active) != nullptr;
  return owner && !is_progress && owner->window() == frame_ ? active : frame_.data();
}

std::optional<ChosenFile> QtPlatform::AskFile(const FileDialog& dialog, bool to_save) {
  RequireRoomForDialog();
  BeforeDialog();
  const PlainCursor cursor;
  QFileDialog form(DialogParent(), ToQt(dialog.title), StartFolder(dialog.initial_folder));
  form.setNameFilters(NameFilters(dialog.filter));
  form.setAcceptMode(to_save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  form.setFileMode(to_save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  form.setOption(QFileDialog::DontConfirmOverwrite, !dialog.overwrite_prompt);
  form.setDefaultSuffix(ToQt(dialog.default_extension));
  // A name that is typed without an ending takes that of the kind of file chosen.
  QObject::connect(&form, &QFileDialog::filterSelected, &form, [&form](const QString& filter) {
    const QString ending = filter.section("*.", 1, 1).section(QRegularExpression("[ )]"), 0, 0);
    if (!form.defaultSuffix().isEmpty() && !ending.isEmpty()) form.setDefaultSuffix(ending);
  });
  if (!dialog.initial_name.empty()) form.selectFile(ToQt(dialog.initial_name));
  if (form.exec() != QDialog::Accepted || form.selectedFiles().isEmpty()) return std::nullopt;
  const QString file = form.selectedFiles().front();
  return ChosenFile{PathFromQt(file), FromQt(QFileInfo(file).fileName())};
}

std::optional<ChosenFile> QtPlatform::AskOpenFile(const FileDialog& dialog) { return AskFile(dialog, false); }
std::optional<ChosenFile> QtPlatform::AskSaveFile(const FileDialog& dialog) { return AskFile(dialog, true); }

// Each job has a printer of its own: a file that was chosen for one must not be written again by the next, and one that
// has failed must not spoil those that follow.
QPrinter& QtPlatform::NewPrinter() {
  printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *printer_;
}

bool QtPlatform::PrintDocument(const QTextDocument& document) {
  if (!printer_) NewPrinter();
  return PaintOnPrinter(*printer_, [&](QPagedPaintDevice& device) {
    document.print(&device);
    return true;
  });
}

bool QtPlatform::PrintPicture(const std::function<void(QPainter&, const QRectF&)>& paint) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  return PaintOnPrinter(printer, [&](QPagedPaintDevice& device) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    paint(painter, QRectF(0, 0, device.width(), device.height()));
    return painter.end();
  });
}

bool QtPlatform::PrintPictures(int sheets, const std::function<void(QPainter&, const QRectF&, int)>& paint) {
  if (!printer_) NewPrinter();
  return PaintOnPrinter(*printer_, [&](QPagedPaintDevice& device) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    for (int sheet = 0; sheet < sheets; ++sheet) {
      if (sheet > 0 && !device.newPage()) return false;
      paint(painter, QRectF(0, 0, device.width(), device.height()), sheet);
    }
    return painter.end();
  });
}

std::optional<PrintChoice> QtPlatform::AskPrint(const PrintDialog& dialog) {
  RequireRoomForDialog();
  BeforeDialog();
  const PlainCursor cursor;
  QPrintDialog form(&NewPrinter(), DialogParent());
  form.setWindowTitle(ToQt(dialog.title));
  form.setOption(QAbstractPrintDialog::PrintPageRange, false);
  form.setOption(QAbstractPrintDialog::PrintSelection, dialog.offer_selection);
  form.setPrintRange(dialog.offer_selection ? QAbstractPrintDialog::Selection : QAbstractPrintDialog::AllPages);
  if (form.exec() != QDialog::Accepted) return std::nullopt;
  const PrintChoice choice{std::max(1, printer_->copyCount())};
  printer_->setCopyCount(1);  // the caller repeats the pages itself
  return choice;
}

Answer QtPlatform::ShowMessage(const MessageBox& box) {
  BeforeDialog();
  const PlainCursor cursor;
  QMessageBox form(BoxIcon(box.tone), ToQt(box.title), QString(), BoxButtons(box.buttons), DialogParent());
  form.setTextFormat(Qt::PlainText);
  form.setText(ToQtLines(box.text));
  // What cannot be brought back does not go with a key that was pressed too early.
  if (box.buttons == Buttons::kYesNo && box.tone == Tone::kWarning) form.setDefaultButton(QMessageBox::No);
  return AnswerOf(form.exec(), box.buttons);
}

bool QtPlatform::Print(const PrintJob& job) {
  if (!printer_) NewPrinter();
  if (!job.title.empty()) printer_->setDocName(ToQt(job.title));
  return PaintOnPrinter(*printer_, [&job](QPagedPaintDevice& device) { return PaintJob(device, job); });
}

bool QtPlatform::Preview(const PrintJob& job) {
  RequireRoomForDialog();
  BeforeDialog();
  const PlainCursor cursor;
  QPrintPreviewDialog form(&NewPrinter(), DialogParent());
  form.setWindowTitle("Print Preview");
  bool painted = true;
  QObject::connect(&form, &QPrintPreviewDialog::paintRequested, &form,
                   [&](QPrinter* printer) { painted = PaintSeen(*printer, job); });
  form.exec();
  return painted;
}

bool QtPlatform::WritePdf(const PrintJob& job, const Path& path) {
  const auto pdf = MakePdf(job);
  return pdf &&
         WriteWholeFile(path, {pdf->constData(), static_cast<std::size_t>(pdf->size())}) == WriteResult::kWritten;
}

void QtPlatform::ShowWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
void QtPlatform::HideWaitCursor() { QApplication::restoreOverrideCursor(); }

void QtPlatform::SetStatusPane(int pane, const std::string& text) {
  if (pane < 1 || pane > 3) return;
  const auto index = static_cast<std::size_t>(pane - 1);
  pane_texts_[index] = text;
  ShowPane(index);
}

void QtPlatform::ShowPane(std::size_t index) {
  if (!panes_[index]) return;
  std::string shown = pane_texts_[index];
  if (index + 1 == kNotePane && !notes_.empty())
    shown = shown.empty() || shown == kReady ? notes_ : shown + "; " + notes_;
  panes_[index]->setText(ToQt(shown));
}

bool QtPlatform::ShowsProgressInPlace() const { return progress_place_ && progress_place_->Takes(); }

void QtPlatform::ShowProgress(double minimum, double maximum, const std::string& caption) {
  if (ShowsProgressInPlace()) return progress_place_->Open(minimum, maximum, ToQt(caption));
  if (!progress_) progress_ = std::make_unique<ProgressForm>(frame_);
  progress_->Open(minimum, maximum, ToQt(caption));
}

// An operation's notes stand beside what it says in the pane, whichever comes first, and leave it with that.
void QtPlatform::ShowNote(const std::string& text) {
  if (notes_.empty()) QTimer::singleShot(0, note_end_.get(), [this] { notes_.clear(); });
  notes_ += (notes_.empty() ? "" : "; ") + text;
  ShowPane(kNotePane - 1);
}

bool QtPlatform::UpdateProgress(double value) {
  if (!ShowsProgressInPlace()) return !progress_ || progress_->Step(value);
  progress_place_->Step(value);
  return true;
}

void QtPlatform::HideProgress() {
  if (ShowsProgressInPlace()) progress_place_->Close();
  progress_.reset();
}

// Other programs end their lines in LF alone, or Qt has made it so.
std::string QtPlatform::ClipboardText() {
  QString text = QApplication::clipboard()->text();
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return FromQtLines(text);
}

void QtPlatform::SetClipboard(const ClipboardContent& content) {
  auto* data = new QMimeData;
  data->setText(ToQt(content.text));
  if (!content.html.empty()) data->setHtml(ToQt(content.html));
  SetClipboardContent(data);
}

void QtPlatform::SetClipboardContent(QMimeData* content) { QApplication::clipboard()->setMimeData(content); }

bool QtPlatform::PlaySoundFile(const Path& path) {
  const QString file = PathToQt(path);
  if (!QFileInfo(file).isFile()) return false;
  if (!sound_) sound_ = std::make_unique<QSoundEffect>();
  sound_->stop();
  sound_->setSource(QUrl::fromLocalFile(file));
  sound_->play();
  return sound_->status() != QSoundEffect::Error;
}

bool QtPlatform::OpenDocument(const std::string& address) {
  const QString file = PathToQt(PathFromUtf8(address));
  if (viewer_ && file.endsWith(".pdf", Qt::CaseInsensitive) && QFileInfo(file).isFile()) return viewer_(file);
  return OpenOnDesktop(QString::fromStdString(address));
}

bool QtPlatform::OpenOnDesktop(const QString& address) {
  if (QFileInfo::exists(address)) {
    return DesktopHasProgramFor(address) && QDesktopServices::openUrl(QUrl::fromLocalFile(address));
  }
  const QUrl url(address, QUrl::StrictMode);
  return url.isValid() && !url.scheme().isEmpty() && QDesktopServices::openUrl(url);
}

DateTime QtPlatform::Now() { return LocalNow(); }
std::uint64_t QtPlatform::Entropy() { return SystemEntropy(); }
Path QtPlatform::ProgramFolder() { return folders_.program; }
Path QtPlatform::DocumentsFolder() { return folders_.documents; }
void QtPlatform::EnterFolder(const Path& folder) {
  std::error_code ignored;
  std::filesystem::current_path(folder, ignored);
}

}  // namespace tessara
