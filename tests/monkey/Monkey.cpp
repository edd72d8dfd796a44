// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/Monkey.h"

#include <QApplication>
#include <QDrag>
#include <QPixmapCache>
#include <QTimerEvent>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <optional>

#include "controls/FolderModel.h"
#include "files/NativePath.h"
#include "manualeditor/OpenText.h"
#include "platform/FileText.h"
#include "setup/GameFolderCheck.h"
#include "startup/Program.h"
#include "stock/StockTable.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr int kDeepest = 3;          // events inside of the work for an event inside of ...
constexpr int kLongestRound = 2000;  // events
constexpr int kFewestRounds = 4;
constexpr int kEventsPerChange = 60;  // of the monkey for one from outside
constexpr int kMostTicksWithoutWindow = 2000;
constexpr int kRoundsPerPair = 3;  // of programs on one folder

constexpr std::array kSettings = {"InfoTab",     "Exit",        "MenuiFont",   "MenuiFontSize", "MenuiBold",
                                  "ManEditSize", "ManEditName", "ManEditBold", "FrmEdit_Width", "ItemNum"};
constexpr std::array kValues = {"0",    "1",        "-7", "99999999999", "DejaVu Sans",
                                "True", "nonsense", "",   "6",           "12"};

QString Text(const fs::path& path) {
  return QString::fromStdString(ProgramText(path));
}

fs::path Game(const fs::path& root) {
  return root / "home" / "game";
}

// Two pages that lead to each other and to what is not there.
std::string HelpText() {
  return "Korvane help file, version 1\n\fcontents.md\n---\ntopic: 1\n---\n# Contents\n\n"
         "[More](more.md), [nothing](none.md), [far](https://example.org/)\n\fmore.md\n# More\n\n## Part\n\n"
         "- [Back](contents.md)\n";
}

QString NameOf(const QWidget& window) {
  return window.objectName().isEmpty() ? window.metaObject()->className() : window.objectName();
}

// What the manual editors hold.
std::string OpenFiles() {
  std::string files;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    for (const OpenText* open : window->findChildren<OpenText*>()) {
      files += "; in the editor: " + open->file().toStdString() + (open->isPart() ? ", a part of it" : "");
    }
  }
  return files;
}

std::string Description(const GameLedger::Change& change) {
  const auto size = [](const std::optional<std::string>& bytes) {
    return bytes ? std::to_string(bytes->size()) + " bytes" : std::string("nothing");
  };
  return change.path + ", " + size(change.before) + " before, " + size(change.after) + " after" + OpenFiles();
}

}  // namespace

class Monkey::Boxes : public MessageBoxes {
 public:
  Boxes(Monkey& monkey, HelpViewer& help) : monkey_(monkey), real_(help) {}

  // Now and then a real one, which the monkey then has to close.
  bool show(const Message& message, QWidget* owner) override {
    if (monkey_.over_) return false;
    if (monkey_.chance_.oneIn(3)) return real_.show(message, owner);
    return monkey_.chance_.oneIn(2);
  }

  int ask(const Question& question, QWidget* owner) override {
    const int last = static_cast<int>(question.answers.size()) - 1;
    if (monkey_.over_) return last;
    if (monkey_.chance_.oneIn(3)) return real_.ask(question, owner);
    return monkey_.chance_.below(last + 1);
  }

 private:
  Monkey& monkey_;
  DesktopMessageBoxes real_;
};

// Lets the monkey in wherever long work lets events run, far more often than time alone would.
class Monkey::Yield : public EventYield {
 public:
  explicit Yield(Monkey& monkey) : EventYield(std::chrono::milliseconds(0)), monkey_(monkey) {}

 protected:
  void runEvents() override {
    monkey_.pulse_.beat("work");
    if (!monkey_.over_) EventYield::runEvents();
  }

 private:
  Monkey& monkey_;
};

class Monkey::End : public ProcessEnd {
 public:
  explicit End(Monkey& monkey) : monkey_(monkey) {}
  bool startAnew(Rights) override { return false; }
  bool needsAdministrator(const QString&) const override { return false; }
  void end() override { monkey_.endRound(); }

 private:
  Monkey& monkey_;
};

// One of the programs that use the folder at the same time.
class Monkey::Copy {
 public:
  Copy(Monkey& monkey, SettingsStore& settings)
      : folders_{{}, Text(monkey.root_ / "program")},
        help_(folders_.helpFile()),
        boxes_(monkey, help_),
        services_{settings, boxes_, monkey.shell_, help_, *monkey.end_, *monkey.yield_, folders_},
        program_(services_, folders_, monkey.chance_.oneIn(4) ? "-Reinstall" : "") {}

