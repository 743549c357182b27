#include "window/frame/recent_files.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/files.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr std::size_t kMostFiles = 8;
constexpr const char* kSettingName = "RecentFiles";  // one path a line
constexpr char kBetween = '\n';

}  // namespace

RecentFiles::RecentFiles(SettingsStore& store, QWidget* parent)
    : QObject(parent), store_(store), menu_(new QMenu(tr("Open &Recent"), parent)) {
  menu_->setObjectName("RecentFiles");
  menu_->setIcon(ThemeIcon("document-open-recent"));
  menu_->setToolTipsVisible(true);
  const QString stored = QString::fromStdString(store_.Read(kSettingName).value_or(""));
  for (const QString& file : stored.split(kBetween, Qt::SkipEmptyParts)) files_.push_back(PathFromQt(file));
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

void RecentFiles::Store() {
  QStringList lines;
  for (const Path& file : files_) lines += PathToQt(file);
  store_.Write(kSettingName, lines.join(kBetween).toStdString());
}

void RecentFiles::Fill() {
  menu_->clear();
  for (std::size_t i = 0; i < files_.size(); ++i) {
    const QString file = PathToQt(files_[i]);
    QString name = QFileInfo(file).fileName();
    name.replace('&', "&&");
    QAction* action = menu_->addAction(QString("&%1  %2").arg(i + 1).arg(name));
    action->setToolTip(file);
    connect(action, &QAction::triggered, this, [this, file] { emit Chosen(file); });
  }
  menu_->setEnabled(!files_.empty());
}

}  // namespace tessara
