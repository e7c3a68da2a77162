#include "desktop/desktop_surface.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

#include "base/calendar.h"
#include "desktop/file_window.h"
#include "desktop/help_window.h"
#include "desktop/message_dialog.h"
#include "desktop/print_document.h"
#include "desktop/print_preview.h"
#include "desktop/qt_text.h"
#include "desktop/settle_dialog.h"
#include "desktop/step_dialog.h"
#include "desktop/table_canvas.h"
#include "engine/entry_box.h"
#include "engine/sounds.h"
#include "reports/report_pages.h"
#include "table/scene.h"

namespace feltmaster {

namespace {

using std::chrono::system_clock;

constexpr int kFrame = 16;            // milliseconds between two pictures of what moves
constexpr qint64 kEventsEvery = 12;   // milliseconds, in Hyper-Drive without a throttle
constexpr qint64 kRestOfDrawing = 4;  // times what drawing took pass from one refresh to the next
constexpr int kRollsPerLook = 32;     // a look at the clock costs a good part of a roll

// The dice as they are thrown: five throws of a tenth of a second, each from place to place.
constexpr int kThrows = 5;
constexpr int kThrowTime = 100;  // milliseconds
constexpr Pixel kThrowFrom = {35, 50};
constexpr int kThrowWidth = 405;
constexpr int kThrowHeight = 320;

class Within {
 public:
  explicit Within(int& depth) : depth_(depth) { ++depth_; }
  ~Within() { --depth_; }
  Within(const Within&) = delete;
  Within& operator=(const Within&) = delete;

 private:
  int& depth_;
};

// Lets events through for so many milliseconds, a frame at most.
void Pause(qint64 milliseconds, QEventLoop::ProcessEventsFlags events = QEventLoop::AllEvents) {
  QEventLoop pause;
  const auto time = static_cast<int>(std::min<qint64>(milliseconds, kFrame));
  QTimer::singleShot(time, Qt::PreciseTimer, &pause, &QEventLoop::quit);
  pause.exec(events);
}

constexpr Pixel kShowerFrom = {50, 19};
constexpr Pixel kShowerTo = {620, 386};
constexpr int kShowerChips = 1000;
constexpr int kShowerPerFrame = 10;

}  // namespace

DesktopSurface::DesktopSurface(Game& game, const std::string& data_folder, std::string guide_folder)
    : game_(game),
      settings_(data_folder),
      guide_folder_(std::move(guide_folder)),
      plain_(std::random_device{}()) {
  sounds_.SetVolume(settings_.Volume());
  since_events_.start();
  since_screens_.start();
  stale_screens_.setSingleShot(true);
  QObject::connect(&stale_screens_, &QTimer::timeout, [this] { RefreshScreensRested(); });
}

DesktopSurface::~DesktopSurface() = default;

void DesktopSurface::SetWindows(QWidget* table, TableCanvas* canvas, Screens* screens) {
  table_ = table;
  canvas_ = canvas;
  screens_ = screens;
}

// ---- Events and time --------------------------------------------------------------------------

void DesktopSurface::LetEventsThrough() {
  if (game_.HyperDriveActive && settings_.Unlimited()) {
    if (++rolls_since_look_ < kRollsPerLook) return;
    rolls_since_look_ = 0;
    if (since_events_.elapsed() < kEventsEvery) return;
  }
  const Within within(letting_through_);
  since_events_.restart();
  QApplication::processEvents();
  drawing_ += since_events_.restart();
}

void DesktopSurface::Wait(double seconds, const bool& goes_on) {
  const Within within(letting_through_);
  QElapsedTimer waited;
  waited.start();
  const auto whole = static_cast<qint64>(seconds * 1000);
  QApplication::processEvents();  // also when there is no time to wait
  while (goes_on && waited.elapsed() < whole) Pause(whole - waited.elapsed());
}

// The setting is looked at again and again: the player may push the throttle during a long wait.
void DesktopSurface::Throttle(int) {
  const Within within(letting_through_);
  QElapsedTimer waited;
  waited.start();
  while (!settings_.Unlimited() && game_.KeepRolling) {
    const qint64 left = (10LL << std::clamp(game_.ThrottleSetting, 0, 10)) - waited.elapsed();
    if (left <= 0) return;
    Pause(left);
  }
}

std::int32_t DesktopSurface::MillisecondClock() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(milliseconds));
}

double DesktopSurface::SecondsSinceMidnight() {
  const CalendarTime now = Now();
  const auto since_epoch = system_clock::now().time_since_epoch();
  const double fraction = std::fmod(std::chrono::duration<double>(since_epoch).count(), 1.0);
  return now.hour * 3600 + now.minute * 60 + now.second + fraction;
}

