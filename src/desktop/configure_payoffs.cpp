#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "config/payoffs.h"
#include "desktop/cell_picture.h"
#include "desktop/configure_page.h"
#include "desktop/qt_text.h"
#include "desktop/rows_table.h"
#include "view/rules_rows.h"

// The tabs Payoffs and Advantage: tables of which 21 rows are seen.

namespace feltmaster {

namespace {

constexpr int kRowsSeen = 21;

// A bar for the rows of a table, by the number of the first one seen.
QScrollBar* MakeBar(const char* name, int rows, QWidget* parent,
                    std::function<void(int)> scrolled) {
  auto* bar = new QScrollBar(Qt::Vertical, parent);
  bar->setObjectName(QString::fromLatin1(name));
  bar->setAccessibleName(QStringLiteral("Bets"));
  bar->setRange(1, rows - kRowsSeen + 1);
  bar->setPageStep(kRowsSeen - 1);
  bar->setFocusPolicy(Qt::StrongFocus);
  QObject::connect(bar, &QScrollBar::valueChanged, bar, std::move(scrolled));
  return bar;
}

// A bar that got the event itself would hand it on to its parent at its ends.
void ScrollByWheel(QScrollBar& bar, const QWheelEvent& event) {
  constexpr int kPerRow = 40;  // three rows for a notch
  bar.setValue(bar.value() - event.angleDelta().y() / kPerRow);
}

// ---- Payoffs ------------------------------------------------------------------------------------

// The columns: label, number, word and denominator of the bets, the bar, and the same of the Field.
constexpr int kBarColumn = 4;
constexpr int kFieldColumns = 5;
constexpr int kWordColumn = 2;

struct PayoffCell {
  bool of_field = false;
  int part = 0;  // 0 the label, 1 the number, 2 the word, 3 the denominator
  int row = 0;   // of the grid of bets from 0, or of the Field from 0
};

class PayoffsPage : public ConfigurePage {
 public:
  explicit PayoffsPage(const ConfigureHost& host)
      : ConfigurePage(host),
        rows_(PayoffRows(host.game)),
        cells_(
            kRowsSeen + 1, {24, 10, 6, 10, 4, 12, 10, 6, 10},
            [this](CellPlace place) { return Drawn(place); },
            {[](CellPlace place) {
               return place.row > 0 && place.column != kBarColumn && CellOf(place, 1).part != 0;
             },
             [this](CellPlace place) { return TextOf(place); },
             [this](CellPlace place) { return NumberRuleOf(SettingOf(place)); },
             [this](CellPlace place, const std::string& text) { Write(place, text); },
             [this](CellPlace place, const QString& key) { return WordKey(place, key); },
             [this](int rows) { bar_->setValue(bar_->value() + rows); }},
            "txtPayoffs") {
    bar_ = MakeBar("vsbPayoffs", kPayoffGridRows, &cells_, [this](int first) {
      cells_.Commit();
      Configure(TheGame(), "PayoffsScroll", std::to_string(first));
      cells_.ShowModel();
    });
    cells_.setObjectName(QStringLiteral("picPayoffs"));
    cells_.Editor().setAccessibleName(QStringLiteral("Payoff"));
    cells_.installEventFilter(this);
    auto* page = new QVBoxLayout(this);
    page->addWidget(&cells_, 1);
    page->addWidget(new QLabel(
        QStringLiteral("In the middle column: T for \"to\", F for \"for\", the space bar for the "
                       "other one.")));
    const int cell = host.game.PayoffsCell;
    if (cell > 0) cells_.GoTo({cell / cells_.Columns(), cell % cells_.Columns()});
  }
  ~PayoffsPage() override { cells_.removeEventFilter(this); }

  void ShowModel() override {
    rows_ = PayoffRows(TheGame());
    const QSignalBlocker no_echo(bar_);
    bar_->setValue(TheGame().PayoffsScroll);
    cells_.ShowModel();
  }
  void Commit() override {
    cells_.Commit();
    TheGame().PayoffsCell = cells_.Current().row * cells_.Columns() + cells_.Current().column;
  }
  void GoTo(const std::string& setting) override {
    ShowModel();
    for (int row = 1; row <= kRowsSeen; ++row) {
      for (const int column : {1, kFieldColumns + 1}) {
        if (SettingOf({row, column}) == setting) cells_.GoTo({row, column});
      }
    }
    cells_.Editor().setFocus();
    cells_.Editor().selectAll();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize) {
      const QRectF column = cells_.RectOf({0, kBarColumn});
      bar_->setGeometry(static_cast<int>(column.left()) + 2, 0, bar_->sizeHint().width(),
                        cells_.height());
    } else if (event->type() == QEvent::Wheel) {
      ScrollByWheel(*bar_, *static_cast<QWheelEvent*>(event));
      return true;
    }
    return ConfigurePage::eventFilter(watched, event);
  }

