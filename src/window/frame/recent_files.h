#pragma once

#include <QMenu>
#include <QObject>
#include <vector>

#include "platform/platform.h"
#include "platform/settings_store.h"

// The data files that were used last, newest first, as a submenu. They are kept in the settings store beside the
// options, at most eight; one that is no longer there goes. Their names may be any bytes.

namespace tessara {

class RecentFiles : public QObject {
  Q_OBJECT

 public:
  explicit RecentFiles(SettingsStore& store, QWidget* parent);

  QMenu* menu() { return menu_; }
  const std::vector<Path>& files() const { return files_; }

  void Add(const Path& file);
  void Remove(const Path& file);

 signals:
  void Chosen(const Path& file);

 private:
  void DropMissing();
  void Store();
  void Fill();

  SettingsStore& store_;
  QMenu* menu_;
  std::vector<Path> files_;
};

}  // namespace tessara
