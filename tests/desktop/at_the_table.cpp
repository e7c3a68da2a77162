#include "desktop/at_the_table.h"

#include <QLabel>
#include <QLineEdit>
#include <cstdlib>

#include "desktop/offscreen.h"
#include "engine/start_up.h"

namespace feltmaster {

AtTheTable::AtTheTable() {
  StartOffscreen();
  std::string name = (std::filesystem::temp_directory_path() / "feltmaster-XXXXXX").string();
  EXPECT_NE(mkdtemp(name.data()), nullptr);
  folder_ = name;
  game_ = std::make_unique<Game>();
  const std::string data_dir = (folder_ / "").string();
  surface_ =
      std::make_unique<DesktopSurface>(*game_, data_dir, FELTMASTER_SOURCE_DIR "/docs/guide/");
  game_->surface = surface_.get();
  game_->AllSoundOff = true;
  game_->SnapMouse = false;
  StartUp(*game_, {.data_dir = data_dir, .seed = 1});
  game_->DiceAction = kDiceStationary;
  window_ = std::make_unique<TableWindow>(*game_, *surface_);
  window_->resize(kTableWidth, kTableHeight + 40);
  window_->ShowInPlace();
  QApplication::processEvents();
  QObject::connect(&look_, &QTimer::timeout, [this] { LookForDialog(); });
  look_.start(10);
}

AtTheTable::~AtTheTable() {
  look_.stop();
  window_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

namespace {

constexpr int kLongestDialog = 10'000;  // milliseconds
constexpr int kLongestFocus = 2'000;

std::string TextOf(QWidget& dialog) {
  const auto* text = dialog.findChild<QLabel*>(QStringLiteral("lblMsg"));
  return text == nullptr ? std::string() : text->text().toStdString();
}

}  // namespace

void AtTheTable::LookForDialog() {
  QWidget* dialog = QApplication::activeModalWidget();
  if (dialog == nullptr || !dialog->isVisible()) return;
  if (dialog == answered_) {
    if (since_answer_.elapsed() < kLongestDialog) return;
    ADD_FAILURE() << '"' << Titles.back() << "\" does not close";
    dialog->close();
    return;
  }
  if (dialog != seen_) {
    seen_ = dialog;
    since_seen_.start();
  }
  // Without a window manager the focus follows in its own time.
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || focus->window() != dialog) {
    dialog->activateWindow();
    if (since_seen_.elapsed() < kLongestFocus) return;
  }
  answered_ = dialog;
  since_answer_.start();
  dialog->installEventFilter(&hidden_);
  Titles.push_back(dialog->windowTitle().toStdString());
  if (answers_.empty() && OtherDialogs) return OtherDialogs(*dialog);
  if (answers_.empty()) {
    ADD_FAILURE() << "nobody expected the dialog \"" << Titles.back() << "\": " << TextOf(*dialog);
    dialog->close();
    return;
  }
  const std::function<void(QWidget&)> answer = std::move(answers_.front());
  answers_.pop_front();
  answer(*dialog);
}

// The same window may come up again, for the next question.
bool AtTheTable::Hidden::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Hide) return false;
  if (watched == table_.answered_) table_.answered_ = nullptr;
  if (watched == table_.seen_) table_.seen_ = nullptr;
  return false;
}

void AtTheTable::ExpectPress(const std::string& button) {
  Expect([button](QWidget& dialog) {
    auto* found = dialog.findChild<QAbstractButton*>(QString::fromStdString(button));
    if (found != nullptr) {
      found->click();
    } else {
      ADD_FAILURE() << "no " << button << " on \"" << dialog.windowTitle().toStdString()
                    << "\": " << TextOf(dialog);
      dialog.close();
    }
  });
}

void AtTheTable::ExpectFile(const std::string& name) {
  Expect([name](QWidget& dialog) {
    auto* const field = Find<QLineEdit>(dialog, "txtFileName");
    if (field == nullptr) {
      dialog.close();
      return;
    }
    field->setText(QString::fromStdString(name));
    Find<QAbstractButton>(dialog, "cmdOK")->click();
  });
}

void AtTheTable::ExpectAnswers(const std::vector<std::string>& answers) {
  for (const std::string& answer : answers) {
    if (answer.starts_with("cmd")) {
      ExpectPress(answer);
    } else {
      ExpectFile(answer);
    }
  }
}

void AtTheTable::Press(Pixel at, Qt::MouseButton button, Qt::KeyboardModifiers held) {
  TableCanvas& canvas = window_->Canvas();
  QTest::mouseClick(&canvas, button, held,
                    canvas.ToWidget(QPointF(at.x + 0.5, at.y + 0.5)).toPoint());
}

void AtTheTable::Roll(int die1, int die2) {
  game_->Die1 = die1;
  game_->Die2 = die2;
  game_->DiceAlreadySet = true;
  Press({300, 20}, Qt::RightButton);
}

void AtTheTable::Type(int key, Qt::KeyboardModifiers held) {
  QWidget* to = QApplication::focusWidget();
  if (to == nullptr) to = QApplication::activeWindow();
  // Without a window manager the table is not made active again when a dialog closes.
  if (to == nullptr) to = window_->focusWidget();
  QTest::keyClick(to != nullptr ? to : window_.get(), static_cast<Qt::Key>(key), held);
}

void AtTheTable::Choose(const char* entry) {
  auto* action = window_->findChild<QAction*>(QString::fromLatin1(entry));
  ASSERT_NE(action, nullptr) << entry;
  action->trigger();
}

}  // namespace feltmaster
