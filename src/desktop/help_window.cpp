#include "desktop/help_window.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QDesktopServices>
#include <QFileInfo>
#include <QHeaderView>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyle>
#include <QTextBlock>
#include <QTextTable>
#include <QToolBar>

#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"
#include "desktop/screens.h"

namespace feltmaster {

namespace {

constexpr int kPlaceRole = Qt::UserRole;  // of an item: "file.md#anchor"

QString PlaceOfSection(const GuideChapter& chapter, const GuideSection& section) {
  QString place = ToQt(chapter.file);
  if (section.level > 1) place += '#' + ToQt(section.anchor);
  return place;
}

// The reader of Markdown begins a table behind a block of code with an empty line, and that heading
// is not bold.
void MendFirstCell(const QTextTable& table) {
  const QTextTableCell cell = table.cellAt(0, 0);
  QTextCursor text = cell.firstCursorPosition();
  if (!text.block().text().isEmpty() || text == cell.lastCursorPosition()) return;
  text.deleteChar();
  text.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
  QTextCharFormat bold;
  bold.setFontWeight(QFont::Bold);
  text.mergeCharFormat(bold);
}

QTreeWidget* List(QWidget* parent, const char* name, const char* spoken) {
  auto* const list = new QTreeWidget(parent);
  list->setObjectName(QString::fromLatin1(name));
  list->setAccessibleName(QString::fromLatin1(spoken));
  list->setHeaderHidden(true);
  list->setColumnCount(1);
  list->setTextElideMode(Qt::ElideRight);
  return list;
}

}  // namespace

// ---- The page ---------------------------------------------------------------------------------

GuidePage::GuidePage(QWidget* parent) : QTextBrowser(parent) {
  setObjectName(QStringLiteral("txtPage"));
  setAccessibleName(QStringLiteral("Page of the guide"));
  setOpenLinks(false);
  document()->setDocumentMargin(Letters(*this, 3));
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // so that pictures know their room
  QObject::connect(this, &QTextBrowser::sourceChanged, this,
                   [this](const QUrl& place) { Arrive(place); });
  QObject::connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (link.scheme().startsWith(QStringLiteral("http"))) {
      QDesktopServices::openUrl(link);
    } else {
      setSource(place_.resolved(link));
    }
  });
}

void GuidePage::Open(const QString& place) {
  const qsizetype mark = place.indexOf('#');
  QUrl url = QUrl::fromLocalFile(searchPaths().value(0) + place.left(mark));
  if (mark >= 0) url.setFragment(place.mid(mark + 1));
  setSource(url);
}

void GuidePage::Arrive(const QUrl& place) {
  place_ = place;
  const bool fresh = File() != dressed_;
  if (fresh) Dress();
  if (place.hasFragment()) {
    scrollToAnchor(place.fragment());
  } else if (fresh) {
    verticalScrollBar()->setValue(0);
  }
}

QVariant GuidePage::loadResource(int type, const QUrl& name) {
  const QVariant resource = QTextBrowser::loadResource(type, name);
  if (type != QTextDocument::ImageResource) return resource;
  QImage picture;
  if (resource.canConvert<QByteArray>()) picture.loadFromData(resource.toByteArray());
  const int room = viewport()->width() - 2 * static_cast<int>(document()->documentMargin());
  if (picture.isNull() || room <= 0 || picture.width() <= room) return picture;
  return picture.scaledToWidth(room, Qt::SmoothTransformation);
}

// What the reader of Markdown leaves undone.
void GuidePage::Dress() {
  dressed_ = File();
  has_pictures_ = document()->toRawText().contains(QChar::ObjectReplacementCharacter);
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  const QColor shade = palette().color(QPalette::AlternateBase);
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    cursor.setPosition(block.position());
    QTextBlockFormat format = block.blockFormat();
    if (format.headingLevel() > 0) {
      cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
      QTextCharFormat named;
      named.setAnchor(true);
      named.setAnchorNames({ToQt(AnchorOf(FromQt(block.text())))});
      cursor.mergeCharFormat(named);
      format.setTopMargin(format.headingLevel() == 1 ? 0 : Letters(*this, 3));
      format.setBottomMargin(Letters(*this, 1));
    } else if (format.hasProperty(QTextFormat::BlockCodeLanguage) || format.nonBreakableLines()) {
      format.setBackground(shade);
      format.setLeftMargin(Letters(*this, 2));
    } else if (cursor.currentTable() == nullptr &&
               !block.text().contains(QChar::ObjectReplacementCharacter)) {
      format.setLineHeight(115, QTextBlockFormat::ProportionalHeight);
    }
    cursor.setPosition(block.position());
    cursor.setBlockFormat(format);
  }
  for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
    auto* const table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    MendFirstCell(*table);
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setBorderBrush(palette().brush(QPalette::Mid));
    format.setCellPadding(Letters(*this, 0.7));
    format.setCellSpacing(0);
    format.setMargin(Letters(*this, 1));
    table->setFormat(format);
  }
  cursor.endEditBlock();
}

