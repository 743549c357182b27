#pragma once

#include <QPointer>
#include <array>
#include <functional>
#include <memory>

#include "platform/memory.h"
#include "platform/platform.h"

class QLabel;
class QMimeData;
class QPainter;
class QPrinter;
class QRectF;
class QSoundEffect;
class QTextDocument;
class QWidget;

// The outside as the window gives it to the core.

namespace tessara {

class PlainTextRule;
class ProgressPlace;
class ProgressForm;

struct PlatformFolders {
  Path program;
  Path documents;
};

// The program folder of the running executable and the documents folder of the user's system.
PlatformFolders SystemFolders();

class QtPlatform : public Platform {
 public:
  explicit QtPlatform(PlatformFolders folders = SystemFolders());
  ~QtPlatform() override;
  QtPlatform(const QtPlatform&) = delete;
  QtPlatform& operator=(const QtPlatform&) = delete;

  // The frame that dialogs belong to, its three panes, and what it does ahead of each dialog.
  void AttachFrame(QWidget* frame, const std::array<QLabel*, 3>& panes, std::function<void()> before_dialog);

  // Where PDF documents of this machine are shown; it yields false for one that cannot be. Without it, and for all
  // else, the desktop is asked.
  void ShowDocumentsIn(std::function<bool(const QString& file)> viewer) { viewer_ = std::move(viewer); }

  // The view that shows the progress of the work that was begun in it; nothing takes it away again.
  void ShowProgressIn(ProgressPlace* place) { progress_place_ = place; }

  // Runs an operation. False when the memory did not suffice, and then the user has been told.
  template <typename Operation>
  bool WithinMemory(Operation operation) {
    return tessara::WithinMemory(*this, memory_reserve_, operation);
  }

  // Prints a page of the help. False when the printer refuses.
  virtual bool PrintDocument(const QTextDocument& document);
  // Prints one sheet across on the system's own printer: calls paint with the place to fill. False when the printer
  // refuses.
  virtual bool PrintPicture(const std::function<void(QPainter& painter, const QRectF& sheet)>& paint);
  // Prints so many sheets on the printer that was asked for: calls paint for each, counted from 0, with the place to
  // fill. False when the printer refuses.
  virtual bool PrintPictures(int sheets,
                             const std::function<void(QPainter& painter, const QRectF& place, int sheet)>& paint);
  // A picture, or what else is more than text. Takes the content over.
  void SetClipboardContent(QMimeData* content);

  std::optional<ChosenFile> AskOpenFile(const FileDialog& dialog) override;
  std::optional<ChosenFile> AskSaveFile(const FileDialog& dialog) override;
  std::optional<PrintChoice> AskPrint(const PrintDialog& dialog) override;
  Answer ShowMessage(const MessageBox& box) override;
  bool Print(const PrintJob& job) override;
  bool Preview(const PrintJob& job) override;
  bool WritePdf(const PrintJob& job, const Path& path) override;
  void ShowWaitCursor() override;
  void HideWaitCursor() override;
  void SetStatusPane(int pane, const std::string& text) override;
  void ShowNote(const std::string& text) override;
  void ShowProgress(double minimum, double maximum, const std::string& caption) override;
  bool UpdateProgress(double value) override;
  void HideProgress() override;
  std::string ClipboardText() override;
  void SetClipboard(const ClipboardContent& content) override;
  bool PlaySoundFile(const Path& path) override;
  bool OpenDocument(const std::string& address) override;
  DateTime Now() override;
  std::uint64_t Entropy() override;
  Path ProgramFolder() override;
  Path DocumentsFolder() override;
  void EnterFolder(const Path& folder) override;

 protected:
  // Ahead of every dialog, also of one that a test answers.
  void BeforeDialog();
  // Asks the program that the user's system has for a file or an address.
  virtual bool OpenOnDesktop(const QString& address);

 private:
  QWidget* DialogParent() const;
  bool ShowsProgressInPlace() const;
  void ShowPane(std::size_t index);
  // A printer for a new job: the system's own until a dialog has chosen another one for it.
  QPrinter& NewPrinter();
  std::optional<ChosenFile> AskFile(const FileDialog& dialog, bool to_save);

  PlatformFolders folders_;
  MemoryReserve memory_reserve_;
  QPointer<QWidget> frame_;
  std::array<QPointer<QLabel>, 3> panes_;
  std::array<std::string, 3> pane_texts_;
  std::string notes_;                  // of the operation at work
  std::unique_ptr<QObject> note_end_;  // whose timers go with it
  std::function<void()> before_dialog_;
  std::function<bool(const QString&)> viewer_;
  std::unique_ptr<PlainTextRule> plain_text_;
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<ProgressForm> progress_;
  ProgressPlace* progress_place_ = nullptr;
  std::unique_ptr<QSoundEffect> sound_;
};

}  // namespace tessara
