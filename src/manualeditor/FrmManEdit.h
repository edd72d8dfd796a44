// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

#include <array>
#include <string>

#include "app/Commands.h"
#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "app/NameSource.h"
#include "app/TextEdit.h"
#include "catalogue/Catalogue.h"
#include "platform/WindowCalls.h"

class QLabel;
class QTimer;
class QToolBar;

namespace korvane {

class CatalogueService;
class FileWriter;
class BlockDuplication;
class BlockOutline;
class Completion;
class FindBar;
class FontChooser;
class FrmReplace;
class IniTextEdit;
class KeptVersions;
class LiveFindings;
class NoticeBar;
class OpenText;
class RecentFiles;
class TextTabs;
class TextTips;
struct Services;

// The manual editor: the game's files, or parts of them, as plain text, each in a tab of its own. An opening
// command hands over what to open and shows the window, which then sets itself up, once.
class FrmManEdit : public QMainWindow, public NameSource {
  Q_OBJECT

 public:
  FrmManEdit(const Services& services, const FileWriter& files, const KeptVersions& versions,
             FontChooser& fonts, CatalogueService& names);
  ~FrmManEdit() override;

  // False, after a message, when it cannot be opened; the window then stays as it is. A file whose text is
  // not saved is only brought forward, and gone to its place.
  bool open(const ManualEditRequest& request);
  // True when what was opened last is set up, its place gone to.
  bool ManEditInitDone() const { return ManEditInitDone_; }

  // Empties the list of what was sought; the text in the find box stays.
  void forgetFinds();

  // The program's path of the file whose text is shown, empty before the first, and the text in UTF-8 when it
  // is only a part of that file, else an empty one.
  const QString& file() const;
  std::string part() const;
  // There is text of the whole file that is not saved.
  bool hasUnsaved(const QString& file) const;

  // Goes to the place when the whole of this file is open, with whatever is typed; false when it is not.
  bool goToIn(const QString& file, const ManualEditPlace& place);
  void goToLine(int line);  // from 1
  std::optional<NameHere> nameHere() const override;
  const Commands& commands() const { return commands_; }
  std::optional<ItemPlace> placeHere() const override;
  std::optional<ItemPlace> blockHere() const override;

  // The whole text of this file, unsaved changes included, see EditPlan; nothing when it is not open, or
  // cannot be changed.
  std::optional<std::string> bytes(const QString& file) const;
  // Changes the text as one step to undo and goes to the first change. False when the plan names none, or
  // when the whole of this file is not open to be changed.
  bool edit(const QString& file, const EditPlan& plan);
  // The same by what TextRewrite gives, all characters included.
  bool rewrite(const QString& file, const TextRewrite& rewrite);
  std::optional<std::string> utf8(const QString& file) const;

  // Keeps the unsaved texts among the former versions of their files, for the moment before the program ends.
  // False when one cannot be kept and the user does not want to lose it.
  bool keepUnsavedTexts();
  // The same for a program that ends in any case: nothing is asked.
  void keepAtEnd();

  void save();
  void reload();
  void closeTab();
  void showNextTab();
  void showPreviousTab();
  void askForExtract();
  void tellAboutUndo();
  void showReplace();
  void chooseFont();
  void exitCommand();

 Q_SIGNALS:
  void searchAsked(SearchCommand command);
  void fileSaved(const QString& file);
  // The text of an archive is to become a file of the game folder.
  void extractAsked(const FilePlace& place);
  // The program is to be started anew as administrator.
  void administratorAsked();
  // The window can go, see WindowCalls.
  void closedForGood();

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildCommands();
  QAction& buildBlockPanel();
  void buildToolBar();
  void buildStatusBar();

  void setUpSoon();
  void lookAgain();
  void applyOptions();
  void showAnew();
  void setUp();
  void runSetUp();
  bool showStep(const QString& caption);
  bool prepareSearchList();
  void finishSetUp();
  void storeState();
  void showOther();
  void tell(int notice);
  void tellReadOnly();
  const OpenText* whole(const QString& file) const;
  Catalogue::Files unsavedNames(const QString& besides) const;
  void goToPending();
  void buildOpening();
  void openFiles(const QStringList& files);

  void showState(const QString& state);
  void showLine();
  void showTitle();
  void goTo(const ManualEditPlace& place);
  void goToNow(const ManualEditPlace& place);
  void showClock();

  const Services& services_;
  FontChooser& fonts_;

  QToolBar* TB1_;
  IniTextEdit* TxtManEdit_;
  BlockOutline* outline_;
  FindBar* find_;
  TextTabs* tabs_;
  LiveFindings* findings_;
  Completion* completion_;
  BlockDuplication* duplication_;
  TextTips* tips_;
  NoticeBar* notices_;
  FrmReplace* replace_;
  RecentFiles* recent_ = nullptr;
  QTimer* Timer1_;
  Commands commands_{*this};
  std::array<QLabel*, 5> panels_{};

  WindowCalls calls_{*this, [this] { Q_EMIT closedForGood(); }};
  bool ManEditInitDone_ = false;  // cleared by every opening
  bool settingUp_ = false;
  bool reopened_ = false;  // another text arrived while the set-up was running
};

}  // namespace korvane
