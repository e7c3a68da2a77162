#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <array>
#include <optional>

#include "desktop/games_histogram.h"
#include "desktop/painted_list.h"
#include "desktop/screen_window.h"
#include "files/games_log_commands.h"
#include "stats/games_analysis.h"

class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStackedWidget;

namespace feltmaster {

class AmountField;

// The Games Log: how one of the 32 values of the logged games is distributed. The log stays on the
// disk; what is held is the analysis of it.
class GamesScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmGames", "Games Log", 1070, kGamesScreen};
  explicit GamesScreen(Screens& screens);

  void Refresh() override;

  // Analyses the log anew. A long one shows how far it has come, and the player can give up.
  void Analyze();

 protected:
  bool MayClose() override { return !analysing_; }
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  QWidget* ChoicePanel();
  QWidget* PicturePanel();
  QWidget* RangePanel();
  void BuildProgress();

  int Value() const;  // which of the 32
  void FollowLog();   // games were added by the table, or another log is in use
  std::optional<GamesAnalysis> Analysed(const GamesProgress& progress);
  bool ShowProgress(double share);
  void Find(FindDirection direction);

  Rows ShownRows();
  void ShowAnalysis();
  void ShowRange();
  void ShowRangeFigures();
  void ShowData();
  void ShowView();
  void ScrollTo(std::int64_t game_number);

  std::optional<GamesAnalysis> analysis_;
  std::string analysed_log_;
  bool analysing_ = false;
  bool given_up_ = false;
  QElapsedTimer since_analysis_;
  qint64 took_ = 0;  // milliseconds, the last analysis
  QTimer follow_;

  QComboBox* view_;
  std::array<QCheckBox*, kGameOutcomes> include_{};
  std::array<QLabel*, kGameOutcomes> outcome_{};
  std::array<QLabel*, kGameOutcomes + 1> games_{};
  std::array<QLabel*, kGameOutcomes + 1> percent_{};
  std::array<QLabel*, 15> caption_{};
  std::array<QLabel*, 17> current_{};
  std::array<QRadioButton*, 2> display_{};
  QStackedWidget* pages_;
  QLabel* highest_;
  GamesHistogramView histogram_;
  PaintedList data_;
  QLabel* range_of_;
  std::array<AmountField*, 2> values_{};
  std::array<AmountField*, 2> deviations_{};
  QFrame* progress_;
  QProgressBar* bar_;
  QPushButton* give_up_;
};

}  // namespace feltmaster
