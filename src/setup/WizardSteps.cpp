// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/WizardSteps.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>

#include "platform/Twips.h"
#include "setup/ResStrings.h"
#include "setup/RestoreReport.h"
#include "setup/StepPicture.h"

namespace korvane {

namespace {

constexpr int kAside = -10000;          // left edge of a frame that is not shown, in twips
constexpr int kTextWidth = 62;          // least width of a step's texts, in average characters
constexpr int kFolderLines = 14;        // least height of the folder tree, in lines
constexpr int kSpaceAboveProgress = 2;  // in lines

struct Step {
  int titleId;
  int textId;
};

constexpr std::array<Step, WizardSteps::kCount> kSteps = {
    {{1000, 1001}, {2000, 2001}, {2002, 2003}, {3000, 3001}}};

QString Element(const char* array, int index) {
  return QString::fromLatin1(array) + QString::number(index);
}

QLabel* MakeLabel(const char* name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

WizardSteps::WizardSteps(QWidget* parent) : QWidget(parent) {
  std::array<QVBoxLayout*, kCount> layouts{};
  for (int step = 0; step < kCount; ++step) layouts[static_cast<std::size_t>(step)] = makeFrame(step);
  fillFolderStep(*layouts[1]);
  fillRestoreStep(*layouts[2]);
  for (QVBoxLayout* layout : {layouts[0], layouts[3]}) layout->addStretch(1);
}

QVBoxLayout* WizardSteps::makeFrame(int step) {
  auto* frame = new QGroupBox(this);
  const Step& ids = kSteps[static_cast<std::size_t>(step)];
  frame->setObjectName(Element("fraStep", step));
  frame->setProperty(kTag, ids.titleId);
  frame->setEnabled(false);
  auto* picture = new StepPicture(step, frame);
  picture->setObjectName(Element("imgStep", step));
  QLabel* text = MakeLabel("", {});
  text->setObjectName(Element("lblStep", step));
  text->setProperty(kTag, ids.textId);
  text->setMinimumWidth(kTextWidth * fontMetrics().averageCharWidth());
  auto* columns = new QHBoxLayout(frame);
  auto* contents = new QVBoxLayout;
  columns->addWidget(picture);
  columns->addSpacing(fontMetrics().height() / 2);
  columns->addLayout(contents, 1);
  contents->addWidget(text);
  fraStep_[static_cast<std::size_t>(step)] = frame;
  return contents;
}

void WizardSteps::fillFolderStep(QVBoxLayout& layout) {
  PicBrouse = new QWidget;
  PicBrouse->setObjectName("PicBrouse");
  PicBrouse->setMinimumHeight(kFolderLines * fontMetrics().height());
  layout.addWidget(PicBrouse, 1);
  layout.addWidget(MakeLabel("Label2", "On most computers, This folder is usually located at:"));
  layout.addWidget(MakeLabel("Label3", " C:\\Program Files\\EA Games\\Command and Conquer Generals"));
}

void WizardSteps::fillRestoreStep(QVBoxLayout& layout) {
  ProgressBar1 = new QProgressBar;
  ProgressBar1->setObjectName("ProgressBar1");
  ProgressBar1->setTextVisible(false);  // the label tells the percentage
  ProgressBar1->setValue(0);
  Label1 = MakeLabel("Label1", "Extracting Files...");
  layout.addSpacing(kSpaceAboveProgress * fontMetrics().height());
  layout.addWidget(ProgressBar1);
  layout.addWidget(Label1);
  Report = new RestoreReport;
  layout.addWidget(Report, 1);
  layout.addStretch();
}

void WizardSteps::turn(int from, int to) {
  QGroupBox* old = fraStep_[static_cast<std::size_t>(from)];
  QGroupBox* shown = fraStep_[static_cast<std::size_t>(to)];
  old->setEnabled(false);
  shown->move(0, 0);
  if (shown != old) moveAside(*old);
  shown->setEnabled(true);
}

void WizardSteps::moveAside(QWidget& frame) const {
  frame.move(std::min(PixelsFromTwips(kAside, *this), -width()), 0);
}

int WizardSteps::titleId(int step) const {
  return kSteps[static_cast<std::size_t>(step)].titleId;
}

int WizardSteps::heightForWidth(int width) const {
  int height = 0;
  for (const QGroupBox* frame : fraStep_) height = std::max(height, frame->heightForWidth(width));
  return height;
}

QSize WizardSteps::minimumSizeHint() const {
  QSize size;
  for (const QGroupBox* frame : fraStep_) size = size.expandedTo(frame->minimumSizeHint());
  return {size.width(), std::max(size.height(), heightForWidth(size.width()))};
}

void WizardSteps::resizeEvent(QResizeEvent*) {
  for (QGroupBox* frame : fraStep_) {
    frame->resize(size());
    if (!frame->isEnabled()) moveAside(*frame);
  }
}

}  // namespace korvane
