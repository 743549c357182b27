#pragma once

#include <QDockWidget>
#include <array>
#include <vector>

#include "shell/session.h"
#include "window/reference/help_browser.h"

class QCheckBox;
class QStackedWidget;
class QToolButton;
class QVBoxLayout;

// The docked help pane: its browser with the page of the view, another page or a document, and below it the headings
// "Documentation" and "Links", of which one at most is expanded.

namespace tessara {

class DocumentView;
class QtPlatform;

class HelpPane : public QDockWidget {
  Q_OBJECT

 public:
  HelpPane(QtPlatform& platform, Session& session, QWidget* parent);

  void ShowPage(std::string_view page);
  bool Shows(std::string_view page) const;
  // A PDF document in the place of the page. False when it cannot be shown; the page stays then.
  bool ShowDocument(const QString& file);
  // The lists anew, when the documents of the program folder have been looked for again.
  void RefreshLists();
  // Prints the page or the document that the browser shows.
  void Print();

 signals:
  // The user has closed the pane.
  void Closed();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Item {
    QString caption;
    std::string_view file;  // a document of the program folder, or a page of the Help folder
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
  void OpenDocument(std::string_view file);
  void ShowBrowser(QWidget* shown);
  bool ShowsDocument() const;
  bool HasDocument() const;
  void Back();
  void Forward();
  void RefreshButtons();
  void StoreShowAtStart(bool checked);

  QtPlatform& platform_;
  Session& session_;
  BrowserButtons buttons_;
  QStackedWidget* shown_ = nullptr;  // the browser's page or its document
  HelpBrowser* browser_ = nullptr;
  DocumentView* document_ = nullptr;  // there when a document has been opened
  QCheckBox* show_at_start_ = nullptr;
  std::array<Heading, 2> headings_;
};

}  // namespace tessara
