// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QScrollArea>
#include <QStringList>

#include <functional>
#include <map>
#include <utility>
#include <vector>

class QLabel;

namespace korvane {

// One sentence of a notice bar, put together from plain text and links, with buttons behind it.
class Notice {
 public:
  using Follow = std::function<void()>;

  explicit Notice(const QString& text = {}) { say(text); }

  Notice& say(const QString& text);
  Notice& link(const QString& caption, Follow follow);
  Notice& button(const QString& caption, Follow follow);

  // What it says, links included.
  QString plainText() const;

 private:
  friend class NoticeBar;

  struct Piece {
    QString text;
    Follow follow;  // none: plain text
  };
  QString richText(const QColor& linkColour) const;

  std::vector<Piece> pieces_;
  std::vector<Piece> buttons_;
};

// Says what the user should know about what a window shows, at the window's lower edge; hidden when there is
// nothing to say. Whoever has something to say has a part of its own, and parts are seen in the order of
// their numbers.
class NoticeBar : public QScrollArea {
  Q_OBJECT

 public:
  explicit NoticeBar(QWidget* parent = nullptr);

  // Replaces what the part said before; nothing takes it away.
  void tell(int part, std::vector<Notice> notices);
  void clear(int part) { tell(part, {}); }

  // Goes to the first link or button, as its key does; Escape goes back to where the keyboard was.
  void takeKeyboard();

  // The sentences that are seen, without their buttons.
  QStringList sentences() const;

  // A new widget with the content and, below it, the bar.
  static QWidget* below(QWidget* content, NoticeBar* bar);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void rebuild();
  void tellReader();
  QWidget* makeRow(const Notice& notice);
  void follow(const Notice::Follow& follow);
  void applyColours();
  void giveKeyboardBack();

  std::map<int, std::vector<Notice>> parts_;
  std::vector<std::pair<QLabel*, Notice>> texts_;  // as they are seen
  QPointer<QWidget> told_;                         // what a screen reader hears the notices of
  QString ownDescription_;                         // of it, without notices
  QPointer<QWidget> before_;                       // what had the keyboard before the bar
};

}  // namespace korvane
