#include "desktop/frm_ryon.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "desktop/dialog_tools.h"
#include "desktop/screens.h"
#include "dice/roll_panel.h"

namespace feltmaster {

RyonScreen::RyonScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  setWindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint);
  panel_ = new DicePanel(this, TheGame());
  panel_->Hide = [this] { close(); };
  setCentralWidget(panel_);
  panel_->setFocus();
  const int side = Letters(*this, 40);
  resize(side, side);
}

void RyonScreen::closeEvent(QCloseEvent* event) {
  ScreenWindow::closeEvent(event);
  if (!AllScreens().Closing()) ClosePanel(TheGame());
}

void RyonScreen::StepAside(bool aside) {
  const bool shown = isVisible();
  setWindowFlag(Qt::WindowStaysOnTopHint, !aside);
  setVisible(shown);  // a change of the flags has hidden it
}

void RyonScreen::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F12) {
    close();
  } else {
    ScreenWindow::keyPressEvent(event);
  }
}

}  // namespace feltmaster
