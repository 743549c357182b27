#pragma once

#include <QDockWidget>
#include <array>
#include <vector>

#include "shell/session.h"

class QCheckBox;
class QToolButton;
class QVBoxLayout;

// The docked help pane: the page of the view, and below it the headings "Documentation" and "Links", of which one at
// most is expanded.

namespace tessara {

class HelpBrowser;
class QtPlatform;

class HelpPane : public QDockWidget {
  Q_OBJECT

 public:
  HelpPane(QtPlatform& platform, Session& session, QWidget* parent);

  void ShowPage(std::string_view page);
  bool Shows(std::string_view page) const;
  // The lists anew, when the documents of the program folder have been looked for again.
  void RefreshLists();

 signals:
  // The user has closed the pane.
  void Closed();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Item {
    QString caption;
    Path file;
  };
  struct Heading {
    QToolButton* caption = nullptr;
    QWidget* list = nullptr;
    QVBoxLayout* items = nullptr;
  };

  void AddHeading(std::size_t index, const QString& title, QVBoxLayout* layout);
  void Expand(std::size_t index, bool expanded);
  void FillLabels();
  std::vector<Item> Items(std::size_t heading) const;
  void OpenItem(const Path& file);
  void StoreShowAtStart(bool checked);

  QtPlatform& platform_;
  Session& session_;
  HelpBrowser* browser_ = nullptr;
  QCheckBox* show_at_start_ = nullptr;
  std::array<Heading, 2> headings_;
};

}  // namespace tessara
