#pragma once

#include <QLabel>
#include <QWidget>
#include <span>
#include <vector>

#include "view/figure.h"

namespace feltmaster {

// The object names of a figure's two labels. The caption needs none when it never changes.
struct FigureNames {
  const char* value;
  const char* caption = nullptr;
};

// Captioned values side by side or one below the other, coloured by their tones. A heading and a
// figure without a caption stand where they belong.
class FigureGrid : public QWidget {
 public:
  // `across` pairs stand beside each other.
  FigureGrid(std::span<const FigureNames> names, int across, QWidget* parent);

  // As many figures as there are names.
  void Show(std::span<const Figure> figures);

  // Puts a control where the caption of a figure was.
  void ReplaceCaption(std::size_t figure, QWidget* control);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Pair {
    QLabel* caption;
    QLabel* value;
    Tone tone;
  };
  void Paint(const Pair& pair);

  std::vector<Pair> pairs_;
};

}  // namespace feltmaster