CalendarTime DesktopSurface::Now() {
  return LocalCalendar(system_clock::now());
}

double DesktopSurface::PlainUniform() {
  return std::uniform_real_distribution<double>(0, 1)(plain_);
}

// ---- Dialogs ----------------------------------------------------------------------------------

bool DesktopSurface::TableMinimised() {
  return table_ == nullptr || table_->isMinimized();
}

QWidget* DesktopSurface::DialogParent() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  return table_;
}

QWidget* DesktopSurface::ReadyForDialog() {
  if (canvas_ != nullptr) canvas_->ShowNow();
  if (screens_stale_) RefreshScreensNow();
  return DialogParent();
}

MessageReply DesktopSurface::ShowMessage(const MessageRequest& request) {
  const MessageReply reply = ShowMessageDialog(ReadyForDialog(), game_, request);
  if (canvas_ != nullptr) canvas_->ClearShower();
  return reply;
}

void DesktopSurface::ShowNotice(std::string_view title, std::string_view text) {
  ShowNoticeWindow(DialogParent(), title, text);
}

SettleReply DesktopSurface::ShowSettle(const SettleRequest& request) {
  return ShowSettleDialog(ReadyForDialog(), game_, request);
}

bool DesktopSurface::ShowStep(const StepRequest& request) {
  return ShowStepDialog(ReadyForDialog(), game_, request, [this](WindowCommand which) {
    if (screens_ != nullptr) screens_->Open(which);
  });
}

std::string DesktopSurface::AskFile(const FileRequest& request) {
  const std::string name = AskFileName(ReadyForDialog(), game_, request);
  if (!name.empty()) {  // until what is done with the file lets events through again
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QTimer::singleShot(0, [] { QApplication::restoreOverrideCursor(); });
  }
  return name;
}

// ---- Sound ------------------------------------------------------------------------------------

void DesktopSurface::PlaySound(std::string_view file, bool wait) {
  sounds_.Play(std::string(file), wait);
}

void DesktopSurface::SetVolume(int volume) {
  settings_.SetVolume(volume);
  sounds_.SetVolume(settings_.Volume());
}

// ---- The picture ------------------------------------------------------------------------------

void DesktopSurface::TableChanged(std::uint32_t what) {
  if (canvas_ == nullptr) return;
  canvas_->Change(what);
  if ((what & kChangedAll) == kChangedAll)
    table_->setWindowTitle(ToQt(TableTitle(game_, table_->isMinimized())));
}

void DesktopSurface::ShowBanner(std::string_view text) {
  if (canvas_ != nullptr) canvas_->SetBanner(std::string(text));
}

// Presses and keys wait until the dice lie, so that nothing changes the table under a roll.
void DesktopSurface::AnimateDice() {
  if (canvas_ == nullptr || TableMinimised()) return;
  const auto random = [this](int below) { return static_cast<int>(PlainUniform() * below); };
  const auto box_in_the_way = [this](Pixel die) {
    if (!EntryBoxOpen(game_)) return false;
    const std::optional<Pixel> place = PlaceOf(game_, game_.EntryBoxBet);
    return place && EntryBoxAt(*place).Overlaps({die.x, die.y, die.x + kDieSize, die.y + kDieSize});
  };
  const auto throw_to = [&] {
    Pixel at;
    do {
      at = {kThrowFrom.x + random(kThrowWidth), kThrowFrom.y + random(kThrowHeight)};
    } while (box_in_the_way(at));
    return at;
  };

  const bool in_place = game_.DiceAction == kDiceStationary;
  std::array<DieOnTable, 2> from = DiceAtRest(game_);
  for (int frame = 1; frame <= kThrows; ++frame) {
    std::array<Pixel, 2> to = kDiceThrownInPlace;
    if (!in_place) {
      to[0] = throw_to();
      do {
        to[1] = throw_to();
      } while (std::abs(to[0].x - to[1].x) < kDieSize && std::abs(to[0].y - to[1].y) < kDieSize);
    }
    const bool last = frame == kThrows;
    const std::array<int, 2> faces = {last ? game_.Die1 : random(6) + 1,
                                      last ? game_.Die2 : random(6) + 1};
    std::array<int, 2> turn_by{};
    for (int& degrees : turn_by) degrees = random(2) == 0 ? 90 : -90;
    QElapsedTimer thrown;
    thrown.start();
    for (double part = 0; part < 1;) {
      part = std::min(1.0, static_cast<double>(thrown.elapsed()) / kThrowTime);
      const double bounce = std::sin(part * M_PI) * (1.0 - 0.15 * frame);
      std::array<DieOnTable, 2> dice;
      for (std::size_t die = 0; die < dice.size(); ++die) {
        const auto between = [part](int a, int b) {
          return a + static_cast<int>(std::lround((b - a) * part));
        };
        dice[die].at = {between(from[die].at.x, to[die].x), between(from[die].at.y, to[die].y)};
        dice[die].face = part < 0.5 && !last ? from[die].face : faces[die];
        dice[die].turn = part < 1 ? static_cast<int>(turn_by[die] * part) : 0;
        dice[die].height = part < 1 ? static_cast<int>(100 * bounce) : 0;
      }
      canvas_->ThrowDice(dice);
      QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
      if (part >= 1) {
        from = dice;
        break;
      }
      Pause(kFrame, QEventLoop::ExcludeUserInputEvents);
    }
  }
  canvas_->DiceLie();
}

