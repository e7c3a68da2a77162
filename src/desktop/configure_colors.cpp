#include <QButtonGroup>
#include <QColorDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <optional>

#include "config/table_colors.h"
#include "desktop/configure_page.h"
#include "desktop/felt.h"
#include "desktop/layout_picture.h"
#include "desktop/paint_tools.h"
#include "desktop/picture_grid.h"
#include "desktop/qt_text.h"

// The tab Colors.

namespace feltmaster {

namespace {

// ---- The palette: greys in the first row, then the hues in shades from light to dark ----------

struct Shade {
  double saturation;
  double value;
};
constexpr auto kShades = std::to_array<Shade>(
    {{0.25, 1}, {0.5, 1}, {0.75, 1}, {1, 1}, {1, 0.8}, {1, 0.6}, {0.75, 0.45}, {1, 0.3}});
constexpr int kHues = 12;
constexpr int kPaletteRows = static_cast<int>(kShades.size()) + 1;

QColor PaletteColorAt(int cell) {
  const int column = cell % kHues;
  const int row = cell / kHues;
  if (row == 0) {
    const int gray = 255 - 255 * column / (kHues - 1);
    return QColor(gray, gray, gray);
  }
  const Shade& shade = kShades[static_cast<std::size_t>(row - 1)];
  return QColor::fromHsvF(static_cast<float>(column) / kHues, static_cast<float>(shade.saturation),
                          static_cast<float>(shade.value));
}

std::int32_t StoredColor(const QColor& color) {
  return color.blue() << 16 | color.green() << 8 | color.red();
}

// The cell that holds a stored colour, or -1.
int PaletteCellOf(std::int32_t color) {
  for (int cell = 0; cell < kHues * kPaletteRows; ++cell) {
    if (StoredColor(PaletteColorAt(cell)) == color) return cell;
  }
  return -1;
}

// ---- The samples --------------------------------------------------------------------------------

// The empty table in its colours.
class TablePreview : public QWidget {
 public:
  explicit TablePreview(Game& game) : game_(game) {
    setObjectName(QStringLiteral("picTableColors"));
    setAccessibleName(QStringLiteral("The table in these colors"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(sizeHint() / 2);
  }
  QSize sizeHint() const override { return {kTableWidth * 5 / 8, kTableHeight * 5 / 8}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    const double scale = std::min(static_cast<double>(width()) / kTableWidth,
                                  static_cast<double>(height()) / kTableHeight);
    const LayoutLook look = LookOf(game_);
    const double device_scale = scale * devicePixelRatioF();
    if (look_ != look || device_scale_ != device_scale) {
      layout_ = PaintLayout(look, device_scale, felts_);
      layout_.setDevicePixelRatio(devicePixelRatioF());
      look_ = look;
      device_scale_ = device_scale;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate((width() - kTableWidth * scale) / 2, (height() - kTableHeight * scale) / 2);
    painter.drawImage(QPointF(), layout_);
  }

 private:
  Game& game_;
  FeltStore felts_;
  std::optional<LayoutLook> look_;
  double device_scale_ = 0;
  QImage layout_;
};

constexpr QSize kFeltSize(84, 36);

class FeltSamples {
 public:
  const QImage& Sample(int texture, std::int32_t color) {
    Kept& kept = kept_[static_cast<std::size_t>(texture)];
    if (kept.color == color) return kept.image;
    constexpr int kScale = 2;
    kept.color = color;
    kept.image = QImage(kFeltSize * kScale, QImage::Format_RGB32);
    kept.image.fill(ColorOf(color));
    QPainterPath shape;
    shape.addRect(QRectF(QPointF(), QSizeF(kFeltSize)));
    PressIntoFelt(kept.image, shape, felts_.Light(texture), ColorOf(color), kScale);
    return kept.image;
  }

 private:
  struct Kept {
    std::optional<std::int32_t> color;
    QImage image;
  };
  FeltStore felts_;
  std::array<Kept, kFelts> kept_;
};

class ColorsPage : public ConfigurePage {
 public:
  explicit ColorsPage(const ConfigureHost& host)
      : ConfigurePage(host),
        preview_(host.game),
        palette_({kHues, kPaletteRows, QSize(24, 20),
                  [](QPainter& painter, const QRectF& box, int cell) {
                    painter.fillRect(box.adjusted(1, 1, -1, -1), PaletteColorAt(cell));
                  }}),
        felt_grid_({3, 3, kFeltSize, [this](QPainter& painter, const QRectF& box, int texture) {
                      const std::int32_t color = TheGame().TableColors[kColorFelt];
                      painter.drawImage(box.adjusted(1, 1, -1, -1),
                                        samples_.Sample(texture, color));
                    }}) {
    auto* page = new QGridLayout(this);
    page->setColumnStretch(1, 1);
    page->addWidget(MakeElements(), 0, 0);
    page->addWidget(&preview_, 0, 1);
    page->addWidget(MakePalette(), 1, 0);
    page->addWidget(MakeFelts(), 1, 1);
    page->setRowStretch(0, 1);
  }

  void ShowModel() override {
    ConfigurePage::ShowModel();
    palette_.SetChosen(PaletteCellOf(ChosenColor()));
    felts_group_->setVisible(element_ == kColorFelt);
    preview_.update();
    felt_grid_.update();
  }

 private:
  QWidget* MakeElements() {
    auto* group = new QGroupBox(QStringLiteral("Color of"));
    auto* rows = new QVBoxLayout(group);
    auto* options = new QButtonGroup(group);
    for (int element = 0; element < kTableColorCount; ++element) {
      const SettingControl& setting = SettingOfControl(ControlOf(element));
      auto* option = new QRadioButton(Verbatim(setting.caption));
      options->addButton(option, element);
      rows->addWidget(option);
      Controls().Add(setting.control, option, [this, option, element] {
        QPixmap swatch(option->iconSize());
        swatch.fill(palette().color(QPalette::Dark));  // an edge: white is a colour, too
        const std::int32_t color = TheGame().TableColors[static_cast<std::size_t>(element)];
        QPainter(&swatch).fillRect(swatch.rect().adjusted(1, 1, -1, -1), ColorOf(color));
        option->setIcon(swatch);
      });
    }
    rows->addStretch();
    options->button(element_)->setChecked(true);
    connect(options, &QButtonGroup::idClicked, this, [this](int element) {
      element_ = element;
      ShowModel();
    });
    return group;
  }

  QWidget* MakePalette() {
    auto* group = new QGroupBox(QStringLiteral("Palette"));
    auto* rows = new QVBoxLayout(group);
    palette_.setObjectName(QStringLiteral("picColorpal"));
    palette_.setAccessibleName(QStringLiteral("Palette"));
    palette_.OnChosen = [this](int cell) { Choose(PaletteColorAt(cell)); };
    rows->addWidget(&palette_);
    auto* other = new QPushButton(QStringLiteral("O&ther..."));
    other->setObjectName(QStringLiteral("cmdOtherColor"));
    connect(other, &QPushButton::clicked, this, [this] {
      const QColor color = QColorDialog::getColor(ColorOf(ChosenColor()), this);
      if (color.isValid()) Choose(color);
    });
    rows->addWidget(other, 0, Qt::AlignLeft);
    return group;
  }

  QWidget* MakeFelts() {
    felts_group_ = new QGroupBox(QStringLiteral("Felt"));
    (new QVBoxLayout(felts_group_))->addWidget(&felt_grid_);
    felt_grid_.OnChosen = [this](int texture) {
      Controls().Write("picFelts", std::to_string(texture));
    };
    Controls().Add("picFelts", &felt_grid_, [this] { felt_grid_.SetChosen(TheGame().TextureRow); });
    return felts_group_;
  }

  static std::string ControlOf(int element) { return "optTableColors" + std::to_string(element); }
  std::int32_t ChosenColor() const {
    return TheGame().TableColors[static_cast<std::size_t>(element_)];
  }
  void Choose(const QColor& color) {
    Controls().Write(ControlOf(element_), std::to_string(StoredColor(color)));
  }

  int element_ = kColorFelt;  // whose colour is chosen
  TablePreview preview_;
  PictureGrid palette_;
  FeltSamples samples_;
  PictureGrid felt_grid_;
  QGroupBox* felts_group_ = nullptr;
};

}  // namespace

ConfigurePage* MakeColorsPage(const ConfigureHost& host) {
  return new ColorsPage(host);
}

}  // namespace feltmaster
