#pragma once

#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QWidget>
#include <array>
#include <cstddef>
#include <functional>
#include <vector>

#include "dice/roll_panel.h"
#include "game/game.h"

namespace feltmaster {

// The cells on which the player picks the next roll, with the buttons above them and the popup menu
// of the displays. The arrow keys walk the cells, Space and Enter pick.
class DicePanel : public QWidget {
 public:
  DicePanel(QWidget* parent, Game& game);

  // Takes the panel's state, the last roll and the count of rolls from the game.
  void Refresh();
  QMenu& DisplayMenu() { return menu_; }

  // "Hide" of the popup menu.
  std::function<void()> Hide;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* AddButton(const char* name, std::string_view caption, void (*press)(Game&));
  void BuildMenu();
  void AddSwitch(const char* name, const char* caption, bool RollPanel::*option);
  void StateChanged();
  void LayOut();
  void Pick(QPoint at);
  void Walk(int key);
  void TellCell();
  void PaintCells(QPainter& painter) const;
  QFont CellFont() const;

  Game& game_;
  RollPanel panel_;
  PanelLayout layout_;
  std::vector<RollCell> cells_;
  std::size_t cell_ = 0;  // where the arrow keys have come
  QPushButton* hyper_drive_ = nullptr;
  QPushButton* random_roll_ = nullptr;
  QMenu menu_;
  std::array<QAction*, kPanelDisplayCaptions.size()> displays_{};
  std::array<QAction*, kPanelColorCaptions.size()> colors_{};
  struct Switch {
    QAction* action;
    bool RollPanel::*option;
  };
  std::vector<Switch> switches_;
};

}  // namespace feltmaster
