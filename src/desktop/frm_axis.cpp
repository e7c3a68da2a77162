#include "desktop/frm_axis.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <array>

#include "base/number_format.h"
#include "config/table_colors.h"
#include "desktop/dialog_tools.h"
#include "desktop/die_picture.h"
#include "desktop/number_field.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"
#include "dice/probability.h"

namespace feltmaster {

namespace {

struct AxisOption {
  const char* caption;
  int low;  // the faces at its ends
  int high;
};
// In the order of DieAxis.
constexpr std::array<AxisOption, 3> kAxes = {
    {{" About the 1-6 axis", 1, 6}, {" About the 2-5 axis", 2, 5}, {" About the 3-4 axis", 3, 4}}};
constexpr NumberRule kPercentRule = {2, false};
constexpr MoneyAmount kWhole = MoneyAmount(100);

// One die: how well it is kept, and the axis about which it turns.
class DieGroup : public QGroupBox {
 public:
  DieGroup(int die, const Game& game)
      : QGroupBox(QStringLiteral("Die %1").arg(die)),
        colors_{ColorOf(game.TableColors[kColorDice]), ColorOf(game.TableColors[kColorPips])},
        effectiveness_(new NumberField(kPercentRule)) {
    setObjectName(QStringLiteral("picAxisDie%1").arg(die));
    auto* rows = new QGridLayout(this);
    rows->setRowMinimumHeight(0, kPictureHeight);
    auto* caption = new QLabel(QStringLiteral(" Shooter's effectiveness:"));
    caption->setBuddy(effectiveness_);
    effectiveness_->setObjectName(QStringLiteral("txtDie%1SE").arg(die));
    effectiveness_->setText(QStringLiteral("0"));
    connect(effectiveness_, &QLineEdit::textEdited, this, [this] {
      if (ParseMoney(effectiveness_->Typed()) > kWhole) effectiveness_->setText("100");
    });
    rows->addWidget(caption, 1, 0);
    rows->addWidget(effectiveness_, 1, 1);
    rows->addWidget(new QLabel(QStringLiteral("%")), 1, 2);
    for (const AxisOption& axis : kAxes) {
      auto* option = new QRadioButton(QString::fromLatin1(axis.caption));
      const int index = static_cast<int>(axes_->buttons().size());
      option->setObjectName(QStringLiteral("optAxisDie%1_%2").arg(die).arg(index));
      axes_->addButton(option, index);
      rows->addWidget(option, 2 + index, 0, 1, 3);
    }
    axes_->button(0)->setChecked(true);
    connect(axes_, &QButtonGroup::idToggled, this, [this] { update(); });
  }

  DieControl Control() const {
    return {ParseMoney(effectiveness_->Typed()).ToDouble(),
            static_cast<DieAxis>(axes_->checkedId())};
  }

 protected:
  // The two faces at the ends of the axis, and the way the die turns between them.
  void paintEvent(QPaintEvent* event) override {
    QGroupBox::paintEvent(event);
    constexpr double kSide = 34;
    constexpr double kApart = 64;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(width() / 2.0, layout()->itemAt(0)->geometry().top() - 0.5 * kSide - 14);
    const AxisOption& axis = kAxes[static_cast<std::size_t>(axes_->checkedId())];
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.5, Qt::DashLine));
    painter.drawLine(middle - QPointF(kApart, 0), middle + QPointF(kApart, 0));
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2.5));
    painter.drawArc(SquareAround(middle, kSide * 0.4), 60 * 16, 270 * 16);
    const QPointF tip = middle + QPointF(0.2, -0.346) * kSide;
    painter.drawLine(tip, tip + QPointF(-8, 1));
    painter.drawLine(tip, tip + QPointF(-1, 8));
    for (const auto& [face, side] : {std::pair{axis.low, -1}, std::pair{axis.high, 1}}) {
      const QPointF centre = middle + QPointF(side * kApart, 0);
      PaintPrintedDie(painter, centre - QPointF(kSide, kSide) / 2, kSide, colors_, face);
    }
  }

 private:
  static constexpr int kPictureHeight = 48;
  DieColors colors_;
  NumberField* effectiveness_;
  QButtonGroup* axes_ = new QButtonGroup(this);
};

}  // namespace

bool ShowAxisScreen(QWidget* parent, Game& game) {
  GameDialog screen(parent, game, "frmAxis", 0);
  screen.setWindowTitle(QStringLiteral("Percentage dice about an axis"));
  auto* rows = new QVBoxLayout(&screen);
  auto* dice = new QHBoxLayout;
  rows->addLayout(dice);
  auto* first = new DieGroup(1, game);
  auto* second = new DieGroup(2, game);
  dice->addWidget(first);
  dice->addWidget(second);

  auto* buttons = new QHBoxLayout;
  rows->addLayout(buttons);
  buttons->addStretch();
  const auto add_button = [&](const char* name, const char* caption, auto press) {
    auto* button = new QPushButton(QString::fromLatin1(caption));
    button->setObjectName(QString::fromLatin1(name));
    QObject::connect(button, &QPushButton::clicked, &screen, press);
    buttons->addWidget(button);
    return button;
  };
  add_button("cmdAxisOK", "Accept", [&] { screen.accept(); })->setDefault(true);
  add_button("cmdAxisCancel", "Cancel", [&] { screen.reject(); });

  if (screen.exec() != QDialog::Accepted) return false;
  ComputeAxisDice(game, first->Control(), second->Control());
  return true;
}

}  // namespace feltmaster
