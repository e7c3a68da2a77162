#include "desktop/frm_flags.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <vector>

#include "desktop/dialog_tools.h"
#include "desktop/menu_table.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "view/table_rows.h"

namespace feltmaster {

FlagsScreen::FlagsScreen(Screens& screens)
    : ScreenWindow(screens, kTraits), list_(new QListWidget), none_(new QLabel(list_)) {
  Game& game = TheGame();
  AddFileMenu(*this, game,
              {.report = "flags",
               .rows = [&game] { return FlagRows(game); },
               .picture = list_,
               .caption = "Fi&le"});  // Alt+F sets flags
  AddHelpMenu(*this, game);

  auto* const body = new QWidget(this);
  setCentralWidget(body);
  auto* const row = new QHBoxLayout(body);
  list_->setObjectName("lstShowflags");
  list_->setAccessibleName("Flag Values");
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setTextElideMode(Qt::ElideMiddle);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setMinimumSize(Letters(*list_, 26), Letters(*list_, 20));
  row->addWidget(list_, 1);
  none_->setText("The script has no flags.");
  none_->setAlignment(Qt::AlignCenter);
  none_->setWordWrap(true);
  none_->setEnabled(false);
  auto* const over_list = new QVBoxLayout(list_->viewport());
  over_list->addWidget(none_);

  const auto set = [this](FlagButton button) { return [this, button] { SetSelected(button); }; };
  auto* const column = new QVBoxLayout;
  buttons_ = {
      AddButton(*column, {"cmdSelectAll", "&Select All",
                          [this] {
                            list_->selectAll();
                            list_->setFocus();
                          }}),
      AddButton(*column, {"cmdSetTruth0", "Set to &True", set(FlagButton::kTrue)}),
      AddButton(*column, {"cmdSetTruth1", "Set to &False", set(FlagButton::kFalse)}),
      AddButton(*column, {"cmdSetTruth2", "Re&verse True / False", set(FlagButton::kReverse)})};
  column->addStretch(1);
  row->addLayout(column);
  connect(list_, &QListWidget::itemDoubleClicked, this, set(FlagButton::kReverse));
}

void FlagsScreen::Refresh() {
  const Rows rows = FlagRows(TheGame());
  const auto count = static_cast<int>(rows.size());
  while (list_->count() > count) delete list_->takeItem(list_->count() - 1);
  for (int i = 0; i < count; ++i) {
    const QString text = ToQt(rows[static_cast<std::size_t>(i)][0]);
    if (i == list_->count()) {
      list_->addItem(text);
    } else if (list_->item(i)->text() != text) {
      list_->item(i)->setText(text);
    } else {
      continue;
    }
    list_->item(i)->setToolTip(text);
  }
  none_->setVisible(count == 0);
  for (QPushButton* const button : buttons_) button->setEnabled(count > 0);
}

void FlagsScreen::SetSelected(FlagButton button) {
  std::vector<std::size_t> rows;
  for (int i = 0; i < list_->count(); ++i) {
    if (list_->item(i)->isSelected()) rows.push_back(static_cast<std::size_t>(i));
  }
  PressFlagButton(TheGame(), rows, button);
  Refresh();
}

}  // namespace feltmaster
