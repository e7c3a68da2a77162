#include "desktop/flow_layout.h"

#include <algorithm>

namespace feltmaster {

FlowLayout::~FlowLayout() {
  qDeleteAll(items_);
}

void FlowLayout::addItem(QLayoutItem* item) {
  items_.append(item);
  invalidate();
}

QLayoutItem* FlowLayout::takeAt(int index) {
  if (index < 0 || index >= items_.size()) return nullptr;
  invalidate();
  return items_.takeAt(index);
}

void FlowLayout::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  Arrange(place, true);
}

QSize FlowLayout::minimumSize() const {
  QSize size;
  for (const QLayoutItem* item : items_) {
    if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
  }
  const QMargins margins = contentsMargins();
  return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

int FlowLayout::Arrange(const QRect& place, bool move) const {
  const QRect room = place.marginsRemoved(contentsMargins());
  const int gap = spacing();
  int x = room.x();
  int y = room.y();
  int row_start = 0;
  int row_height = 0;
  const auto end_row = [&](int next) {
    // The words of a row stand on one middle line.
    for (int i = row_start; move && i < next; ++i) {
      const QRect at = items_[i]->geometry();
      if (!items_[i]->isEmpty()) {
        items_[i]->setGeometry(at.translated(0, (row_height - at.height()) / 2));
      }
    }
    row_start = next;
  };
  for (int i = 0; i < items_.size(); ++i) {
    QLayoutItem* item = items_[i];
    if (item->isEmpty()) continue;
    const QSize wanted = item->sizeHint().expandedTo(item->minimumSize());
    const QSize size(std::min(wanted.width(), room.width()), wanted.height());
    if (x + size.width() > room.right() + 1 && x > room.x()) {
      end_row(i);
      x = room.x();
      y += row_height + gap;
      row_height = 0;
    }
    if (move) item->setGeometry(QRect(QPoint(x, y), size));
    x += size.width() + gap;
    row_height = std::max(row_height, size.height());
  }
  end_row(static_cast<int>(items_.size()));
  return y + row_height - place.y() + contentsMargins().bottom();
}

}  // namespace feltmaster
