// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/FrmColData.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <chrono>

namespace korvane {

namespace {

constexpr int kStages = 25;
constexpr auto kPatience = std::chrono::milliseconds(150);
constexpr int kWidth = 320;

}  // namespace

FrmColData::FrmColData(QWidget& mainWindow)
    : QWidget(&mainWindow,
              Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowDoesNotAcceptFocus),
      mainWindow_(mainWindow),
      PB1_(new QProgressBar) {
  setObjectName("FrmColData");
  setWindowTitle(mainWindow.windowTitle());
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* label = new QLabel("Collecting Data...");
  label->setObjectName("Label1");
  PB1_->setObjectName("PB1");
  PB1_->setRange(0, kStages);
  PB1_->setTextVisible(false);
  PB1_->setAccessibleName(label->text());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 14, 16, 16);
  layout->setSpacing(10);
  layout->addWidget(label);
  layout->addWidget(PB1_);
  setFixedWidth(kWidth);
  mainWindow_.setEnabled(false);
  connect(&patience_, &QTimer::timeout, this, &FrmColData::comeUp);
  patience_.setSingleShot(true);
  patience_.start(kPatience);
}

FrmColData::~FrmColData() {
  mainWindow_.setEnabled(true);
}

void FrmColData::setStage(int value) {
  PB1_->setValue(value);
}

void FrmColData::comeUp() {
  adjustSize();
  move(mainWindow_.geometry().center() - rect().center());
  show();
  Q_EMIT cameUp();
}

}  // namespace korvane
