#include "desktop/desktop.h"

#include <QApplication>
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

int RunDesktop(const DesktopOptions& options) {
  char name[] = "feltmaster";
  char* arguments[] = {name, nullptr};
  int count = 1;
  QApplication application(count, arguments);
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