void DesktopSurface::ShowerOfChips() {
  if (canvas_ == nullptr || TableMinimised()) return;
  if (!game_.AllSoundOff) sounds_.Loop(SoundFile(game_, "Chips.wav"));
  const auto between = [this](int low, int high) {
    return low + static_cast<int>(PlainUniform() * (high - low));
  };
  for (int chip = 0; chip < kShowerChips; chip += kShowerPerFrame) {
    for (int i = 0; i < kShowerPerFrame; ++i) {
      const Pixel at = {between(kShowerFrom.x, kShowerTo.x), between(kShowerFrom.y, kShowerTo.y)};
      canvas_->AddShowerChip(at, 1 + between(0, kChipCount));
    }
    Pause(kFrame, QEventLoop::ExcludeUserInputEvents);
  }
  sounds_.Stop();
}

// ---- Screens ----------------------------------------------------------------------------------

void DesktopSurface::RefreshOpenScreens() {
  // Called once a roll, which is shorter than a look at the clock.
  if (screens_ == nullptr || screens_stale_) return;
  const qint64 since = since_screens_.elapsed();
  if (since >= kFrame) {
    RefreshScreensNow();
  } else {
    screens_stale_ = true;
    stale_screens_.start(static_cast<int>(kFrame - since));
  }
}

void DesktopSurface::RefreshScreensRested() {
  const qint64 rest = kRestOfDrawing * drawing_ - since_screens_.elapsed();
  if (game_.HyperDriveActive && rest > 0) {
    stale_screens_.start(static_cast<int>(rest));
  } else {
    RefreshScreensNow();
  }
}

void DesktopSurface::RefreshScreensNow() {
  stale_screens_.stop();
  screens_stale_ = false;
  if (screens_ != nullptr) screens_->Refresh();
  since_screens_.restart();
  drawing_ = 0;
}

// A report for which nobody is asked goes to the printer that the person has chosen for everything,
// or without one into a file, which is told unless it would hold up the dice.
std::optional<FileError> DesktopSurface::Print(const Document& document) {
  if (!document.unattended) return ShowPrintPreview(ReadyForDialog(), game_, document);
  if (ThereIsAPrinter()) {
    QPrinter printer(QPrinter::HighResolution);
    return SendTo(printer, document);
  }
  const std::string path = FreeReportName(game_.AppPath);
  std::optional<FileError> error = WritePdf(document, path);
  if (!error && !game_.RollInProgress) {
    ShowNotice({}, {});
    const std::string text = "There is no printer. The page is in the file\n\n" + path;
    MessageRequest message;
    message.title = "Printed To A File";
    message.text = text;
    message.options = kButtonOk;
    ShowMessage(message);
  }
  return error;
}

void DesktopSurface::SetClipboard(std::string_view text) {
  // Tabs and the ends of lines part cells and rows.
  QString shared;
  for (;;) {
    const std::size_t end = text.find_first_of("\t\r\n");
    shared += ToQt(text.substr(0, end));
    if (end == std::string_view::npos) break;
    shared += QLatin1Char(text[end]);
    text.remove_prefix(end + 1);
  }
  QApplication::clipboard()->setText(shared);
}

std::string DesktopSurface::Clipboard() {
  return FromQt(QApplication::clipboard()->text());
}

HelpWindow* DesktopSurface::OpenGuide() {
  if (screens_ == nullptr) return nullptr;
  QWidget* const modal = QApplication::activeModalWidget();
  screens_->Open(WindowCommand::kHelpContents);
  auto* const window = static_cast<HelpWindow*>(screens_->Find(WindowCommand::kHelpContents));
  if (modal != nullptr) window->BelongTo(modal);
  return window;
}

void DesktopSurface::OpenHelp(std::int32_t topic) {
  if (HelpWindow* guide = OpenGuide()) guide->ShowTopic(topic);
}

void DesktopSurface::SearchHelp() {
  if (HelpWindow* guide = OpenGuide()) guide->FocusSearch();
}

}  // namespace feltmaster
