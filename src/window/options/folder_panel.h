#pragma once

#include <QFrame>

#include "platform/path.h"

class QComboBox;
class QFileSystemModel;
class QTreeView;

namespace tessara {

// A small panel that a folder is chosen in: the drives, and the folders of the one chosen.
class FolderPanel : public QFrame {
  Q_OBJECT

 public:
  explicit FolderPanel(QWidget* parent);

  // Looks at the drives anew and goes to a folder, or to the nearest one above it that is there.
  void ShowFolder(const Path& folder);
  Path Folder() const;

 signals:
  void Chosen();
  void Left();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FillDrives();
  void ShowDrive(int row);
  void GoTo(const QString& folder);

  QComboBox* drive_ = nullptr;
  QTreeView* folders_ = nullptr;
  QFileSystemModel* model_ = nullptr;
  QString wanted_;  // comes into sight when its folders have been read
};

}  // namespace tessara
