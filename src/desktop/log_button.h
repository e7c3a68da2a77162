#pragma once

#include <QPushButton>
#include <functional>

namespace feltmaster {

// A button that composes a line, and from which the line can be dragged to its place.
class LogButton : public QPushButton {
 public:
  LogButton(const char* name, const char* caption, QWidget* parent);

  // Composes the line; false when it was refused.
  std::function<bool()> compose = [] { return false; };

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QPoint pressed_at_;
};

}  // namespace feltmaster