// The pictures take the present width, and everything the present colours.
void GuidePage::LoadAgain() {
  const int at = verticalScrollBar()->value();
  dressed_.clear();
  reload();
  verticalScrollBar()->setValue(at);
}

void GuidePage::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (has_pictures_ && event->oldSize().width() != event->size().width()) LoadAgain();
}

void GuidePage::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !place_.isEmpty()) LoadAgain();
}

// ---- The window -------------------------------------------------------------------------------

HelpWindow::HelpWindow(Screens& screens)
    : ScreenWindow(screens, kTraits), guide_(ReadUserGuide(screens.GuideFolder())) {
  auto* const parts = new QSplitter(this);
  auto* const left = new QWidget(parts);
  auto* const column = new QVBoxLayout(left);
  column->setContentsMargins(0, 0, 0, 0);
  search_ = new QLineEdit(left);
  search_->setObjectName(QStringLiteral("txtSearch"));
  search_->setPlaceholderText(QStringLiteral("Search the guide"));
  search_->setAccessibleName(QStringLiteral("Search"));
  search_->setClearButtonEnabled(true);
  contents_ = List(left, "lstContents", "Contents");
  hits_ = List(left, "lstFound", "Found");
  hits_->setRootIsDecorated(false);
  hits_->setAlternatingRowColors(true);  // each hit has two lines
  hits_->hide();
  for (QWidget* part : {static_cast<QWidget*>(search_), static_cast<QWidget*>(contents_),
                        static_cast<QWidget*>(hits_)}) {
    column->addWidget(part);
  }
  page_ = new GuidePage(parts);
  page_->setSearchPaths({ToQt(guide_.folder)});
  parts->setStretchFactor(1, 1);
  parts->setSizes({Letters(*this, 40), Letters(*this, 110)});
  parts->setChildrenCollapsible(false);
  setCentralWidget(parts);
  resize(Letters(*this, 150), Letters(*this, 110));

  QObject::connect(search_, &QLineEdit::textChanged, this,
                   [this](const QString& text) { ShowHits(text); });
  QObject::connect(search_, &QLineEdit::returnPressed, this, [this] {
    if (QTreeWidgetItem* first = hits_->topLevelItem(0)) hits_->setCurrentItem(first);
  });
  for (QTreeWidget* list : {contents_, hits_}) {
    QObject::connect(list, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
      if (item != nullptr) page_->Open(item->data(0, kPlaceRole).toString());
    });
  }
  QObject::connect(page_, &QTextBrowser::sourceChanged, this, [this] { MarkPage(); });
  BuildBar();
  FillContents();
  ShowTopic(0);
}

void HelpWindow::BuildBar() {
  QToolBar* const bar = addToolBar(QStringLiteral("Pages"));
  bar->setObjectName(QStringLiteral("barPages"));
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](const char* name, const char* caption, QStyle::StandardPixmap icon,
                       const QKeySequence& key, auto&& work) {
    QAction* const action =
        bar->addAction(style()->standardIcon(icon), QString::fromLatin1(caption), this, work);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(key);
    return action;
  };
  QAction* const back = add("mnuBack", "&Back", QStyle::SP_ArrowBack, QKeySequence::Back,
                            [this] { page_->backward(); });
  QAction* const forward = add("mnuForward", "&Forward", QStyle::SP_ArrowForward,
                               QKeySequence::Forward, [this] { page_->forward(); });
  add("mnuFirstPage", "&Contents", QStyle::SP_FileDialogListView,
      QKeySequence(Qt::ALT | Qt::Key_Home), [this] { ShowTopic(0); });
  add("mnuSearch", "&Search", QStyle::SP_FileDialogContentsView, QKeySequence::Find,
      [this] { FocusSearch(); });
  bar->addSeparator();
  add("mnuLarger", "&Larger", QStyle::SP_ArrowUp, QKeySequence::ZoomIn,
      [this] { page_->zoomIn(); });
  add("mnuSmaller", "S&maller", QStyle::SP_ArrowDown, QKeySequence::ZoomOut,
      [this] { page_->zoomOut(); });
  back->setEnabled(false);
  forward->setEnabled(false);
  QObject::connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  QObject::connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::FillContents() {
  for (const GuideChapter& chapter : guide_.chapters) {
    QTreeWidgetItem* of_chapter = nullptr;
    for (const GuideSection& section : chapter.sections) {
      if (section.level > 2) continue;
      auto* const item =
          of_chapter == nullptr ? new QTreeWidgetItem(contents_) : new QTreeWidgetItem(of_chapter);
      item->setText(0, ToQt(section.heading));
      item->setToolTip(0, item->text(0));
      item->setData(0, kPlaceRole, PlaceOfSection(chapter, section));
      if (of_chapter == nullptr) of_chapter = item;
    }
  }
}