 private:
  static PayoffCell CellOf(CellPlace place, int first_bet_row) {
    const bool of_field = place.column >= kFieldColumns;
    return {of_field, of_field ? place.column - kFieldColumns : place.column,
            of_field ? place.row - 1 : first_bet_row + place.row - 2};
  }
  PayoffCell CellOf(CellPlace place) const { return CellOf(place, TheGame().PayoffsScroll); }

  // "PayTable(36,1)"
  std::string SettingOf(CellPlace place) const {
    const PayoffCell cell = CellOf(place);
    const int row = cell.of_field ? cell.row + 1 : kPayoffGrid[static_cast<std::size_t>(cell.row)];
    return (cell.of_field ? "FieldPayTable(" : "PayTable(") + std::to_string(row) + ',' +
           std::to_string(cell.part) + ')';
  }
  const std::string& TextOf(CellPlace place) const {
    const PayoffCell cell = CellOf(place);
    const int row = cell.of_field ? kPayoffGridRows + cell.row : cell.row;
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(cell.part)];
  }

  DrawnCell Drawn(CellPlace place) const {
    if (place.column == kBarColumn) return {.text = {}, .blank = true};
    if (place.row == 0) {
      const char* heading = place.column == 0                   ? "Bet"
                            : place.column == kFieldColumns     ? "Field"
                            : place.column % kFieldColumns == 1 ? "Pays"
                                                                : "";
      return {.text = QString::fromLatin1(heading), .heading = true, .at_left = true};
    }
    const PayoffCell cell = CellOf(place);
    const std::string& text = TextOf(place);
    DrawnCell drawn{.text = ToQt(text), .at_left = cell.part == 0};
    if (cell.part == 1 || cell.part == 3) drawn.ink = InkOfNumber(text, palette());
    if (text == "for") drawn.ink = InkOn(kForInk, palette());
    return drawn;
  }

  void Write(CellPlace place, const std::string& text) {
    Configure(TheGame(), SettingOf(place), text);
    Changed();
  }

  // All keys in a word's cell are its own.
  bool WordKey(CellPlace place, const QString& key) {
    if (CellOf(place).part != kWordColumn) return false;
    const bool is_to = TextOf(place) == "to";
    const QString letter = key.toLower();
    const bool wanted = letter == QChar('t') || (letter == QChar(' ') && !is_to);
    if (wanted != is_to && (wanted || letter == QChar('f') || letter == QChar(' '))) {
      Write(place, wanted ? "to" : "for");
    }
    return true;
  }

  static constexpr int kForInk = 13;

  Rows rows_;
  EditedCells cells_;
  QScrollBar* bar_ = nullptr;
};

// ---- Advantage ----------------------------------------------------------------------------------

class AdvantagePage : public ConfigurePage {
 public:
  explicit AdvantagePage(const ConfigureHost& host)
      : ConfigurePage(host),
        cells_(kRowsSeen + 1, {34, 13, 13, 13, 13, 15},
               [this](CellPlace place) { return Drawn(place); }) {
    bar_ = MakeBar("vsbAdvantage", kBetCount, this, [this](int first) {
      Configure(TheGame(), "AdvantageScroll", std::to_string(first));
      cells_.update();
    });
    cells_.setObjectName(QStringLiteral("picAdvantage"));
    cells_.setAccessibleName(QStringLiteral("What each bet is worth"));
    auto* page = new QHBoxLayout(this);
    page->setSpacing(0);
    page->addWidget(&cells_, 1);
    page->addWidget(bar_);
    setFocusProxy(bar_);
  }

  void ShowModel() override {
    rows_ = AdvantageRows(TheGame());
    const QSignalBlocker no_echo(bar_);
    bar_->setValue(TheGame().AdvantageScroll);
    cells_.update();
  }

 protected:
  void wheelEvent(QWheelEvent* event) override { ScrollByWheel(*bar_, *event); }

 private:
  DrawnCell Drawn(CellPlace place) const {
    const std::size_t row =
        place.row == 0 ? 0 : static_cast<std::size_t>(TheGame().AdvantageScroll + place.row - 1);
    if (row >= rows_.size()) return {.text = {}, .blank = true};
    const std::string& text = rows_[row][static_cast<std::size_t>(place.column)];
    DrawnCell drawn{.text = ToQt(text), .heading = row == 0, .at_left = place.column == 0};
    if (row > 0 && place.column > 0 && text.starts_with('-')) {
      drawn.ink = InkOfNumber(text, palette());
    }
    return drawn;
  }

  Rows rows_;
  CellPicture cells_;
  QScrollBar* bar_ = nullptr;
};

}  // namespace

ConfigurePage* MakePayoffsPage(const ConfigureHost& host) {
  return new PayoffsPage(host);
}
ConfigurePage* MakeAdvantagePage(const ConfigureHost& host) {
  return new AdvantagePage(host);
}

}  // namespace feltmaster
