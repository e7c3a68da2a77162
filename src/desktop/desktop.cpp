#include "desktop/desktop.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "desktop/about_dialog.h"
#include "desktop/desktop_surface.h"
#include "desktop/program_icon.h"
#include "desktop/qt_text.h"
#include "desktop/table_window.h"
#include "engine/start_up.h"

namespace feltmaster {

bool HasDisplay() {
  for (const char* name : {"WAYLAND_DISPLAY", "DISPLAY", "QT_QPA_PLATFORM"}) {
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  }
  return false;
}

namespace {

// The toolkit ends the program when a display that the environment names does not answer.
void TellOfDeadDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  std::fputs(
      "feltmaster: the display that $DISPLAY or $WAYLAND_DISPLAY names cannot be opened; "
      "\"feltmaster console\" plays the table in this terminal.\n",
      stderr);
  std::_Exit(2);
}

}  // namespace

int RunDesktop(const DesktopOptions& options) {
  char name[] = "feltmaster";
  char* arguments[] = {name, nullptr};
  int count = 1;
  const QtMessageHandler usual = qInstallMessageHandler(TellOfDeadDisplay);
  QApplication application(count, arguments);
  qInstallMessageHandler(usual);
  QApplication::setApplicationName(QStringLiteral("feltmaster"));
  QApplication::setApplicationDisplayName({});  // titles are told to the letter
  QGuiApplication::setDesktopFileName(QStringLiteral("feltmaster"));
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());

  const auto game = std::make_unique<Game>();
  DesktopSurface surface(*game, options.data_dir, options.guide_dir);
  game->surface = &surface;
  StartUp(*game, {.data_dir = options.data_dir, .seed = {}, .sound_dir = options.sound_dir});
  TableWindow table(*game, surface);
  table.ShowInPlace();
  QTimer::singleShot(0, &table, [&] {
    if (surface.Settings().Greets()) ShowAbout(&table, *game, surface.Settings());
    if (!options.game_file.empty()) table.OpenGameFile(ToQt(options.game_file));
  });
  return QApplication::exec();
}

}  // namespace feltmaster
