#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <array>

#include "config/comps.h"
#include "desktop/configure_page.h"
#include "desktop/figure_grid.h"
#include "desktop/qt_text.h"
#include "engine/sounds.h"
#include "engine/table_effects.h"
#include "view/summary.h"

// The tabs Sound and Comps.

namespace feltmaster {

namespace {

// ---- Sound ------------------------------------------------------------------------------------

struct SoundRow {
  const char* list;
  const char* test;
};
constexpr std::array<SoundRow, 4> kSoundRows = {{{"cmbStickPerson", "cmdTestStickPerson"},
                                                 {"cmbDiceSound", "cmdTestDice"},
                                                 {"cmbChipSound", "cmdTestChips"},
                                                 {"cmbWinSound", "cmdTestWin"}}};

class SoundPage : public ConfigurePage {
 public:
  explicit SoundPage(const ConfigureHost& host) : ConfigurePage(host) {
    auto* page = new QVBoxLayout(this);
    page->addWidget(Controls().Make("chkDisableAllSound"));
    page->addWidget(heard_);
    page->addStretch();

    auto* rows = new QGridLayout(heard_);
    rows->setColumnStretch(1, 1);
    rows->addWidget(Controls().Make("chkAutoBetSounds"), 0, 0, 1, 3);
    for (const SoundRow& sound : kSoundRows) AddSound(rows, sound);
    AddVolume(rows);
  }

  void ShowModel() override {
    ConfigurePage::ShowModel();
    heard_->setEnabled(!TheGame().AllSoundOff);
    const QSignalBlocker no_echo(volume_);
    volume_->setValue(TheGame().surface->Volume());
  }

 private:
  void AddSound(QGridLayout* rows, const SoundRow& sound) {
    const SettingControl& setting = SettingOfControl(sound.list);
    QWidget* list = Controls().Make(sound.list);
    auto* caption = new QLabel(ToQt(setting.caption) + QChar(':'));
    caption->setBuddy(list);
    auto* test = new QPushButton(QStringLiteral("Test"));
    test->setObjectName(QString::fromLatin1(sound.test));
    test->setAccessibleName(QStringLiteral("Test: ") + ToQt(setting.caption));
    connect(test, &QPushButton::clicked, this, [this, &setting] { Test(setting); });
    const int row = rows->rowCount();
    rows->addWidget(caption, row, 0);
    rows->addWidget(list, row, 1);
    rows->addWidget(test, row, 2);
  }

  void Test(const SettingControl& setting) {
    Game& game = TheGame();
    if (setting.sounds != &Game::StickPersonList) {
      PlayChosenClip(game, game.*setting.sounds,
                     static_cast<std::int32_t>(ChosenValue(game, setting)), false);
    } else if (!game.StickCallFiles[kClipPointMade].empty()) {
      game.surface->PlaySound(game.StickCallFiles[kClipPointMade], false);
    }
  }

  void AddVolume(QGridLayout* rows) {
    volume_->setObjectName(QStringLiteral("vsbVolume"));
    volume_->setRange(0, 100);
    volume_->setSingleStep(4);
    volume_->setPageStep(20);
    connect(volume_, &QSlider::valueChanged, this,
            [this](int volume) { TheGame().surface->SetVolume(volume); });
    auto* caption = new QLabel(QStringLiteral("&Volume:"));
    caption->setBuddy(volume_);
    const int row = rows->rowCount();
    rows->addWidget(caption, row, 0);
    rows->addWidget(volume_, row, 1, 1, 2);
  }

  QWidget* heard_ = new QGroupBox(QStringLiteral("Sounds"));
  QSlider* volume_ = new QSlider(Qt::Horizontal);
};

// ---- Comps ------------------------------------------------------------------------------------

struct MarkButton {
  const char* name;
  const char* caption;
  BetMark mark;
};
constexpr std::array<MarkButton, 3> kMarkButtons = {{{"cmdYes", "Yes", BetMark::kYes},
                                                     {"cmdNo", "No", BetMark::kNo},
                                                     {"cmdDefault", "Default", BetMark::kDefault}}};

constexpr FigureNames kCompNames[] = {{"lblCompdata0"}, {"lblCompdata1"}, {"lblCompdata2"},
                                      {"lblCompdata3"}, {"lblCompdata4"}, {"lblCompdata5"},
                                      {"lblCompdata6"}};

class CompsPage : public ConfigurePage {
 public:
  explicit CompsPage(const ConfigureHost& host) : ConfigurePage(host) {
    auto* page = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    page->addLayout(left);
    left->addWidget(
        Controls().Group(QStringLiteral("Rate"), {"txtCompRate", "chkCompsUseTrueProbs"}));
    left->addWidget(Controls().Group(QStringLiteral("Figure comps based on:"), {"optBaseComps"}));
    auto* worth = new QGroupBox(QStringLiteral("Comps so far"));
    (new QVBoxLayout(worth))->addWidget(&figures_);
    left->addWidget(worth);
    left->addStretch();
    page->addWidget(MakeBets(), 1);
  }

  void ShowModel() override {
    ConfigurePage::ShowModel();
    figures_.Show(CompFigures(TheGame()));
  }

 private:
  QWidget* MakeBets() {
    auto* group = new QGroupBox(QStringLiteral("Bets figured in comps"));
    auto* rows = new QVBoxLayout(group);
    rows->addWidget(bets_, 1);
    auto* buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    bets_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    bets_->setUniformItemSizes(true);
    for (int bet = 1; bet <= kBetCount; ++bet) new QListWidgetItem(bets_);
    Controls().Add("lstCompBets", bets_, [this] { ShowBets(); });
    connect(bets_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* line) {
      BetSet bet;
      bet.Add(bets_->row(line) + 1);
      Mark(bet, BetMark::kToggle);
    });
    for (const MarkButton& button : kMarkButtons) {
      AddButton(buttons, button.name, button.caption,
                [this, mark = button.mark] { Mark(Selected(), mark); });
    }
    AddButton(buttons, "cmdSelectAll", "Select All", [this] { bets_->selectAll(); });
    return group;
  }

  void AddButton(QHBoxLayout* row, const char* name, const char* caption,
                 std::function<void()> press) {
    auto* button = new QPushButton(QString::fromLatin1(caption));
    button->setObjectName(QString::fromLatin1(name));
    connect(button, &QPushButton::clicked, this, std::move(press));
    row->addWidget(button);
  }

  BetSet Selected() const {
    BetSet selected;
    for (const QListWidgetItem* line : bets_->selectedItems()) selected.Add(bets_->row(line) + 1);
    return selected;
  }

  void Mark(const BetSet& bets, BetMark mark) {
    MarkCompBets(TheGame(), bets, mark);
    Changed();
  }

  void ShowBets() {
    const std::vector<std::string> lines = CompBetLines(TheGame());
    for (int row = 0; row < bets_->count(); ++row) {
      const QString line = ToQt(lines[static_cast<std::size_t>(row)]);
      if (bets_->item(row)->text() != line) bets_->item(row)->setText(line);
    }
  }

  QListWidget* bets_ = new QListWidget;
  FigureGrid figures_{kCompNames, 1, this};
};

}  // namespace

ConfigurePage* MakeSoundPage(const ConfigureHost& host) {
  return new SoundPage(host);
}
ConfigurePage* MakeCompsPage(const ConfigureHost& host) {
  return new CompsPage(host);
}

}  // namespace feltmaster
