#pragma once

#include <QDialog>
#include <array>

#include "shell/session.h"
#include "window/grid/delimit.h"

class QAbstractButton;
class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTimer;
class QVBoxLayout;

namespace tessara {

class FolderPanel;

// "Options": three pages of settings. The appearance changes at once, the rest when it is saved.
class FrmOptions : public QDialog {
  Q_OBJECT

 public:
  FrmOptions(Session& session, FormRunner run, QWidget* parent);

 signals:
  void HelpAsked(const QString& page);
  // The settings of icons and style have changed: the frame is to show them.
  void AppearanceChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct PathRow {
    QLineEdit* box = nullptr;
    QPushButton* browse = nullptr;
    QLabel* hint = nullptr;
  };

  QWidget* MakeGeneralPage();
  QWidget* MakeFoldersPage();
  QWidget* MakeAppearancePage();
  QWidget* MakeButtons();
  QCheckBox* AddCheck(std::size_t index, const QString& caption, QWidget* page);
  PathRow AddPathRow(const char* name, const QString& caption, const QString& browse, QVBoxLayout* layout);
  void BrowseFolder();
  void TakeFolder();
  void CloseFolderPanel();
  void BrowseGlossary();
  void ShowForm();
  void ShowHints();
  void ResetPage();
  void Save();

  Session& session_;
  FormRunner run_;
  QTabWidget* pages_ = nullptr;
  std::array<QCheckBox*, 6> checks_{};
  std::array<QRadioButton*, kToolbarStyles> styles_{};
  PathRow folder_;
  PathRow glossary_;
  FolderPanel* panel_ = nullptr;  // made when a folder is first looked for
  QTimer* hint_timer_ = nullptr;
};

}  // namespace tessara