  void start() { program_.StartProgram(); }

 private:
  Folders folders_;
  HelpDesk help_;
  Boxes boxes_;
  Services services_;
  Program program_;
};

// A timer of its own for every tick, so that the next one can come before this one is over.
class Monkey::Ticker : public QObject {
 public:
  explicit Ticker(Monkey& monkey) : monkey_(monkey) {}

 protected:
  void timerEvent(QTimerEvent* event) override {
    killTimer(event->timerId());
    monkey_.tick();
  }

 private:
  Monkey& monkey_;
};

Monkey::Monkey(unsigned seed, const fs::path& root, bool damaged)
    : chance_(seed),
      root_(root),
      ledger_(Game(root), damaged        ? DamagedGame(chance_)
                          : seed % 4 < 2 ? SmallGame()
                                         : SampleGame()),
      hands_(chance_, [this](const char* what, const std::function<void()>& event) { around(what, event); }),
      settings_(settingsFolder()),
      end_(std::make_unique<End>(*this)),
      yield_(std::make_unique<Yield>(*this)) {
  for (const char* folder : {"program", "settings", "home/data"}) fs::create_directories(root / folder);
  std::ofstream(root / "program" / "KORVANE.HLP", std::ios::binary) << HelpText();
  StockTable stock(root / "program" / "Data");
  for (const auto& [path, bytes] : ledger_.original()) {
    std::string name = path;
    std::replace(name.begin(), name.end(), '/', '\\');
    stock.add(name, bytes);
  }
  stock.commit();
}

Monkey::~Monkey() = default;

QString Monkey::settingsFolder() const {
  return QString::fromStdString((root_ / "settings").string());
}

MonkeyReport Monkey::run(int events) {
  QPixmapCache::setCacheLimit(0);  // it keeps the name of every picture of every size that it ever held
  eventsLeft_ = events;
  warmAt_ = events - events / 3;
  longestRound_ = std::min(kLongestRound, events / kFewestRounds);
  pulse_.reset();
  while (eventsLeft_ > 0 && report_.fault.empty()) round();
  report_.events = events - eventsLeft_;
  report_.longest = pulse_.longest();
  report_.longestWork = pulse_.longestWork();
  report_.longestDuring = pulse_.longestDuring();
  report_.resident = ResidentBytes();
  ledger_.restore();  // or the folder could not be removed
  return report_;
}

void Monkey::round() {
  ++report_.rounds;
  begin();
  {
    SettingsStore others(settingsFolder());
    Copy program(*this, settings_);
    std::optional<Copy> another;
    if (chance_.oneIn(kRoundsPerPair)) another.emplace(*this, others);
    program.start();
    if (another && !over_) another->start();
    if (!over_) loop_.exec();
    ticker_.reset();
  }
  inspect("end of the program");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  measureHeap();
}

void Monkey::begin() {
  over_ = false;
  ticksWithoutWindow_ = 0;
  roundLeft_ = 1 + chance_.below(longestRound_);
  for (int i = chance_.below(4); i > 0; --i) ledger_.changeOutside(chance_);
  const QString game = settings_.gameFolder();
  const bool elsewhere =
      game != Text(ledger_.folder()) && FolderExists(ProgramPath(game.toStdString() + "\\Data\\INI"));
  if (elsewhere || !chance_.oneIn(6)) settings_.saveGameFolder(Text(ledger_.folder()));
  ticker_ = std::make_unique<Ticker>(*this);
  ticker_->startTimer(0);
}

void Monkey::endRound() {
  over_ = true;
  loop_.quit();
}

// Runs in whatever loop lets events run: the program's own, that of a dialog or menu, or in the middle of a
// read. It goes on when the round is over, since a box that the program itself has opened still has to go.
void Monkey::tick() {
  pulse_.beat("tick");
  ticker_->startTimer(0);
  if (over_ || depth_ >= kDeepest) return dismiss();
  if (depth_ > 0 && chance_.oneIn(2)) return;
  if (depth_ > 0 && chance_.oneIn(20)) return dismiss();
  ++depth_;
  step();
  --depth_;
  pulse_.beat("event loop");
}

