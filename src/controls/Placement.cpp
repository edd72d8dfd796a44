// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

#include "settings/SettingsStore.h"

namespace korvane {

namespace {

const QString kSection = QStringLiteral("EditWH");
constexpr int kTitleBar = 32;  // enough of a title bar to take hold of, in pixels
constexpr int kReachableWidth = 96;
constexpr QSize kLikelyFrame(8, kTitleBar);
constexpr int kWidestFrame = 200;  // a larger one is a damaged entry

enum State { normal = 0, minimised = 1, maximised = 2 };

int StateOf(const QWidget& window) {
  if (window.isMaximized()) return maximised;
  return window.isMinimized() ? minimised : normal;
}

int Stored(const SettingsStore& store, const QWidget& window, const char* key, int current) {
  const auto text = store.find(kSection, window.objectName() + key);
  bool isNumber = false;
  const short value = text ? text->trimmed().toShort(&isNumber) : short{0};
  return isNumber ? value : current;
}

// How much larger the outer frame is than the window's own area.
QSize FrameExtra(const QWidget& window) {
  return window.frameGeometry().size() - window.size();
}

// Before a window is first shown nobody knows its frame; the one it had when it was closed is then assumed,
// and a common one of a window that was never closed, so that its title bar too has a place on the screen.
QSize FrameToCome(const SettingsStore& store, const QWidget& window) {
  const QSize now = FrameExtra(window);
  if (!now.isNull()) return now;
  if (!store.find(kSection, window.objectName() + "_Height")) return kLikelyFrame;
  const auto stored = [&](const char* key) {
    const int value = Stored(store, window, key, 0);
    return value >= 0 && value <= kWidestFrame ? value : 0;
  };
  return {stored("_FrameWidth"), stored("_FrameHeight")};
}

QPoint Reachable(QRect frame) {
  const QScreen* screen = QGuiApplication::screenAt(frame.center());
  if (screen == nullptr) screen = QGuiApplication::screenAt(frame.topLeft());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect area = screen->availableGeometry();
  const int leftmost = area.left() - std::max(0, frame.width() - kReachableWidth);
  const int rightmost = std::max(leftmost, area.right() - kReachableWidth);
  const int lowest = std::max(area.top(), area.bottom() - kTitleBar);
  return {std::clamp(frame.left(), leftmost, rightmost), std::clamp(frame.top(), area.top(), lowest)};
}

// No larger than all the screens together.
QSize OnScreens(QSize frame) {
  return frame.boundedTo(QGuiApplication::primaryScreen()->availableVirtualSize());
}

QSize LeastSize(const QWidget& window) {
  return window.minimumSizeHint().expandedTo(window.minimumSize()).expandedTo({kReachableWidth, kTitleBar});
}

void Apply(QWidget& window, int state) {
  Qt::WindowStates states = window.windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
  if (state == minimised) states |= Qt::WindowMinimized;
  if (state == maximised) states |= Qt::WindowMaximized;
  window.setWindowState(states);
}

void RestoreGeometry(const SettingsStore& store, QWidget& window) {
  const QSize extra = FrameToCome(store, window);
  const QSize now = window.size() + extra;
  const QSize stored(Stored(store, window, "_Width", now.width()),
                     Stored(store, window, "_Height", now.height()));
  const int left = Stored(store, window, "_Left", window.x());
  const int top = Stored(store, window, "_Top", window.y());
  // A size of nothing is a damaged entry; what is smaller than the window can be would be shown larger.
  const QSize size(stored.width() > 0 ? stored.width() : now.width(),
                   stored.height() > 0 ? stored.height() : now.height());
  window.resize((OnScreens(size) - extra).expandedTo(LeastSize(window)));
  if (store.find(kSection, window.objectName() + "_Left") ||
      store.find(kSection, window.objectName() + "_Top")) {
    window.move(Reachable(QRect(QPoint(left, top), window.size())));
  }
}

}  // namespace

void SavePlacement(SettingsStore& store, const QWidget& window) {
  const SettingsStore::Batch batch(store);
  const auto save = [&](const char* key, int value) {
    store.save(kSection, window.objectName() + key, QString::number(value));
  };
  const int state = StateOf(window);
  if (state != maximised) {
    save("_Height", window.frameGeometry().height());
    save("_Width", window.frameGeometry().width());
    save("_Top", window.y());
    save("_Left", window.x());
    save("_FrameHeight", FrameExtra(window).height());
    save("_FrameWidth", FrameExtra(window).width());
  }
  save("WindowState", state);
}

void RestorePlacement(const SettingsStore& store, QWidget& window) {
  if (StateOf(window) == normal) RestoreGeometry(store, window);
  const int state = Stored(store, window, "WindowState", StateOf(window));
  if (state >= normal && state <= maximised) Apply(window, state);
}

}  // namespace korvane
