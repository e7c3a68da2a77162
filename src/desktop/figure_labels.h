#pragma once

#include <QLabel>
#include <QWidget>
#include <string_view>
#include <vector>

#include "view/figure.h"

namespace feltmaster {

// Figures of a screen, one under the other: caption, and the value in the ink of its tone.
class FigureLabels : public QWidget {
 public:
  // The object names of the values, in the order of the figures.
  explicit FigureLabels(const std::vector<std::string_view>& names);

  void Show(const Figures& figures);

 private:
  struct Pair {
    QLabel* caption;
    QLabel* value;
  };
  std::vector<Pair> pairs_;
};

}  // namespace feltmaster
