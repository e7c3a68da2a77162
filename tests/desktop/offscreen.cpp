#include "desktop/offscreen.h"

#include <cstdlib>
#include <memory>

namespace feltmaster {

void StartOffscreen() {
  if (QApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static char name[] = "feltmaster_tests";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  static const auto application = std::make_unique<QApplication>(count, arguments);
}

double Difference(const QImage& a, const QImage& b) {
  double sum = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb left = a.pixel(x, y);
      const QRgb right = b.pixel(x, y);
      sum += std::abs(qRed(left) - qRed(right)) + std::abs(qGreen(left) - qGreen(right)) +
             std::abs(qBlue(left) - qBlue(right));
    }
  }
  return sum / (3.0 * a.width() * a.height());
}

}  // namespace feltmaster
