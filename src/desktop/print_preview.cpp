#include "desktop/print_preview.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "desktop/dialog_tools.h"
#include "desktop/print_document.h"
#include "desktop/qt_text.h"
#include "files/file_dialog.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kHelpPrinting = 800;
constexpr int kAround = 12;  // pixels of desk around the sheet

// A sheet of white paper, in dark surroundings too.
class Sheet : public QWidget {
 public:
  explicit Sheet(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picPage"));
    setAccessibleName(QStringLiteral("Page"));
  }

  void Show(const Page& page) {
    page_ = &page;
    update();
  }
  void SetWidth(int width) {
    setFixedSize(width, static_cast<int>(std::lround(width * kPageHeight / kPageWidth)));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(QColor(128, 128, 128));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (page_ == nullptr) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(width() / kPageWidth, height() / kPageHeight);
    PaintPage(painter, *page_);
  }

 private:
  const Page* page_ = nullptr;
};

class PrintPreview : public GameDialog {
 public:
  PrintPreview(QWidget* parent, Game& game, const Document& document)
      : GameDialog(parent, game, "frmPrintPreview", kHelpPrinting), document_(document) {
    setWindowTitle(ToQt(document.title));
    setSizeGripEnabled(true);
    sheet_ = new Sheet(this);
    desk_ = new QScrollArea(this);
    desk_->setBackgroundRole(QPalette::Mid);
    desk_->setAlignment(Qt::AlignCenter);
    desk_->setWidget(sheet_);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(desk_, 1);
    rows->addLayout(Buttons());
    resize(Letters(*this, 78), Letters(*this, 100));
    CentreOverTable(*this, parent);
    ShowPage(0);
  }

  std::optional<FileError> Fault;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const auto step = std::find_if(steps_.begin(), steps_.end(), [event](const Step& candidate) {
      return candidate.key == event->key();
    });
    if (step == steps_.end()) {
      GameDialog::keyPressEvent(event);
    } else {
      step->button->click();
    }
  }
  void resizeEvent(QResizeEvent* event) override {
    GameDialog::resizeEvent(event);
    Fit();
  }
  void showEvent(QShowEvent* event) override {
    GameDialog::showEvent(event);
    Fit();
  }

 private:
  struct Step {
    QPushButton* button;
    int key;
    bool forward;
  };

  QPushButton* AddButton(QBoxLayout& row, const char* name, const char* caption,
                         std::function<void()> work) {
    auto* const button = new QPushButton(QString::fromUtf8(caption), this);
    button->setObjectName(QString::fromLatin1(name));
    QObject::connect(button, &QPushButton::clicked, this, std::move(work));
    row.addWidget(button);
    return button;
  }

  QBoxLayout* Buttons() {
    struct StepKind {
      const char* name;
      const char* caption;
      const char* spoken;
      int key;
      int by;  // pages
    };
    const int all = static_cast<int>(document_.pages.size());
    const StepKind kinds[] = {{"cmdFirst", "|◀", "First page", Qt::Key_Home, -all},
                              {"cmdPrevious", "◀", "Previous page", Qt::Key_PageUp, -1},
                              {"cmdNext", "▶", "Next page", Qt::Key_PageDown, 1},
                              {"cmdLast", "▶|", "Last page", Qt::Key_End, all}};
    auto* const row = new QHBoxLayout;
    for (const StepKind& kind : kinds) {
      if (kind.key == Qt::Key_PageDown) {
        number_ = new QLabel(this);
        number_->setObjectName(QStringLiteral("lblPage"));
        row->addWidget(number_);
      }
      QPushButton* const button =
          AddButton(*row, kind.name, kind.caption, [this, by = kind.by] { ShowPage(page_ + by); });
      button->setAccessibleName(QString::fromLatin1(kind.spoken));
      button->setToolTip(QString::fromLatin1(kind.spoken));
      button->setFixedWidth(Letters(*this, 6));
      button->setAutoDefault(false);
      steps_.push_back({button, kind.key, kind.by > 0});
    }
    QPushButton* const wide = AddButton(*row, "cmdWidth", "Full &width", [this] { Fit(); });
    wide->setCheckable(true);
    wide->setAutoDefault(false);
    wide_ = wide;
    row->addStretch(1);
    QPushButton* const print = AddButton(*row, "cmdPrint", "&Print ...", [this] { Print(); });
    QPushButton* const pdf = AddButton(*row, "cmdPdf", "Save as P&DF ...", [this] { SavePdf(); });
    AddButton(*row, "cmdClose", "&Close", [this] { reject(); });
    print->setEnabled(ThereIsAPrinter());
    if (!print->isEnabled()) print->setToolTip(QStringLiteral("There is no printer"));
    (print->isEnabled() ? print : pdf)->setDefault(true);
    (print->isEnabled() ? print : pdf)->setFocus();
    return row;
  }

  void ShowPage(int page) {
    const int count = static_cast<int>(document_.pages.size());
    page_ = std::clamp(page, 0, std::max(0, count - 1));
    if (page_ < count) sheet_->Show(document_.pages[static_cast<std::size_t>(page_)]);
    number_->setText(QStringLiteral("Page %1 of %2").arg(page_ + 1).arg(count));
    for (const Step& step : steps_)
      step.button->setEnabled(step.forward ? page_ + 1 < count : page_ > 0);
    desk_->verticalScrollBar()->setValue(0);
  }

  void Fit() {
    const QSize room = desk_->maximumViewportSize() - QSize(2 * kAround, 2 * kAround);
    const int bar = desk_->verticalScrollBar()->sizeHint().width();
    const int whole = static_cast<int>(room.height() * kPageWidth / kPageHeight);
    const int wide = room.width() - bar;
    sheet_->SetWidth(
        std::max(Letters(*this, 20), wide_->isChecked() ? wide : std::min(whole, wide)));
  }

  void Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::Letter));
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, static_cast<int>(document_.pages.size()));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() == QDialog::Accepted) Finish(SendTo(printer, document_));
  }

  void SavePdf() {
    game_.FileDialogName = document_.title + ".pdf";
    const std::optional<std::string> path = ShowFileDialog(game_, "Save Report As");
    if (path) Finish(WritePdf(document_, *path));
  }

  void Finish(std::optional<FileError> fault) {
    Fault = std::move(fault);
    accept();
  }

  const Document& document_;
  int page_ = 0;
  Sheet* sheet_ = nullptr;
  QScrollArea* desk_ = nullptr;
  QLabel* number_ = nullptr;
  QPushButton* wide_ = nullptr;
  std::vector<Step> steps_;
};

}  // namespace

std::optional<FileError> ShowPrintPreview(QWidget* parent, Game& game, const Document& document) {
  PrintPreview preview(parent, game, document);
  preview.exec();
  return preview.Fault;
}

}  // namespace feltmaster
