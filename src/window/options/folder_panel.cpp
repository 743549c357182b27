#include "window/options/folder_panel.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStorageInfo>
#include <QTreeView>

#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kRowsOfFolders = 7;
constexpr int kColumnsOfNames = 40;

// Where a system shows the volumes that its user has put in.
bool IsOfTheUser(const QString& root) {
  for (const char* place : {"/media/", "/run/media/", "/mnt/", "/Volumes/"}) {
    if (root.startsWith(QLatin1String(place))) return true;
  }
  return false;
}

// The roots to choose from: each with its caption and its path.
QList<std::pair<QString, QString>> Drives() {
  QList<std::pair<QString, QString>> drives = {{QObject::tr("Home (%1)").arg(QDir::homePath()), QDir::homePath()}};
  for (const QFileInfo& drive : QDir::drives()) {
    const QString path = drive.absoluteFilePath();
    drives += {path == "/" ? QObject::tr("This computer (/)") : path, path};
  }
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    if (!IsOfTheUser(volume.rootPath())) continue;
    drives += {volume.displayName() + " (" + volume.rootPath() + ")", volume.rootPath()};
  }
  return drives;
}

// The folder itself, or the nearest one above it that is there.
QString NearestFolder(QString folder) {
  while (!QFileInfo(folder).isDir()) {
    const QString above = QFileInfo(folder).path();
    if (above == folder || above == ".") return QDir::homePath();
    folder = above;
  }
  return QDir(folder).absolutePath();
}

bool IsWithin(const QString& folder, const QString& root) {
  return folder == root || folder.startsWith(root.endsWith('/') ? root : root + '/');
}

}  // namespace

FolderPanel::FolderPanel(QWidget* parent) : QFrame(parent), model_(new QFileSystemModel(this)) {
  setFrameShape(QFrame::StyledPanel);
  model_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
  model_->setReadOnly(true);
  drive_ = new QComboBox(this);
  drive_->setObjectName("Drive1");
  drive_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  drive_->setMinimumContentsLength(kColumnsOfNames / 2);
  folders_ = new QTreeView(this);
  folders_->setObjectName("Dir1");
  folders_->setAccessibleName(tr("Folder"));
  FocusOutline::AskFor(folders_);
  folders_->setModel(model_);
  folders_->setHeaderHidden(true);
  folders_->setUniformRowHeights(true);
  folders_->setExpandsOnDoubleClick(true);
  for (int column = 1; column < model_->columnCount(); ++column) folders_->hideColumn(column);
  folders_->installEventFilter(this);
  FollowFont(folders_, [this] {
    folders_->setMinimumHeight(folders_->fontMetrics().lineSpacing() * kRowsOfFolders);
    folders_->setMinimumWidth(folders_->fontMetrics().averageCharWidth() * kColumnsOfNames);
  });
  auto* drive = new QLabel(tr("D&rive"), this);
  drive->setBuddy(drive_);
  auto* folder = new QLabel(tr("F&older"), this);
  folder->setBuddy(folders_);
  auto* choose = new QPushButton(tr("Choos&e"), this);
  choose->setObjectName("Command5");
  choose->setToolTip(tr("Take the folder that is marked; with none marked, the drive itself"));
  auto* leave = new QPushButton(tr("Ca&ncel"), this);
  leave->setObjectName("Command6");
  leave->setToolTip(tr("Leave the folder as it was"));
  for (QPushButton* button : {choose, leave}) button->setAutoDefault(false);

  auto* layout = new QGridLayout(this);
  layout->addWidget(drive, 0, 0);
  layout->addWidget(drive_, 0, 1);
  layout->addWidget(folder, 1, 0, Qt::AlignTop);
  layout->addWidget(folders_, 1, 1, 2, 1);
  layout->addWidget(choose, 0, 2);
  layout->addWidget(leave, 1, 2, Qt::AlignTop);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(2, 1);
  setTabOrder(drive_, folders_);
  setTabOrder(folders_, choose);
  setTabOrder(choose, leave);
  connect(drive_, &QComboBox::activated, this, &FolderPanel::ShowDrive);
  connect(choose, &QPushButton::clicked, this, &FolderPanel::Chosen);
  connect(leave, &QPushButton::clicked, this, &FolderPanel::Left);
  connect(model_, &QFileSystemModel::directoryLoaded, this, [this] {
    if (!wanted_.isEmpty()) folders_->scrollTo(model_->index(wanted_), QAbstractItemView::PositionAtCenter);
  });
}

void FolderPanel::FillDrives() {
  drive_->clear();
  for (const auto& [caption, path] : Drives()) drive_->addItem(caption, path);
}

void FolderPanel::ShowFolder(const Path& folder) {
  FillDrives();
  const QString nearest = NearestFolder(PathToQt(folder));
  int best = 0;  // the drive that is nearest above the folder
  qsizetype length = -1;
  for (int row = 0; row < drive_->count(); ++row) {
    const QString root = drive_->itemData(row).toString();
    if (!IsWithin(nearest, root) || root.size() <= length) continue;
    best = row;
    length = root.size();
  }
  drive_->setCurrentIndex(best);
  ShowDrive(best);
  GoTo(nearest);
  folders_->setFocus();
}

void FolderPanel::ShowDrive(int row) {
  const QString root = drive_->itemData(row).toString();
  folders_->setRootIndex(model_->setRootPath(root));
  GoTo(root);
}

// The root of a drive has no line of its own: nothing is marked then.
void FolderPanel::GoTo(const QString& folder) {
  wanted_.clear();
  const QModelIndex index = model_->index(folder);
  folders_->setCurrentIndex(index == folders_->rootIndex() ? QModelIndex() : index);
  if (!folders_->currentIndex().isValid()) return;
  wanted_ = folder;
  folders_->expand(index);
  folders_->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

Path FolderPanel::Folder() const {
  const QModelIndex current = folders_->currentIndex();
  return PathFromQt(current.isValid() ? model_->filePath(current) : drive_->currentData().toString());
}

// Enter chooses and Escape leaves the panel, not the whole dialog.
bool FolderPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched != folders_ || event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
  wanted_.clear();  // the user goes on from here
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    emit Chosen();
    return true;
  }
  return false;
}

}  // namespace tessara