void Monkey::step() {
  if (eventsLeft_ <= 0 || roundLeft_ <= 0) return endRound();
  const QList<QWindow*> shown = WindowsShown();
  noteWindows(shown);
  ticksWithoutWindow_ = shown.isEmpty() ? ticksWithoutWindow_ + 1 : 0;
  if (ticksWithoutWindow_ > kMostTicksWithoutWindow) return fail("The program runs on without a window");
  if (chance_.oneIn(kEventsPerChange)) {
    inspect("change from outside");
    ledger_.changeOutside(chance_);
  }
  if (chance_.oneIn(400)) garbleSetting();
  if (chance_.oneIn(3)) hands_.reachFolder(QString::fromStdString(ledger_.folder().string()));
  hands_.act();
}

// And the lists that open inside of a window.
void Monkey::noteWindows(const QList<QWindow*>& shown) {
  for (const QWindow* window : shown) {
    const QWidget* top = WidgetOf(*window);
    report_.windows.insert(NameOf(*top));
    for (const char* list : {"FindAnything", "ProposalList"}) {
      const auto* found = top->findChild<QWidget*>(list);
      if (found != nullptr && found->isVisible()) report_.windows.insert(list);
    }
  }
}

// Ends what would keep the work below it from going on.
void Monkey::dismiss() {
  QDrag::cancel();
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (QWidget* modal = QApplication::activeModalWidget()) {
    modal->close();
  }
}

void Monkey::around(const char* what, const std::function<void()>& event) {
  if (over_) return;
  --eventsLeft_;
  --roundLeft_;
  if (depth_ > 1) inspect(what);  // the event that this one comes in the middle of may have saved
  stayInGame();
  pulse_.beat(what);
  event();
  pulse_.beat(what);
  inspect(what);
}

// The folder tree shows the whole machine: a game of somebody else's is none of the monkey's business.
void Monkey::stayInGame() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* tree = window->findChild<QTreeView*>("BrowseTree");
    if (tree == nullptr) continue;
    const QString folder = tree->currentIndex().data(FolderModel::PathRole).toString();
    const bool isGame = HoldsGame(folder) || FolderExists(ProgramPath(folder.toStdString() + "\\Data\\INI"));
    if (isGame && folder != Text(ledger_.folder())) tree->setCurrentIndex(tree->model()->index(0, 0));
  }
}

void Monkey::inspect(const char* what) {
  for (const GameLedger::Change& change : ledger_.look()) {
    const bool isExtracted = change.after && IsPackedText(*change.after);
    if (!change.before && change.after && (isExtracted || ledger_.isOriginal(change.path, *change.after))) {
      ++report_.restored;
    } else if (!change.after || !(isSaved(change) || isConverted(change))) {
      fail("A file changed that no save changed, by " + std::string(what) + ": " + Description(change));
    } else if (change.before && !isKept(*change.before)) {
      fail("A save did not keep the version before it, by " + std::string(what) + ": " + Description(change));
    } else {
      ++report_.saves;
    }
  }
}

bool Monkey::isSaved(const GameLedger::Change& change) const {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    for (const OpenText* open : window->findChildren<OpenText*>()) {
      const bool isItsFile =
          NativePath(ProgramPath(open->file().toStdString())) == ledger_.folder() / change.path;
      if (isItsFile && open->isWhole() && FileOfUtf8(open->utf8()).bytes == *change.after) return true;
    }
  }
  return false;
}

// The notice bar's button gives a file the line ends that a save would give it.
bool Monkey::isConverted(const GameLedger::Change& change) {
  if (!change.before) return false;
  const QByteArray text = Utf8OfFile(*change.before);
  return FileOfUtf8({text.constData(), static_cast<std::size_t>(text.size())}).bytes == *change.after;
}

bool Monkey::isKept(const std::string& bytes) const {
  for (const fs::directory_entry& file : fs::recursive_directory_iterator(root_ / "home" / "data")) {
    if (!file.is_regular_file() || file.file_size() != bytes.size()) continue;
    std::ifstream kept(file.path(), std::ios::binary);
    if (std::string(std::istreambuf_iterator<char>(kept), {}) == bytes) return true;
  }
  return false;
}

void Monkey::fail(const std::string& fault) {
  if (report_.fault.empty()) report_.fault = fault;
  endRound();
}

void Monkey::garbleSetting() {
  const char* section = chance_.oneIn(4) ? "EditWH" : chance_.oneIn(8) ? "Search List" : "Settings";
  settings_.save(section, chance_.oneOf(kSettings), chance_.oneOf(kValues));
}

void Monkey::measureHeap() {
  report_.heapEnd = HeapInUse();
  if (eventsLeft_ >= warmAt_ || report_.rounds == 1)
    report_.heapWarm = std::max(report_.heapWarm, report_.heapEnd);
}

}  // namespace korvane
