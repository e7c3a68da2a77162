#include "desktop/file_window.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <algorithm>

#include "base/text.h"
#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"
#include "desktop/screen_window.h"
#include "files/file_dialog.h"

namespace feltmaster {

namespace {

constexpr const char* kParentFolder = "..";
constexpr QDir::SortFlags kByName = QDir::Name | QDir::IgnoreCase | QDir::LocaleAware;

// The patterns of a list, as "*.log;*.bet". "*.*" is every file, with a point or without.
QStringList FiltersOf(std::string_view pattern) {
  if (pattern == "*.*") return {"*"};
  return ToQt(pattern).split(';', Qt::SkipEmptyParts);
}

bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

class FileWindow : public GameDialog {
 public:
  FileWindow(QWidget* parent, Game& game, const FileRequest& request)
      : GameDialog(parent, game, "frmFile", FileDialogHelp(request.pattern)),
        caption_(request.caption),
        pattern_(request.pattern) {
    setWindowTitle(ToQt(request.caption));
    setSizeGripEnabled(true);
    auto* const grid = new QGridLayout(this);
    const int margin = Letters(*this, 2.5);
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setSpacing(Letters(*this, 1.2));
    AddFolders(*grid);
    AddFiles(*grid);
    AddName(*grid, request.start_name);
    AddButtons(*grid);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 3);
    grid->setRowStretch(2, 1);
    OpenFolder(FirstFolder(request.folder));
    Place(parent);
  }

  std::string Ask() {
    const bool is_ok = exec() == QDialog::Accepted;
    game_.FileDialogPath = FromQt(folder_.absolutePath());
    if (!game_.FileDialogPath.ends_with('/')) game_.FileDialogPath += '/';
    game_.FileDialogName = Trim(FromQt(name_->text()));
    ScreenPlacement& place = game_.PlacementOf(kFileScreen);
    place.left = x();
    place.top = y();
    place.width = width();
    place.height = height();
    return is_ok ? game_.FileDialogName : std::string();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (watched == folders_ && IsEnter(key)) {
        EnterChosenFolder();
        return true;
      }
      if (watched == files_ && key.key() == Qt::Key_Delete) {
        DeleteChosen();
        return true;
      }
    }
    return GameDialog::eventFilter(watched, event);
  }

 private:
  QDir FirstFolder(std::string_view folder) const {
    for (const QString& name : {ToQt(folder), ToQt(game_.AppPath)}) {
      if (!name.isEmpty() && QDir(name).exists()) return QDir(name);
    }
    return QDir::home();
  }

  QLabel* LabelFor(QWidget* control, const char* caption) {
    auto* const label = new QLabel(caption, this);
    label->setBuddy(control);
    control->setAccessibleName(QString(caption).remove('&').remove(':'));
    return label;
  }

  void AddFolders(QGridLayout& grid) {
    places_ = new QComboBox(this);
    places_->setObjectName("cmbPlaces");
    places_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(places_, &QComboBox::activated, this,
            [this](int place) { OpenFolder(QDir(places_->itemText(place))); });
    folders_ = new QListWidget(this);
    folders_->setObjectName("lstFolders");
    folders_->installEventFilter(this);
    connect(folders_, &QListWidget::itemDoubleClicked, this, [this] { EnterChosenFolder(); });
    auto* const line = new QHBoxLayout;
    line->addWidget(LabelFor(places_, "&Look in:"));
    line->addWidget(places_, 1);
    grid.addLayout(line, 0, 0, 1, 2);
    grid.addWidget(LabelFor(folders_, "&Folders:"), 1, 0);
    grid.addWidget(folders_, 2, 0);
  }

