#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include "config/table_colors.h"
#include "desktop/chip_picture.h"
#include "desktop/configure_page.h"
#include "desktop/die_picture.h"
#include "desktop/number_field.h"
#include "desktop/paint_tools.h"
#include "desktop/picture_grid.h"
#include "desktop/qt_text.h"

// The tab Checks/Dice.

namespace feltmaster {

namespace {

constexpr QSize kChipsSize(200, 42);
constexpr QSize kDiceSize(110, 52);

// A list that first lets somebody look whether it may drop down.
class GuardedList : public QComboBox {
 public:
  explicit GuardedList(std::function<bool()> may_drop) : may_drop_(std::move(may_drop)) {}
  void showPopup() override {
    if (may_drop_()) QComboBox::showPopup();
  }

 private:
  std::function<bool()> may_drop_;
};

class ChecksPage : public ConfigurePage {
 public:
  explicit ChecksPage(const ConfigureHost& host)
      : ConfigurePage(host),
        rate_(new NumberField(NumberRuleOf("RollsPerHour").value_or(NumberRule()))),
        unit_(new GuardedList([this] { return TakeRate(); })) {
    auto* page = new QGridLayout(this);
    page->addWidget(MakeDenominations(), 0, 0, 1, 2);
    page->addWidget(MakeDesigns(), 1, 0);
    page->addWidget(Controls().Group(QStringLiteral("Dice Action:"), {"optDiceAction"}), 1, 1);
    page->addWidget(MakeRate(), 2, 0, 1, 2);
    page->setRowStretch(3, 1);
  }

  void Leave(LeavingConfigure& leaving) override {
    if (rate_->isModified()) leaving.typed_rate = rate_->Typed();
  }

 private:
  QWidget* MakeDenominations() {
    auto* group = new QGroupBox(QStringLiteral("Check Denominations"));
    auto* rows = new QVBoxLayout(group);
    auto* fields = new QHBoxLayout;
    for (const char* name : {"txtDenomination0", "txtDenomination1", "txtDenomination2",
                             "txtDenomination3", "txtDenomination4"}) {
      fields->addWidget(Controls().Make(name));
    }
    rows->addLayout(fields);
    rows->addWidget(Controls().Make("chkUseCentsSymbol"));
    return group;
  }

  QWidget* MakeDesigns() {
    auto* group = new QGroupBox(QStringLiteral("Designs"));
    auto* form = new QFormLayout(group);
    AddPicker(form, "picChipsSelected", "picChips",
              {1, kChipDesigns, kChipsSize, [this](QPainter& painter, const QRectF& box, int row) {
                 PaintChips(painter, box, row + 1);
               }});
    AddPicker(form, "picDiceSelected", "picDice",
              {1, kDieDesigns, kDiceSize, [this](QPainter& painter, const QRectF& box, int row) {
                 PaintDice(painter, box, row + 1);
               }});
    return group;
  }

  void AddPicker(QFormLayout* form, const char* name, const char* list_name,
                 PictureGridTraits designs) {
    const SettingControl& setting = SettingOfControl(name);
    auto* picker = new DesignPicker(std::move(designs), list_name);
    picker->OnChosen = [this, &setting](int row) {
      Controls().Write(setting.control, std::to_string(row + 1));
    };
    Controls().Add(name, picker, [this, picker, &setting] {
      picker->SetDesign(static_cast<int>(ChosenValue(TheGame(), setting)) - 1);
    });
    form->addRow(ToQt(setting.caption), picker);
  }

  void PaintChips(QPainter& painter, const QRectF& box, int design) const {
    const double scale =
        std::min(box.width() / (kChipCount * 2 * kChipReach), box.height() / (2 * kChipReach));
    painter.translate(box.center());
    painter.scale(scale, scale);
    for (int chip = 1; chip <= kChipCount; ++chip) {
      PaintChip(painter, {(chip - (kChipCount + 1) / 2.0) * 2 * kChipReach, 0}, design, chip,
                ChipText(TheGame().BetAmount[kFirstChip + chip - 1], TheGame().UseCentsSymbol));
    }
  }

  void PaintDice(QPainter& painter, const QRectF& box, int design) const {
    constexpr double kRoom = 42;
    const double scale = std::min(box.width() / (2 * kRoom), box.height() / kRoom);
    const auto& colors = TheGame().TableColors;
    painter.translate(box.center());
    painter.scale(scale, scale);
    for (const int face : {3, 4}) {
      PaintDie(painter, {(face - 3.5) * kRoom, 0}, design,
               {ColorOf(colors[kColorDice]), ColorOf(colors[kColorPips])}, {face, 0, 0});
    }
  }

  // ---- The simulated rate, which is taken as soon as it is one that would not be refused --------

  QWidget* MakeRate() {
    auto* group = new QGroupBox(QStringLiteral("Sim roll rate:"));
    auto* row = new QHBoxLayout(group);
    row->addWidget(rate_);
    row->addWidget(unit_);
    row->addStretch();
    Controls().Add("txtRollsPerHour", rate_, [this] {
      if (!rate_->isModified()) ShowRate();
    });
    connect(rate_, &QLineEdit::textEdited, this, [this] {
      const std::string typed = rate_->Typed();
      if (!RollsPerHourOf(typed, TheGame().RollsPerTimeUnit)) return;
      Controls().Write("txtRollsPerHour", typed);
    });
    for (const std::string_view text : kRateUnitTexts) unit_->addItem(ToQt(text));
    Controls().Add("cmbRollsPerTime", unit_,
                   [this] { unit_->setCurrentIndex(TheGame().RollsPerTimeUnit); });
    connect(unit_, &QComboBox::activated, this, [this](int unit) {
      if (!TakeRate()) {
        unit_->setCurrentIndex(TheGame().RollsPerTimeUnit);
        return;
      }
      Controls().Write("cmbRollsPerTime", std::to_string(unit));
      ShowRate();
    });
    return group;
  }

  void ShowRate() {
    const std::string rate = ShowRollsPerHour(TheGame(), TheGame().RollsPerTimeUnit);
    // "<.0001" is no number that could be typed; it goes when one is.
    const bool too_small = rate.starts_with('<');
    rate_->setPlaceholderText(too_small ? ToQt(rate) : QString());
    const QString text = too_small ? QString() : ToQt(rate);
    if (rate_->text() != text) rate_->setText(text);
    rate_->setModified(false);
  }

  // False when the player has been told that it cannot be.
  bool TakeRate() {
    if (!rate_->isModified()) return true;
    if (!SetRollsPerHour(TheGame(), rate_->Typed(), TheGame().RollsPerTimeUnit)) {
      rate_->setFocus();
      return false;
    }
    rate_->setModified(false);
    Changed();
    return true;
  }

  NumberField* rate_;
  QComboBox* unit_;
};

}  // namespace

ConfigurePage* MakeChecksPage(const ConfigureHost& host) {
  return new ChecksPage(host);
}

}  // namespace feltmaster
