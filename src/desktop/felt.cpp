#include "desktop/felt.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <vector>

#include "desktop/paint_tools.h"

namespace feltmaster {

namespace {

constexpr int kLightScale = 2;  // light values for each pixel of the picture, each way
constexpr int kLightWidth = kTableWidth * kLightScale;
constexpr int kLightHeight = kTableHeight * kLightScale;
constexpr float kPi = std::numbers::pi_v<float>;

// 0 up to 1, the same for the same place: a cloth looks alike at every painting.
float Speckle(int x, int y, std::uint32_t seed) {
  std::uint32_t mixed = static_cast<std::uint32_t>(x) * 0x9E3779B1u ^
                        static_cast<std::uint32_t>(y) * 0x85EBCA77u ^ seed * 0xC2B2AE3Du;
  mixed = (mixed ^ mixed >> 15) * 0x2C1B3C6Du;
  mixed = (mixed ^ mixed >> 12) * 0x297A2D39u;
  mixed ^= mixed >> 15;
  return static_cast<float>(mixed >> 8) * 0x1p-24f;
}

// Smooth noise, -1 to 1, that changes over a unit of length.
float Noise(float x, float y, std::uint32_t seed) {
  const float left = std::floor(x);
  const float top = std::floor(y);
  const float right_part = x - left;
  const float lower_part = y - top;
  const float u = right_part * right_part * (3 - 2 * right_part);
  const float v = lower_part * lower_part * (3 - 2 * lower_part);
  const int column = static_cast<int>(left);
  const int row = static_cast<int>(top);
  const float upper = std::lerp(Speckle(column, row, seed), Speckle(column + 1, row, seed), u);
  const float lower =
      std::lerp(Speckle(column, row + 1, seed), Speckle(column + 1, row + 1, seed), u);
  return 2 * std::lerp(upper, lower, v) - 1;
}

// Noise of several sizes, the largest of `size` light values.
float Clouds(float x, float y, float size, int octaves, std::uint32_t seed) {
  float sum = 0;
  float weight = 0.5f;
  for (int octave = 0; octave < octaves; ++octave) {
    sum += weight * Noise(x / size, y / size, seed + static_cast<std::uint32_t>(octave));
    weight /= 2;
    size /= 2;
  }
  return sum;
}

float Grain(int x, int y, std::uint32_t seed) {
  return 2 * Speckle(x, y, seed) - 1;
}

// Hairs of a length and a width that lie at an angle, in degrees, and are not quite straight.
float Hairs(float x, float y, float angle, float length, float width, std::uint32_t seed) {
  x += 3.0f * Noise(x / 23, y / 23, seed + 7);
  y += 3.0f * Noise(x / 23, y / 23, seed + 8);
  const float turn = angle * kPi / 180;
  const float along = std::cos(turn) * x + std::sin(turn) * y;
  const float across = std::cos(turn) * y - std::sin(turn) * x;
  return Noise(along / length, across / width, seed);
}

// ---- The cloths: light at a place, about -1 to 1 ----------------------------------------------

float Smooth(int x, int y) {
  return 0.22f * Grain(x, y, 1) + 0.25f * Clouds(float(x), float(y), 300, 2, 2);
}

float BrushedNap(int x, int y) {
  const auto fx = static_cast<float>(x);
  const auto fy = static_cast<float>(y);
  return 0.75f * Hairs(fx, fy, 24, 26, 2.4f, 11) + 0.35f * Clouds(fx, fy, 220, 2, 13);
}

float Linen(int x, int y) {
  constexpr int kThread = 3;
  const int column = x / kThread;
  const int row = y / kThread;
  const bool weft_above = ((column + row) & 1) != 0;
  // Threads differ in strength along their whole length, which gives the slubs of linen.
  const float weft = 0.6f * Noise(static_cast<float>(x) / 90, static_cast<float>(row) * 3.1f, 21);
  const float warp =
      0.6f * Noise(static_cast<float>(column) * 3.1f, static_cast<float>(y) / 90, 22);
  const int within = weft_above ? y % kThread : x % kThread;
  const float round = within == 1 ? 0.28f : -0.1f;
  return round + (weft_above ? weft : warp) * 0.7f + (weft_above ? 0.1f : -0.12f);
}

float Twill(int x, int y) {
  const float across = static_cast<float>(x + y) + 1.2f * Noise(float(x) / 9, float(y) / 9, 31);
  const float ridge = std::sin(across * 2 * kPi / 9);
  return 0.42f * ridge + 0.16f * Grain(x, y, 32) + 0.15f * Clouds(float(x), float(y), 260, 2, 33);
}

float Suede(int x, int y) {
  const auto fx = static_cast<float>(x);
  const auto fy = static_cast<float>(y);
  const float fold = Clouds(fx + 60 * Noise(fx / 120, fy / 120, 43), fy, 130, 5, 41);
  return 1.25f * fold + 0.18f * Grain(x, y, 42);
}

float QuiltedDiamonds(int x, int y) {
  constexpr float kSide = 56;
  const float u = (static_cast<float>(x) + 1.6f * static_cast<float>(y)) / kSide;
  const float v = (static_cast<float>(x) - 1.6f * static_cast<float>(y)) / kSide;
  const float du = u - std::floor(u);
  const float dv = v - std::floor(v);
  const float seam = std::min({du, dv, 1 - du, 1 - dv});
  const float pillow = 1 - std::exp(-seam * 9);
  // Light falls from the upper left on each cushion.
  const float slope = (0.5f - du) * 0.55f + (dv - 0.5f) * 0.55f;
  const float stitch = seam < 0.035f && ((x + 2 * y) / 5 & 1) == 0 ? 0.5f : 0.0f;
  return 0.75f * pillow - 0.62f + 0.55f * slope * pillow + stitch + 0.1f * Grain(x, y, 51);
}

float WoodGrain(int x, int y) {
  constexpr int kPlank = 147;  // boards lie along the table, each from another tree
  const int board = y / kPlank;
  const auto fx = static_cast<float>(x + board * 911);
  const auto fy = static_cast<float>(y);
  const auto seed = static_cast<std::uint32_t>(60 + board * 5);
  const float bend = 5.5f * Clouds(fx / 7, fy, 78, 3, seed);
  const float ring = std::sin((fy / 17 + bend) * 2 * kPi * 0.55f);
  const float pores = Noise(fx / 46, fy / 1.6f, seed + 1);
  const float seam = y % kPlank < 2 ? -1.1f : 0.0f;
  return 0.3f * ring + (pores > 0.35f ? -0.5f * pores : 0.08f) +
         0.35f * (Speckle(board, 3, 61) - 0.5f) + 0.16f * Noise(fx / 90, fy / 3, seed + 2) + seam;
}

// Many short hairs that lie in all directions. They take long to lay, so a quarter of the cloth is
// repeated, mirrored, which nobody sees in so even a weave.
float WoolFelt(int x, int y) {
  const auto fx = static_cast<float>(x);
  const auto fy = static_cast<float>(y);
  const float bent_x = fx + 3 * Noise(fx / 23, fy / 23, 87);
  const float bent_y = fy + 3 * Noise(fx / 23, fy / 23, 88);
  float hairs = 0;
  for (int way = 0; way < 4; ++way) {
    const float turn = (45.0f * static_cast<float>(way) + 11) * kPi / 180;
    const float along = std::cos(turn) * bent_x + std::sin(turn) * bent_y;
    const float across = std::cos(turn) * bent_y - std::sin(turn) * bent_x;
    hairs += Noise(along / 10, across / 1.9f, 80 + static_cast<std::uint32_t>(way));
  }
  return 0.26f * hairs + 0.15f * Grain(x, y, 84) + 0.14f * Clouds(fx, fy, 80, 2, 85);
}

// Suits of cards in two shades, like a woven cloth of one colour.
std::vector<std::uint8_t> DamaskMotif() {
  constexpr int kCell = 72;
  QImage image(kLightWidth, kLightHeight, QImage::Format_Grayscale8);
  image.fill(0);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr std::array kSuits = {Suit::kSpade, Suit::kHeart, Suit::kClub, Suit::kDiamond};
  for (int row = 0; row * kCell / 2 < kLightHeight + kCell; ++row) {
    for (int column = 0; column * kCell < kLightWidth + kCell; ++column) {
      const QPointF middle(column * kCell + (row % 2) * kCell / 2, row * kCell / 2);
      const auto suit = static_cast<std::size_t>(column + (row / 2) * 2 + row % 2) % 4;
      QTransform place;
      place.translate(middle.x(), middle.y());
      place.scale(15, 15);
      painter.fillPath(place.map(SuitShape(kSuits[suit])), Qt::white);
      painter.fillPath(StarShape(middle + QPointF(kCell / 2.0, 0), 4, 7, 1.6),
                       QColor(150, 150, 150));
    }
  }
  painter.end();
  std::vector<std::uint8_t> motif;
  motif.reserve(std::size_t{kLightWidth} * kLightHeight);
  for (int y = 0; y < kLightHeight; ++y) {
    const uchar* line = image.constScanLine(y);
    motif.insert(motif.end(), line, line + kLightWidth);
  }
  return motif;
}

float DamaskGround(int x, int y) {
  return 0.22f * ((y & 2) != 0 ? 1.0f : -1.0f) + 0.12f * Grain(x, y, 71) +
         0.15f * Clouds(float(x), float(y), 240, 2, 72);
}

using Cloth = float (*)(int x, int y);
constexpr std::array<Cloth, kFeltCount> kCloths = {
    Smooth, BrushedNap, Linen, Twill, Suede, QuiltedDiamonds, WoodGrain, DamaskGround, WoolFelt};
constexpr int kDamask = 7;
constexpr int kWool = 8;

}  // namespace

QImage FeltLight(int texture) {
  if (texture < 0 || texture >= kFeltCount) texture = 0;
  const Cloth cloth = kCloths[static_cast<std::size_t>(texture)];
  std::vector<std::uint8_t> motif;
  if (texture == kDamask) motif = DamaskMotif();

  QImage light(kLightWidth, kLightHeight, QImage::Format_Grayscale8);
  const int drawn_width = texture == kWool ? kLightWidth / 2 : kLightWidth;
  const int drawn_height = texture == kWool ? kLightHeight / 2 : kLightHeight;
  for (int y = 0; y < drawn_height; ++y) {
    uchar* line = light.scanLine(y);
    for (int x = 0; x < drawn_width; ++x) {
      float value = cloth(x, y);
      if (!motif.empty()) {
        const float raised = motif[static_cast<std::size_t>(y * kLightWidth + x)] / 255.0f;
        value = std::lerp(value - 0.12f, 0.42f - 0.3f * value, raised);
      }
      line[x] = static_cast<uchar>(std::clamp(128 + 127 * value, 0.0f, 255.0f));
    }
    std::reverse_copy(line, line + kLightWidth - drawn_width, line + drawn_width);
  }
  for (int y = drawn_height; y < kLightHeight; ++y) {
    std::copy_n(light.constScanLine(kLightHeight - 1 - y), kLightWidth, light.scanLine(y));
  }
  return light;
}

void PressIntoFelt(QImage& image, const QPainterPath& shape, const QImage& light,
                   const QColor& ground, double scale) {
  const QRect area = QTransform::fromScale(scale, scale)
                         .mapRect(shape.boundingRect())
                         .toAlignedRect()
                         .intersected(image.rect());
  if (area.isEmpty()) return;

  // Where the cloth lies, softened at its edge, and how the light falls on it there.
  QImage cover(area.size(), QImage::Format_Grayscale8);
  cover.fill(0);
  QPainter cover_painter(&cover);
  cover_painter.setRenderHint(QPainter::Antialiasing);
  cover_painter.translate(-area.topLeft());
  cover_painter.scale(scale, scale);
  cover_painter.fillPath(shape, Qt::white);
  cover_painter.end();

  QImage local(area.size(), QImage::Format_RGB32);
  QPainter light_painter(&local);
  light_painter.setRenderHint(QPainter::SmoothPixmapTransform);
  light_painter.translate(-area.topLeft());
  light_painter.scale(scale / kLightScale, scale / kLightScale);
  light_painter.drawImage(0, 0, light);
  light_painter.end();

  for (int y = 0; y < area.height(); ++y) {
    auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(area.top() + y)) + area.left();
    const uchar* covered = cover.constScanLine(y);
    const auto* lights = reinterpret_cast<const QRgb*>(local.constScanLine(y));
    for (int x = 0; x < area.width(); ++x) {
      if (covered[x] == 0) continue;
      const QRgb pixel = pixels[x];
      const int ink = std::abs(qRed(pixel) - ground.red()) +
                      std::abs(qGreen(pixel) - ground.green()) +
                      std::abs(qBlue(pixel) - ground.blue());
      const double rough = 1 - 0.6 * std::min(ink / 160.0, 1.0);
      const double value = rough * (qRed(lights[x]) - 128) / 127.0 * covered[x] / 255.0;
      // A black cloth still catches a little light, a bright one much more.
      const auto lit = [value](int channel) {
        return std::clamp(static_cast<int>(std::lround(channel + value * (13 + 0.2 * channel))), 0,
                          255);
      };
      pixels[x] = qRgb(lit(qRed(pixel)), lit(qGreen(pixel)), lit(qBlue(pixel)));
    }
  }
}

}  // namespace feltmaster
