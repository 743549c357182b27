#pragma once

#include <QDialog>
#include <functional>

#include "shell/session.h"

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;

namespace tessara {

// Runs an operation as the frame runs a command: the views are shown anew behind it.
using FormRunner = std::function<void(const std::function<void()>& operation)>;

// "Data File Format": a small wizard. Its import page asks where the data come from, the format page behind it how they
// are to be read; the export page asks for the kind of file.
class Delimit : public QDialog {
  Q_OBJECT

 public:
  enum class Page { kImport, kFormat, kExport };

  Delimit(Session& session, Page page, FormRunner run, QWidget* parent);

  Page page() const;

 signals:
  // Help on a page of the manual is wanted.
  void HelpAsked(const QString& page);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* BuildImportPage();
  QWidget* BuildFormatPage();
  QGroupBox* BuildDelimiters();
  QWidget* BuildExportPage();
  void BuildButtons();
  // An instruction of paragraphs that wraps.
  QLabel* Instruction(const QString& text);
  void ShowPage(Page page);
  void Next();
  void ImportPageNext();
  void ExportPageNext();
  void Import();
  void GoBack();
  void StoreFormat();
  void ShowForm();
  void ShowPreview();
  QString HelpSection() const;

  Session& session_;
  FormRunner run_;
  QStackedWidget* pages_ = nullptr;
  QButtonGroup* import_options_ = nullptr;
  QButtonGroup* export_options_ = nullptr;
  QButtonGroup* delimiters_ = nullptr;
  QLineEdit* other_ = nullptr;
  QPlainTextEdit* preview_ = nullptr;
  QCheckBox* names_ = nullptr;
  QPushButton* back_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* import_ = nullptr;
};

}  // namespace tessara
