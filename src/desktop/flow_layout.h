#pragma once

#include <QLayout>
#include <QList>

namespace feltmaster {

// Widgets one behind the other like words, in as many rows as the width needs.
class FlowLayout : public QLayout {
 public:
  explicit FlowLayout(QWidget* parent) : QLayout(parent) {}
  ~FlowLayout() override;

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override { return items_.value(index); }
  QLayoutItem* takeAt(int index) override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return Arrange(QRect(0, 0, width, 0), false); }
  void setGeometry(const QRect& place) override;
  QSize sizeHint() const override { return minimumSize(); }
  QSize minimumSize() const override;

 private:
  // Gives the height that the rows take.
  int Arrange(const QRect& place, bool move) const;

  QList<QLayoutItem*> items_;
};

}  // namespace feltmaster
