#include "desktop/offscreen.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace feltmaster {

namespace {

// The application goes before what the toolkit keeps to the end of the program.
class Application : public testing::Environment {
 public:
  void Start() {
    if (application_) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(count_, arguments_);
  }
  void TearDown() override { application_.reset(); }

 private:
  char name_[17] = "feltmaster_tests";
  char* arguments_[2] = {name_, nullptr};
  int count_ = 1;
  std::unique_ptr<QApplication> application_;
};

// The tests own it.
Application* const the_application = new Application;
const testing::Environment* const environment = testing::AddGlobalTestEnvironment(the_application);

}  // namespace

void StartOffscreen() {
  the_application->Start();
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
