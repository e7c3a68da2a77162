#pragma once

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/desktop_surface.h"
#include "desktop/table_window.h"

namespace feltmaster {

// A player at the real windows, on a platform without a display: a table of its own with a data
// folder of its own, and someone who answers the dialogs.
class AtTheTable : public testing::Test {
 protected:
  AtTheTable();
  ~AtTheTable() override;

  // What to do with the next dialog that comes up, in the order of the calls. A dialog that nobody
  // expects fails the test and is closed.
  void Expect(std::function<void(QWidget&)> answer) { answers_.push_back(std::move(answer)); }
  // Presses the button of this object name.
  void ExpectPress(const std::string& button);
  // Types a name into the file dialog, and accepts it.
  void ExpectFile(const std::string& name);
  // One dialog after the other: the name of a button is pressed, any other text names a file.
  void ExpectAnswers(const std::vector<std::string>& answers);
  // In place of failing: what becomes of a dialog that was not expected.
  std::function<void(QWidget&)> OtherDialogs;
  // Fails when an expected dialog has not come.
  void NothingExpected() { EXPECT_TRUE(answers_.empty()) << answers_.size() << " did not come"; }
  // The titles of the dialogs that came.
  std::vector<std::string> Titles;

  // The mouse at a pixel of the 640 by 440 picture.
  void Press(Pixel at, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers held = Qt::NoModifier);
  // Right button: the roll gives these dice.
  void Roll(int die1, int die2);
  void Type(int key, Qt::KeyboardModifiers held = Qt::NoModifier);
  // Chooses an entry of the table's menus by its object name.
  void Choose(const char* entry);
  // A child of a window by its object name; the test fails when there is none.
  template <typename T = QWidget>
  static T* Find(QWidget& in, const char* name) {
    T* found = in.findChild<T*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }

  std::filesystem::path folder_;
  std::unique_ptr<Game> game_;
  std::unique_ptr<DesktopSurface> surface_;
  std::unique_ptr<TableWindow> window_;

 private:
  void LookForDialog();

  QTimer look_;
  std::deque<std::function<void(QWidget&)>> answers_;
  class Hidden : public QObject {
   public:
    explicit Hidden(AtTheTable& table) : table_(table) {}
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    AtTheTable& table_;
  };
  Hidden hidden_{*this};
  QWidget* answered_ = nullptr;  // while it is still to be seen
  QElapsedTimer since_answer_;
  QWidget* seen_ = nullptr;
  QElapsedTimer since_seen_;
};

}  // namespace feltmaster
