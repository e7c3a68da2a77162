#include "desktop/screen_shots.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QPalette>
#include <QTabWidget>
#include <QTemporaryFile>
#include <QTimer>
#include <memory>

#include "base/text.h"
#include "desktop/desktop_surface.h"
#include "desktop/qt_text.h"
#include "desktop/table_window.h"
#include "engine/start_up.h"
#include "files/game_file.h"

namespace feltmaster {

namespace {

constexpr int kSettleTime = 150;  // milliseconds until a window has laid itself out

// The screen of a platform without a display is 800 pixels wide unless it is told otherwise.
constexpr const char* kDesk =
    R"({"screens": [{"name": "desk", "x": 0, "y": 0, "width": 1920, "height": 1200,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";

QPalette DarkPalette() {
  QPalette palette(QColor(53, 53, 57), QColor(43, 43, 46));
  palette.setColor(QPalette::Base, QColor(32, 32, 35));
  palette.setColor(QPalette::AlternateBase, QColor(45, 45, 49));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(role, QColor(228, 228, 228));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(128, 128, 132));
  palette.setColor(QPalette::PlaceholderText, QColor(140, 140, 145));
  palette.setColor(QPalette::Highlight, QColor(52, 110, 190));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(110, 170, 250));
  palette.setColor(QPalette::ToolTipBase, QColor(60, 60, 64));
  palette.setColor(QPalette::ToolTipText, QColor(228, 228, 228));
  return palette;
}

void Settle(int milliseconds) {
  QElapsedTimer passed;
  passed.start();
  while (passed.elapsed() < milliseconds) {
    QApplication::processEvents(QEventLoop::AllEvents, 10);
    // A loop within a posted event leaves the others that were posted lying, layouts among them.
    QApplication::sendPostedEvents();
  }
}

class Photographer {
 public:
  explicit Photographer(QDir folder) : folder_(std::move(folder)) {}

  void Shoot(QWidget& window, const QString& name) {
    Settle(kSettleTime);
    const QString path = folder_.filePath(name + QStringLiteral(".png"));
    if (!window.grab().save(path) && complaint_.empty())
      complaint_ = FromQt(path) + " cannot be written.";
  }

  void ShootTabs(QWidget& window) {
    auto* const tabs = window.findChild<QTabWidget*>();
    for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab) {
      tabs->setCurrentIndex(tab);
      Shoot(window, window.objectName() + '-' + QString::number(tab + 1));
    }
    if (tabs == nullptr) Shoot(window, window.objectName());
  }

  const std::string& Complaint() const { return complaint_; }

 private:
  QDir folder_;
  std::string complaint_;
};

// A modal screen runs until it is closed, so each is drawn and closed from the loop of events.
void ShootScreen(Photographer& photographer, Screens& screens, WindowCommand which) {
  QTimer::singleShot(0, [&] {
    if (ScreenWindow* window = screens.Find(which)) photographer.ShootTabs(*window);
    screens.Close(which);
    // One that does not let itself be closed asks for something.
    ScreenWindow* const stays = screens.Find(which);
    if (stays != nullptr && stays->isVisible()) delete stays;
  });
  screens.Open(which);
  Settle(kSettleTime / 5);
}

}  // namespace

std::string ShootScreens(const ScreenShotOptions& options) {
  if (!QDir().mkpath(ToQt(options.folder))) return options.folder + " cannot be made.";
  QTemporaryFile desk;
  QString platform = QStringLiteral("offscreen");
  if (desk.open() && desk.write(kDesk) > 0 && desk.flush())
    platform += QStringLiteral(":configfile=") + desk.fileName();
  qputenv("QT_QPA_PLATFORM", platform.toUtf8());
  // What the toolkit has to say about the desktop it does not find is of no use here.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  char name[] = "feltmaster";
  char* arguments[] = {name, nullptr};
  int count = 1;
  const QApplication application(count, arguments);
  if (options.dark) QApplication::setPalette(DarkPalette());

  const auto game = std::make_unique<Game>();
  DesktopSurface surface(*game, {}, options.guide_dir);
  game->surface = &surface;
  StartUp(*game, {.data_dir = options.data_dir, .seed = 1});
  if (!options.game_file.empty() && !OpenGame(*game, options.game_file, true)) {
    return OneLine(game->FileStatus < 0
                       ? options.game_file + " cannot be opened: " + game->LastErrorText
                       : game->MsgText);
  }
  game->AllSoundOff = true;

  // Whoever asks something while a screen is drawn is not answered.
  QTimer answers;
  QObject::connect(&answers, &QTimer::timeout, [] {
    if (auto* asked = qobject_cast<QDialog*>(QApplication::activeModalWidget())) asked->reject();
  });
  answers.start(kSettleTime);

  Photographer photographer(QDir(ToQt(options.folder)));
  TableWindow table(*game, surface);
  table.resize(1000, 720);
  table.show();
  photographer.Shoot(table, table.objectName());
  for (const WindowCommand which : Screens::All())
    ShootScreen(photographer, table.AllScreens(), which);
  return photographer.Complaint();
}

}  // namespace feltmaster
