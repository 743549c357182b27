#pragma once

#include <QLayout>
#include <vector>

namespace tessara {

// A row of widgets that goes on in the next row where the room ends.
class FlowLayout : public QLayout {
  Q_OBJECT

 public:
  FlowLayout(QWidget* parent, int gap);
  ~FlowLayout() override;

  // The last widget of all stands at the right edge of its row.
  void SetLastAtRight() { last_at_right_ = true; }

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;     // all in one row
  QSize minimumSize() const override;  // the largest one alone
  void setGeometry(const QRect& place) override;

 private:
  struct Row {
    std::size_t first = 0;
    std::size_t behind = 0;  // the last one
    int width = 0;
    int height = 0;
  };
  std::vector<Row> RowsWithin(int width) const;

  std::vector<QLayoutItem*> items_;
  int gap_;
  bool last_at_right_ = false;
};

}  // namespace tessara
