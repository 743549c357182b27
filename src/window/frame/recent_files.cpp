#include "window/frame/recent_files.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/files.h"
#include "shell/path_list.h"
#include "shell/settings.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr std::size_t kMostFiles = 8;

// A file's name as the text of a menu entry: on one line, and without access letters of its own.
QString EntryName(const QString& file) {
  QString name = QFileInfo(file).fileName();
  for (QChar& c : name) {
    if (c.category() == QChar::Other_Control) c = ' ';
  }
  return name.replace('&', "&&");
}

}  // namespace

RecentFiles::RecentFiles(SettingsStore& store, QWidget* parent)
    : QObject(parent), store_(store), menu_(new QMenu(tr("Open &Recent"), parent)) {
  menu_->setObjectName("RecentFiles");
  menu_->setIcon(ThemeIcon("document-open-recent"));
  menu_->setToolTipsVisible(true);
  files_ = PathsOfList(store_.Read(std::string(kRecentFilesSetting)).value_or(""));
  connect(menu_, &QMenu::aboutToShow, this, [this] {
    DropMissing();
    Fill();
  });
  DropMissing();
  Fill();
}

void RecentFiles::Add(const Path& file) {
  std::erase(files_, file);
  files_.insert(files_.begin(), file);
  if (files_.size() > kMostFiles) files_.resize(kMostFiles);
  Store();
  Fill();
}

void RecentFiles::Remove(const Path& file) {
  if (std::erase(files_, file) == 0) return;
  Store();
  Fill();
}

void RecentFiles::DropMissing() {
  const auto missing = [](const Path& file) { return !FactsOfFile(file); };
  if (std::erase_if(files_, missing) != 0) Store();
}

void RecentFiles::Store() { store_.Write(std::string(kRecentFilesSetting), PathListText(files_)); }

void RecentFiles::Fill() {
  menu_->clear();
  for (std::size_t i = 0; i < files_.size(); ++i) {
    const QString file = PathToQt(files_[i]);
    QAction* action = menu_->addAction(QString("&%1  ").arg(i + 1) + EntryName(file));
    action->setToolTip(file);
    connect(action, &QAction::triggered, this, [this, path = files_[i]] { emit Chosen(path); });
  }
  menu_->setEnabled(!files_.empty());
}

}  // namespace tessara
