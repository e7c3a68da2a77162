#include "desktop/about_dialog.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "desktop/dialog_tools.h"
#include "desktop/program_icon.h"

namespace feltmaster {

namespace {

class AboutDialog : public GameDialog {
 public:
  AboutDialog(QWidget* parent, Game& game, UserSettings& settings)
      : GameDialog(parent, game, "frmAbout", 0), settings_(settings) {
    setWindowTitle(QStringLiteral("About Feltmaster"));
    auto* const row = new QHBoxLayout(this);
    const int margin = Letters(*this, 4);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(margin);
    auto* const picture = new QLabel(this);
    QPixmap drawn = ProgramPicture(static_cast<int>(128 * devicePixelRatioF()));
    drawn.setDevicePixelRatio(devicePixelRatioF());
    picture->setPixmap(drawn);
    picture->setAccessibleName(QStringLiteral("A chip and a die"));
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(Texts(), 1);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
  }

 private:
  QBoxLayout* Texts() {
    auto* const column = new QVBoxLayout;
    column->setSpacing(Letters(*this, 1.5));
    const auto add = [&](const char* name, const char* text, double size) {
      auto* const label = new QLabel(QString::fromUtf8(text), this);
      label->setObjectName(QString::fromLatin1(name));
      label->setTextInteractionFlags(Qt::TextSelectableByMouse);
      QFont font = label->font();
      font.setPointSizeF(font.pointSizeF() * size);
      font.setBold(size > 1);
      label->setFont(font);
      column->addWidget(label);
    };
    add("lblName", "Feltmaster", 1.8);
    add("lblVersion", "Version " FELTMASTER_VERSION, 1);
    add("lblAbout",
        "A crapless craps table, and a laboratory for betting strategies.\n"
        "Bets, rules, dice and payoffs are yours to set; scripts play them\n"
        "by the million. F1 opens the guide.",
        1);
    column->addStretch(1);
    auto* const greets = new QCheckBox(QStringLiteral("Show this at the &start"), this);
    greets->setObjectName(QStringLiteral("chkGreets"));
    greets->setChecked(settings_.Greets());
    QObject::connect(greets, &QCheckBox::toggled, this,
                     [this](bool on) { settings_.SetGreets(on); });
    auto* const ok = new QPushButton(QStringLiteral("&OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* const below = new QHBoxLayout;
    below->addWidget(greets, 1);
    below->addWidget(ok);
    column->addLayout(below);
    return column;
  }

  UserSettings& settings_;
};

}  // namespace

void ShowAbout(QWidget* parent, Game& game, UserSettings& settings) {
  AboutDialog(parent, game, settings).exec();
}

}  // namespace feltmaster
