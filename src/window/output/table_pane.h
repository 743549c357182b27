#pragma once

#include <QWidget>
#include <functional>

#include "data/edit/cell_entry.h"
#include "platform/memory.h"
#include "presentation/table_face.h"
#include "shell/session.h"

// The summary table as the other face of the Output view: the sheet, the box that lies over its current cell while it
// is typed into, and what both of them do to the table of the session.

namespace tessara {

class GridText2;
class TableSheet;

class TablePane : public QWidget {
  Q_OBJECT

 public:
  TablePane(Session& session, QWidget* parent);

  void ShowSession();
  // Ends an entry that is open: what was typed is part of the table for whatever comes next.
  void StoreEntry();
  void SetZoom(int percent);
  void FocusSheet();

 signals:
  void CommandRequested(int id);
  void SessionChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ConnectSheet();
  void ConnectEntry();
  TableGrid& grid() const { return session_.table.grid; }
  TableFace& face() const { return session_.table.face; }
  // Text that is typed over the cell replaces it; without one the cell's own text is edited.
  void BeginEntry(const QString* typed);
  void EndEntry(TableMove move);
  void CloseEntry();
  // Writes what was typed. False when the memory did not suffice: the box stays open then.
  bool WriteEntry();
  void PlaceEntry();
  void Change(const std::function<void()>& operation);
  void ShowMenu(const QPoint& place);

  Session& session_;
  TableSheet* sheet_ = nullptr;
  GridText2* text_ = nullptr;
  bool entering_ = false;
  bool typed_over_ = false;  // the text of the box takes the place of the cell's
  MemoryReserve memory_reserve_;
};

}  // namespace tessara