void HelpWindow::ShowHits(const QString& words) {
  hits_->clear();
  const bool searching = !words.trimmed().isEmpty();
  contents_->setVisible(!searching);
  hits_->setVisible(searching);
  if (!searching) return;
  for (const GuideHit& hit : SearchUserGuide(guide_, FromQt(words))) {
    const GuideChapter& chapter = guide_.chapters[hit.chapter];
    const GuideSection& section = chapter.sections[hit.section];
    auto* const item = new QTreeWidgetItem(hits_);
    QString text = ToQt(chapter.title);
    if (section.heading != chapter.title) text += QStringLiteral(": ") + ToQt(section.heading);
    item->setText(0, text + '\n' + ToQt(hit.line).left(120));
    item->setToolTip(0, ToQt(hit.line));
    item->setData(0, kPlaceRole, PlaceOfSection(chapter, section));
  }
  if (hits_->topLevelItemCount() > 0) return;
  auto* const none = new QTreeWidgetItem(hits_, {QStringLiteral("Nothing is found")});
  none->setFlags(Qt::NoItemFlags);
}

// The contents show which chapter is open.
void HelpWindow::MarkPage() {
  const QSignalBlocker quiet(contents_);
  for (int i = 0; i < contents_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* const chapter = contents_->topLevelItem(i);
    if (chapter->data(0, kPlaceRole).toString() != page_->File()) continue;
    QTreeWidgetItem* current = chapter;
    const QString place = page_->File() + '#' + page_->Place().fragment();
    for (int k = 0; k < chapter->childCount(); ++k) {
      if (chapter->child(k)->data(0, kPlaceRole).toString() == place) current = chapter->child(k);
    }
    chapter->setExpanded(true);
    contents_->setCurrentItem(current);
  }
}

void HelpWindow::ShowTopic(std::int32_t topic) {
  if (guide_.chapters.empty() || guide_.chapters[0].sections.empty()) {
    page_->setPlainText(QStringLiteral("The guide is not there: it belongs into the folder %1")
                            .arg(ToQt(guide_.folder)));
    return;
  }
  page_->Open(ToQt(GuidePlaceOf(topic)));
}

void HelpWindow::Search(const QString& text) {
  search_->setText(text);
  FocusSearch();
}

void HelpWindow::FocusSearch() {
  search_->setFocus();
  search_->selectAll();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !search_->text().isEmpty()) {
    search_->clear();
  } else if (event->key() == Qt::Key_F1) {
    ShowTopic(0);
  } else {
    ScreenWindow::keyPressEvent(event);
  }
}

void HelpWindow::BelongTo(QWidget* dialog) {
  if (dialog == this || dialog == parentWidget()) return;
  dialog->installEventFilter(this);
  MoveTo(dialog);
}

void HelpWindow::MoveTo(QWidget* owner) {
  const QRect place = geometry();
  const bool shown = isVisible();
  setParent(owner, windowFlags());
  setGeometry(place);
  if (shown) show();
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && watched == parentWidget()) {
    watched->removeEventFilter(this);
    QWidget* const opener = parentWidget()->parentWidget();
    MoveTo(opener != nullptr ? opener->window() : AllScreens().Table());
  }
  return ScreenWindow::eventFilter(watched, event);
}

}  // namespace feltmaster
