#pragma once

#include <QTextBrowser>
#include <QTreeWidget>

#include "desktop/screen_window.h"
#include "view/user_guide.h"

class QLineEdit;

namespace feltmaster {

// A chapter of the guide: headings can be reached by links, pictures are never wider than the page.
class GuidePage : public QTextBrowser {
 public:
  explicit GuidePage(QWidget* parent);

  // "file.md#anchor"
  void Open(const QString& place);
  const QUrl& Place() const { return place_; }
  QString File() const { return place_.fileName(); }

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Arrive(const QUrl& place);
  void Dress();
  void LoadAgain();

  QUrl place_;       // source() follows later
  QString dressed_;  // the file that is shown as it should be
  bool has_pictures_ = false;
};

// The guide in a window of its own: its contents, a search over all chapters, and the page.
class HelpWindow : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmHelp", "Feltmaster Help"};
  explicit HelpWindow(Screens& screens);

  void ShowTopic(std::int32_t topic);
  // The text of a search goes to the search box and what is found below it.
  void Search(const QString& text);
  void FocusSearch();

  // A dialog that holds up all other windows lets through those that belong to it: until it is
  // gone the guide is one of them.
  void BelongTo(QWidget* dialog);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildBar();
  void FillContents();
  void ShowHits(const QString& words);
  void MarkPage();
  void MoveTo(QWidget* owner);

  UserGuide guide_;
  GuidePage* page_ = nullptr;
  QLineEdit* search_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QTreeWidget* hits_ = nullptr;
};

}  // namespace feltmaster
