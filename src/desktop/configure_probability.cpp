#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "base/number_format.h"
#include "desktop/cell_picture.h"
#include "desktop/configure_page.h"
#include "desktop/qt_text.h"
#include "dice/probability.h"
#include "view/probability_grid.h"

// The tab Probability.

namespace feltmaster {

namespace {

// The picture has a row of headings and a column of captions around the cells, which so keep their
// numbers.
constexpr int kEditedDecimals = 3;

// The path of a file; its middle gives way where there is no room for it.
class FileLabel : public QLabel {
 public:
  FileLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
  }
};

class ProbabilityPage : public ConfigurePage {
 public:
  explicit ProbabilityPage(const ConfigureHost& host)
      : ConfigurePage(host),
        cells_(
            kLastRollRow + 1, {7, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8},
            [this](CellPlace place) { return Drawn(place); },
            {[](CellPlace place) { return IsProbabilityCell(place.row, place.column); },
             [this](CellPlace place) {
               return FormatNumber(CellAt(place).value, "0.000;-0.000;0.000");
             },
             [this](CellPlace) {
               return NumberRule{kEditedDecimals, ShowsDifferences()};
             },
             [this](CellPlace place, const std::string& text) {
               SetProbabilityCell(TheGame(), place.row, place.column,
                                  ParseMoney(text).ToDouble() * 1000, false);
               Changed();
             },
             [this](CellPlace place, const QString& key) { return LockKey(place, key); }},
            "txtPercent") {
    cells_.setObjectName(QStringLiteral("picProbability"));
    cells_.Editor().setAccessibleName(QStringLiteral("Probability"));
    auto* page = new QVBoxLayout(this);
    page->addLayout(MakeHead());
    page->addWidget(&cells_, 1);
    page->addLayout(MakeFoot());
  }

  void ShowModel() override {
    ConfigurePage::ShowModel();
    kind_->setText(ToQt(DiceKindText(TheGame())));
    cells_.ShowModel();
  }
  void Commit() override { cells_.Commit(); }

 private:
  QLayout* MakeHead() {
    auto* head = new QGridLayout;
    head->setColumnStretch(1, 1);
    head->addWidget(Controls().Make("chkUseSkewedProbability"), 0, 0);
    auto* note =
        new QLabel(QStringLiteral("Note:  If this box is UNchecked the\n"
                                  "true probabilities will be used."));
    head->addWidget(note, 1, 0);
    auto* file = new FileLabel;
    Controls().Add("lblPrbFileName", file, [this, file] {
      file->setText(ToQt(ProbabilityFileLabel(TheGame())));
      file->setToolTip(file->text());
    });
    kind_->setObjectName(QStringLiteral("lblDiceKind"));
    kind_->setAlignment(Qt::AlignRight);
    head->addWidget(file, 0, 1);
    head->addWidget(kind_, 1, 1);
    return head;
  }

  QLayout* MakeFoot() {
    auto* foot = new QHBoxLayout;
    QWidget* options = Controls().Make("optProbability");
    OptionRows(options)->addWidget(Controls().Make("txtRollsOutOf"), kShowRolls, 1, 2, 1);
    foot->addWidget(options, 1);
    auto* right = new QVBoxLayout;
    auto* unlock = new QPushButton(QStringLiteral("Unlock All Cells"));
    unlock->setObjectName(QStringLiteral("cmdLock"));
    connect(unlock, &QPushButton::clicked, this, [this] {
      UnlockAllCells(TheGame());
      Changed();
    });
    right->addWidget(unlock, 0, Qt::AlignRight);
    right->addWidget(new QLabel(QStringLiteral("L locks a cell or frees it.")));
    right->addStretch();
    foot->addLayout(right);
    return foot;
  }

  bool ShowsDifferences() const {
    return TheGame().ProbabilityDisplay == kShowPercentOff ||
           TheGame().ProbabilityDisplay == kShowRollsOff;
  }
  ProbabilityCell CellAt(CellPlace place) const {
    return ProbabilityCellAt(TheGame(), place.row, place.column);
  }

  DrawnCell Drawn(CellPlace place) const {
    if (place.row == 0) return {.text = Heading(place.column), .heading = true};
    if (place.column == 0) {
      const bool first = place.row <= kFirstRollRow;
      const char* caption = place.row == kTotalRow ? "Total" : "Rolls";
      return {.text = first ? QString::fromLatin1(caption) : QString(),
              .at_left = true,
              .blank = !first};
    }
    if (!IsProbabilityCell(place.row, place.column)) return {.text = {}, .blank = true};
    const ProbabilityCell cell = CellAt(place);
    DrawnCell drawn{.text = ToQt(cell.text), .locked = cell.locked};
    if (place.row != kTotalRow) drawn.name = ToQt(cell.name);
    if (ShowsDifferences()) {
      drawn.ink = InkOfNumber(cell.text, palette());
    }
    return drawn;
  }

  static QString Heading(int column) {
    if (column == 0) return {};
    if (column == kFirstDieColumn) return QStringLiteral("Die 1");
    if (column == kSecondDieColumn) return QStringLiteral("Die 2");
    return QString::number(column + 1);
  }

  bool LockKey(CellPlace place, const QString& key) {
    if (key.toLower() != QChar('l')) return false;
    ToggleCellLock(TheGame(), place.row, place.column);
    Changed();
    return true;
  }

  EditedCells cells_;
  QLabel* kind_ = new QLabel;
};

}  // namespace

ConfigurePage* MakeProbabilityPage(const ConfigureHost& host) {
  return new ProbabilityPage(host);
}

}  // namespace feltmaster
