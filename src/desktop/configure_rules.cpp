#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "desktop/configure_page.h"
#include "desktop/figure_grid.h"
#include "desktop/number_field.h"
#include "desktop/qt_text.h"
#include "engine/place_bet.h"

// The tabs of plain controls: Bets, Bankroll and Misc.

namespace feltmaster {

namespace {

class BetsPage : public ConfigurePage {
 public:
  explicit BetsPage(const ConfigureHost& host) : ConfigurePage(host) {
    auto* columns = new QHBoxLayout(this);
    columns->addWidget(Controls().Group(
        QStringLiteral("Limits"),
        {"txtMinPlacardBet", "txtMaxPlacardBet", "txtOddsAllowed2", "txtOddsAllowed3",
         "txtOddsAllowed4", "txtOddsAllowed5", "txtOddsAllowed6", "txtMaxOddsBet",
         "txtMaxPropBetPayoff", "cmbOddsCalcMethod", "chkAllowPutBets"}));
    auto* vigorish = new QGroupBox(QStringLiteral("Vigorish"));
    auto* families = new QVBoxLayout(vigorish);
    families->addWidget(Controls().Group(QStringLiteral("Buy bets"),
                                         {"txtBuyVigPct", "optBuyVig", "cmbRoundBuyVig"}));
    families->addWidget(Controls().Group(QStringLiteral("Lay bets"),
                                         {"txtLayVigPct", "optLayVig", "cmbRoundLayVig"}));
    families->addStretch();
    columns->addWidget(vigorish);
  }
};

constexpr FigureNames kBankrollNames[] = {
    {"lblCurrentBankroll"}, {"lblInvestedBankroll"}, {"lblNet", "lblWonLost"}};

class BankrollPage : public ConfigurePage {
 public:
  explicit BankrollPage(const ConfigureHost& host) : ConfigurePage(host) {
    auto* new_game =
        Controls().Group(QStringLiteral("For every new game:"), {"optBankrollInitType"});
    // The amount stands beside the option that uses it.
    QGridLayout* options = OptionRows(Controls().ControlOf("BankrollInitType"));
    auto* first = new QHBoxLayout;
    first->addItem(options->takeAt(0));
    first->addWidget(Controls().Make("txtBankrollInitAmount"));
    first->addStretch();
    options->addLayout(first, 0, 0, 1, 3);

    auto* atm = new QGroupBox(QStringLiteral("ATM"));
    auto* row = new QHBoxLayout(atm);
    row->addWidget(Controls().Make("txtAddSub"));
    AddAtmButton(row, QStringLiteral("Withdraw"), Atm::kWithdraw);
    AddAtmButton(row, QStringLiteral("Deposit"), Atm::kDeposit);
    row->addStretch();

    auto* now = new QGroupBox(QStringLiteral("Bankroll"));
    auto* rows = new QVBoxLayout(now);
    rows->addWidget(&figures_, 0, Qt::AlignLeft);
    rows->addWidget(Controls().Make("chkAllowNegBankroll"));

    auto* page = new QVBoxLayout(this);
    for (QWidget* group : {static_cast<QWidget*>(new_game), static_cast<QWidget*>(now),
                           static_cast<QWidget*>(atm)}) {
      page->addWidget(group);
    }
    page->addStretch();
  }

  void ShowModel() override {
    ConfigurePage::ShowModel();
    figures_.Show(BankrollFigures(TheGame()));
  }

 private:
  void AddAtmButton(QHBoxLayout* row, const QString& caption, Atm direction) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QStringLiteral("cmdAddSub%1").arg(static_cast<int>(direction)));
    connect(button, &QPushButton::clicked, this, [this, direction] {
      ATMTransaction(TheGame(), direction, TheGame().ATMAmount, true);
      Changed();
    });
    row->addWidget(button);
  }

  FigureGrid figures_{kBankrollNames, 1, this};
};

class MiscPage : public ConfigurePage {
 public:
  explicit MiscPage(const ConfigureHost& host) : ConfigurePage(host) {
    auto* generator =
        Controls().Group(QStringLiteral("RNG"), {"cmbRNG", "optSeedRNG", "chkReSeed"});
    auto* seed = new QPushButton(QStringLiteral("&Seed RNG"));
    seed->setObjectName(QStringLiteral("cmdSeedRNG"));
    last_seed_->setObjectName(QStringLiteral("lblLastSeed"));
    connect(seed, &QPushButton::clicked, this, [this] {
      SeedGenerator(TheGame());
      Changed();
    });
    auto* row = new QHBoxLayout;
    row->addWidget(seed);
    row->addWidget(new QLabel(QStringLiteral("Last seed:")));
    row->addWidget(last_seed_);
    row->addStretch();
    static_cast<QFormLayout*>(generator->layout())->addRow(row);

    auto* notices =
        Controls().Group(QStringLiteral("Notices"),
                         {"chkNotify0", "chkNotify1", "chkNotify2", "chkNotify3", "chkNotify4"});
    auto* page = new QGridLayout(this);
    page->addWidget(generator, 0, 0);
    page->addWidget(notices, 0, 1);
    page->addWidget(
        Controls().Group(QStringLiteral("Pointer and printer"), {"chkSnapMouse", "chkColorPrint"}),
        1, 0, 1, 2);
    page->setRowStretch(2, 1);
  }

  void ShowModel() override {
    ConfigurePage::ShowModel();
    last_seed_->setText(QString::number(TheGame().LastSeed));
  }

 private:
  QLabel* last_seed_ = new QLabel;
};

}  // namespace

ConfigurePage* MakeBetsPage(const ConfigureHost& host) {
  return new BetsPage(host);
}
ConfigurePage* MakeBankrollPage(const ConfigureHost& host) {
  return new BankrollPage(host);
}
ConfigurePage* MakeMiscPage(const ConfigureHost& host) {
  return new MiscPage(host);
}

}  // namespace feltmaster
