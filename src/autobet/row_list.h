#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

namespace feltmaster {

// A list on a screen whose rows are selected with the mouse and edited by Cut, Copy, Paste and
// Delete. Rows count from 1; behind the last one lies an empty row, at which the list grows.
template <typename Item>
struct RowList {
  std::vector<Item>& items;
  bool Item::*selected;
  std::int32_t& cursor;
  std::int32_t& anchor;  // the row last clicked, from which a Shift range counts; 0 for none
  std::int32_t& top;     // the first row in view

  std::int32_t Count() const { return static_cast<std::int32_t>(items.size()); }
  std::int32_t Clamped(std::int32_t row) const { return std::clamp(row, 1, Count() + 1); }
  auto Place(std::int32_t row) const {
    return items.begin() + static_cast<std::ptrdiff_t>(Clamped(row) - 1);
  }
};

enum class Click { kPlain, kCtrl, kShift };

template <typename Item>
void SelectAllRows(RowList<Item> list, bool select = true) {
  for (Item& item : list.items) item.*list.selected = select;
}

// A plain click selects the row alone, Ctrl turns it over, Shift adds the rows from behind the row
// last clicked. On the empty row a plain click only clears.
template <typename Item>
void ClickRow(RowList<Item> list, std::int32_t row, Click click) {
  row = list.Clamped(row);
  const bool empty = row > list.Count();
  if (click == Click::kPlain) {
    SelectAllRows(list, false);
    if (!empty) (*list.Place(row)).*list.selected = true;
  } else if (click == Click::kCtrl && !empty) {
    bool& selected = (*list.Place(row)).*list.selected;
    selected = !selected;
  } else if (click == Click::kShift) {
    const std::int32_t anchor = list.anchor == 0 ? row : list.Clamped(list.anchor);
    const std::int32_t first = row > anchor ? anchor + 1 : row;
    const std::int32_t last = row < anchor ? anchor - 1 : std::min(row, list.Count());
    for (std::int32_t i = first; i <= last; ++i) (*list.Place(i)).*list.selected = true;
  }
  list.anchor = list.cursor = row;
}

// Moves the cursor by so many rows, and the view after it, of which `rows_shown` rows are seen.
template <typename Item>
void MoveCursor(RowList<Item> list, std::int32_t rows, std::int32_t rows_shown) {
  list.cursor = list.Clamped(list.Clamped(list.cursor) + rows);
  list.top = std::clamp(list.top, std::max(1, list.cursor - rows_shown + 1), list.cursor);
}

template <typename Item>
std::vector<Item> SelectedRows(RowList<Item> list) {
  std::vector<Item> rows;
  std::ranges::copy_if(list.items, std::back_inserter(rows),
                       [&](const Item& item) { return item.*list.selected; });
  return rows;
}

template <typename Item>
void DeleteRows(RowList<Item> list) {
  std::erase_if(list.items, [&](const Item& item) { return item.*list.selected; });
  list.cursor = list.Clamped(list.cursor);
  list.anchor = std::min(list.anchor, list.Count() + 1);
  list.top = list.Clamped(list.top);
}

// The rows go in at the cursor and are selected, they alone.
template <typename Item>
void PasteRows(RowList<Item> list, std::vector<Item> rows) {
  SelectAllRows(list, false);
  for (Item& item : rows) item.*list.selected = true;
  list.items.insert(list.Place(list.cursor), std::make_move_iterator(rows.begin()),
                    std::make_move_iterator(rows.end()));
}

}  // namespace feltmaster