  void AddFiles(QGridLayout& grid) {
    files_ = new QTreeWidget(this);
    files_->setObjectName("lstFiles");
    files_->setHeaderLabels({"Name", "Changed", "Size"});
    files_->setRootIsDecorated(false);
    files_->setUniformRowHeights(true);
    files_->header()->setStretchLastSection(false);
    files_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    files_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    files_->setTabKeyNavigation(false);
    files_->installEventFilter(this);
    connect(files_, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem* item) { CopyName(item); });
    connect(files_, &QTreeWidget::itemClicked, this,
            [this](const QTreeWidgetItem* item) { CopyName(item); });
    connect(files_, &QTreeWidget::itemDoubleClicked, this, [this] { PressOk(); });
    grid.addWidget(LabelFor(files_, "F&iles:"), 1, 1);
    grid.addWidget(files_, 2, 1);
  }

  void AddName(QGridLayout& grid, std::string_view start_name) {
    name_ = new QLineEdit(ToQt(start_name), this);
    name_->setObjectName("txtFileName");
    connect(name_, &QLineEdit::textEdited, this, [this](const QString& typed) { ScrollTo(typed); });
    auto* const line = new QHBoxLayout;
    line->addWidget(LabelFor(name_, "File &name:"));
    line->addWidget(name_, 1);
    line->addWidget(new QLabel(ToQt(pattern_), this));
    grid.addLayout(line, 3, 0, 1, 2);
    name_->selectAll();
    name_->setFocus();
  }

  void AddButtons(QGridLayout& grid) {
    auto* const line = new QHBoxLayout;
    line->addStretch(1);
    const auto add = [&](const char* name, const char* caption, auto press) {
      auto* const button = new QPushButton(caption, this);
      button->setObjectName(name);
      button->setAccessibleName(QString(caption).remove('&'));
      button->setMinimumWidth(Letters(*button, 14));
      connect(button, &QPushButton::clicked, this, press);
      line->addWidget(button);
      return button;
    };
    add("cmdOK", "&OK", [this] { PressOk(); })->setDefault(true);
    add("cmdCancel", "&Close", [this] { reject(); });
    add("cmdHelp", "&Help", [this] { OpenHelp(); });
    grid.addLayout(line, 4, 0, 1, 2);
  }

  // Where it stood the last time.
  void Place(QWidget* parent) {
    const ScreenPlacement& place = game_.PlacementOf(kFileScreen);
    if (place.width > 0 && place.height > 0) {
      setGeometry(OnScreen(QRect(place.left, place.top, place.width, place.height)));
    } else {
      resize(Letters(*this, 100), Letters(*this, 62));
      CentreOverTable(*this, parent);
    }
  }

  void OpenFolder(const QDir& folder) {
    if (!folder.exists()) return;
    folder_ = QDir(folder.absolutePath());
    folder_.makeAbsolute();
    FillPlaces();
    folders_->clear();
    if (!folder_.isRoot()) folders_->addItem(kParentFolder);
    folders_->addItems(folder_.entryList(QDir::Dirs | QDir::NoDotAndDotDot, kByName));
    folders_->setCurrentRow(0);
    FillFiles();
  }

  // The folders above this one, the program's own and the player's.
  void FillPlaces() {
    places_->clear();
    QDir above = folder_;
    do {
      places_->addItem(above.absolutePath());
    } while (!above.isRoot() && above.cdUp());
    for (const QString& place : {QDir(ToQt(game_.AppPath)).absolutePath(), QDir::homePath()}) {
      if (places_->findText(place) < 0) places_->addItem(place);
    }
  }

  void FillFiles() {
    const QSignalBlocker quiet(files_);
    files_->clear();
    const QLocale locale;
    for (const QFileInfo& file : folder_.entryInfoList(FiltersOf(pattern_), QDir::Files, kByName)) {
      auto* const item = new QTreeWidgetItem(
          files_, {file.fileName(), locale.toString(file.lastModified(), "d MMM yyyy  hh:mm"),
                   locale.formattedDataSize(file.size(), 1)});
      item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
  }

  void EnterChosenFolder() {
    const QListWidgetItem* const chosen = folders_->currentItem();
    if (chosen != nullptr) OpenFolder(QDir(QDir::cleanPath(folder_.filePath(chosen->text()))));
  }

  void CopyName(const QTreeWidgetItem* file) {
    if (file != nullptr) name_->setText(file->text(0));
  }

  // To the first file that begins with what has been typed.
  void ScrollTo(const QString& typed) {
    const QList<QTreeWidgetItem*> found =
        typed.isEmpty() ? QList<QTreeWidgetItem*>() : files_->findItems(typed, Qt::MatchStartsWith);
    if (!found.isEmpty()) files_->scrollToItem(found.front(), QAbstractItemView::PositionAtTop);
  }

  void PressOk() {
    const QString typed = name_->text().trimmed();
    if (typed.isEmpty()) {
      PressFileOk(game_, caption_, pattern_, {});  // tells what is missing
    } else if (const QFileInfo named(folder_, typed); named.isDir()) {
      OpenFolder(QDir(QDir::cleanPath(named.absoluteFilePath())));
      name_->clear();
    } else {
      accept();
    }
  }

  void DeleteChosen() {
    QTreeWidgetItem* const chosen = files_->currentItem();
    if (chosen == nullptr) return;
    const int row = files_->indexOfTopLevelItem(chosen);
    if (!DeleteChosenFile(game_, caption_, FromQt(folder_.filePath(chosen->text(0))))) return;
    FillFiles();
    const int last = files_->topLevelItemCount() - 1;
    if (last >= 0) files_->setCurrentItem(files_->topLevelItem(std::min(row, last)));
  }

  std::string caption_;
  std::string pattern_;
  QDir folder_;
  QComboBox* places_ = nullptr;
  QListWidget* folders_ = nullptr;
  QTreeWidget* files_ = nullptr;
  QLineEdit* name_ = nullptr;
};

}  // namespace

std::string AskFileName(QWidget* parent, Game& game, const FileRequest& request) {
  return FileWindow(parent, game, request).Ask();
}

}  // namespace feltmaster
