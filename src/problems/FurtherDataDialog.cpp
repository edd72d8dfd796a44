// SPDX-License-Identifier: GPL-3.0-or-later
#include "problems/FurtherDataDialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "catalogue/SourceFiles.h"
#include "controls/Named.h"
#include "files/NativePath.h"
#include "platform/MessageBoxes.h"

namespace korvane {

namespace {

constexpr QSize kDesignSize{520, 260};

QString ProgramPathOf(const QString& native) {
  return QString::fromStdString(ProgramText(native.toStdU16String()));
}

bool HasIniFiles(const QString& path) {
  const auto list = ListSourceFiles({path.toStdString()}, {});
  return list && !list->files.empty();
}

}  // namespace

FurtherDataDialog::FurtherDataDialog(const QStringList& paths, MessageBoxes& messages, QWidget* parent)
    : QDialog(parent), messages_(messages), list_(Named("furtherData", new QListWidget)) {
  setObjectName("FurtherDataDialog");
  setWindowTitle("Further Data");
  resize(kDesignSize);
  auto* layout = new QVBoxLayout(this);
  auto* about = new QLabel(
      "Folders and archives (.big) whose INI files count too, behind those of the game folder: the original "
      "game's data, when the folder holds only what a modification changes.");
  about->setWordWrap(true);
  layout->addWidget(about);
  list_->setAccessibleName("Further data");
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->addItems(paths);
  layout->addWidget(list_);
  auto* changes = new QHBoxLayout;
  layout->addLayout(changes);
  const auto addButton = [&](const char* name, const char* caption, void (FurtherDataDialog::*run)()) {
    auto* button = Named(name, new QPushButton(caption));
    changes->addWidget(button);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, run);
    return button;
  };
  addButton("addFolder", "Add &Folder...", &FurtherDataDialog::addFolder);
  addButton("addArchive", "Add &Archive...", &FurtherDataDialog::addArchives);
  remove_ = addButton("remove", "&Remove", &FurtherDataDialog::remove);
  changes->addStretch();
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  layout->addWidget(buttons);
  remove_->setEnabled(false);
  connect(list_, &QListWidget::itemSelectionChanged, this,
          [this] { remove_->setEnabled(!list_->selectedItems().isEmpty()); });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QStringList FurtherDataDialog::paths() const {
  QStringList paths;
  for (int row = 0; row < list_->count(); ++row) paths += list_->item(row)->text();
  return paths;
}

void FurtherDataDialog::add(const QString& path) {
  if (paths().contains(path, Qt::CaseInsensitive)) return;
  if (HasIniFiles(path)) {
    list_->addItem(path);
  } else {
    messages_.show({.text = "There are no INI files of the game (Data\\INI) in this: \r\n" + path}, this);
  }
}

void FurtherDataDialog::addFolder() {
  auto* dialog = new QFileDialog(this, "Add a Folder");
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  choose(*dialog);
}

void FurtherDataDialog::addArchives() {
  auto* dialog = new QFileDialog(this, "Add an Archive", {}, "Archives (*.big *.BIG *.Big)");
  dialog->setFileMode(QFileDialog::ExistingFiles);
  choose(*dialog);
}

void FurtherDataDialog::choose(QFileDialog& dialog) {
  dialog.setAttribute(Qt::WA_DeleteOnClose);
  dialog.setOption(QFileDialog::ReadOnly);  // nothing is renamed, deleted or made through it
  connect(&dialog, &QFileDialog::filesSelected, this, [this](const QStringList& chosen) {
    for (const QString& native : chosen) add(ProgramPathOf(native));
  });
  dialog.open();
}

void FurtherDataDialog::remove() {
  qDeleteAll(list_->selectedItems());
}

}  // namespace korvane
