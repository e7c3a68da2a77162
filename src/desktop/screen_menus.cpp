#include "desktop/screen_menus.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include "desktop/picture_export.h"
#include "desktop/qt_text.h"
#include "reports/print_commands.h"
#include "surface/surface.h"

namespace feltmaster {

QAction* AddMenuEntry(QMenu& parent, const char* name, const char* caption,
                      std::function<void()> choose) {
  QAction* action = parent.addAction(QString::fromUtf8(caption));
  action->setObjectName(QString::fromLatin1(name));
  QObject::connect(action, &QAction::triggered, &parent, std::move(choose));
  return action;
}

QMenu* AddFileMenu(ScreenWindow& screen, Game& game, const FileMenu& parts) {
  QMenu* menu = screen.menuBar()->addMenu(QString::fromUtf8(parts.caption));
  menu->setObjectName(QStringLiteral("mnuFile"));
  if (const PrintCommand* report = FindPrintCommand(parts.report)) {
    AddMenuEntry(*menu, "mnuPrint", "P&rint ...", [&game, report] {
      report->print(game, Confirm::kAsk);
    })->setShortcut(QKeySequence::Print);
  }
  AddShareEntries(*menu, game, parts.rows, *parts.picture);
  menu->addSeparator();
  AddMenuEntry(*menu, "mnuClose", "&Close", [&screen] {
    screen.close();
  })->setShortcut(QKeySequence::Close);
  return menu;
}

void AddHelpMenu(ScreenWindow& screen, Game& game) {
  QMenu* menu = screen.menuBar()->addMenu(QStringLiteral("&Help"));
  AddMenuEntry(*menu, "mnuHelp", "&Contents ...",
               [&screen, &game] { game.surface->OpenHelp(screen.Traits().help_topic); });
}

QMenu* AddMenuChoice(QMenu& parent, const MenuChoice& choice) {
  QMenu* menu = parent.addMenu(QString::fromUtf8(choice.caption));
  menu->setObjectName(QString::fromLatin1(choice.name));
  auto* group = new QActionGroup(menu);
  for (const MenuChoice::Entry& entry : choice.entries) {
    const QByteArray name = choice.name + QByteArray::number(group->actions().size());
    QAction* action = AddMenuEntry(
        *menu, name, "", [choose = choice.choose, value = entry.value] { choose(value); });
    action->setText(ToQt(entry.caption));
    action->setCheckable(true);
    action->setData(entry.value);
    group->addAction(action);
  }
  // The setting may have changed by another road, as with a game that was opened.
  QObject::connect(menu, &QMenu::aboutToShow, group, [group, value = choice.value] {
    for (QAction* action : group->actions()) action->setChecked(action->data().toInt() == value());
  });
  return menu;
}

QAction* AddMenuSwitch(QMenu& parent, const MenuSwitch& entry) {
  QAction* action = parent.addAction(QString::fromUtf8(entry.caption));
  action->setObjectName(QString::fromLatin1(entry.name));
  action->setCheckable(true);
  action->setChecked(entry.is_on());
  QObject::connect(action, &QAction::triggered, &parent, entry.turn);
  QObject::connect(&parent, &QMenu::aboutToShow, action,
                   [action, is_on = entry.is_on] { action->setChecked(is_on()); });
  return action;
}

}  // namespace feltmaster
