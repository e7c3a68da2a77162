#include <QTabWidget>
#include <QApplication>
#include <QStyleFactory>
#include "desktop/at_the_table.h"
#include "desktop/frm_configure.h"
#include "dice/probability.h"
namespace feltmaster {
using ZzShots = AtTheTable;
TEST_F(ZzShots, All) {
  const bool dark = qEnvironmentVariableIsSet("DARK");
  const QPalette before = QApplication::palette();
  if (dark) {
    QPalette p(QColor(45,45,48), QColor(37,37,40));
    p.setColor(QPalette::Base, QColor(30,30,30));
    QApplication::setPalette(p);
  }
  game_->AllSoundOff = false;
  game_->StickPersonList = {"Casey", "Robin"};
  game_->DiceSoundList = {"felt.dce", "wood.dce"};
  game_->BetAmount.Set(kBankroll, MoneyAmount(1000));
  game_->BetAmount.Set(kPassLine, MoneyAmount(5));
  for (int i = 0; i < 60; ++i) { game_->BetAmount.Set(kPassLine, MoneyAmount(5)); Roll(1 + i % 6, 1 + (i * 7 / 3) % 6); }
  ToggleCellLock(*game_, 1, 6); ToggleCellLock(*game_, 3, 4);
  auto* screen = new ConfigureScreen(window_->AllScreens());
  const QByteArray size = qgetenv("SIZE");
  if (!size.isEmpty()) screen->resize(size.split('x')[0].toInt(), size.split('x')[1].toInt());
  screen->ShowInPlace();
  if (!size.isEmpty()) screen->resize(size.split('x')[0].toInt(), size.split('x')[1].toInt());
  auto* tabs = screen->findChild<QTabWidget*>();
  for (int i = 0; i < 10; ++i) {
    tabs->setCurrentIndex(i);
    QApplication::processEvents();
    screen->grab().save(QString("/tmp/configure_%1_%2.png").arg(QString::fromLatin1(qgetenv("TAG"))).arg(i));
  }
  printf("%d x %d\n", screen->width(), screen->height());
  delete screen;
  QApplication::setPalette(before);
}
}
