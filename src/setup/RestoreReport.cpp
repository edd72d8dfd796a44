// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/RestoreReport.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "controls/Named.h"
#include "controls/ShownText.h"

namespace korvane {

namespace {

constexpr int kLines = 5;  // least height of the list, in lines

QString Shown(const std::string& text) {
  return ShownText(QString::fromStdString(text));
}

QString Files(qsizetype count) {
  return count == 1 ? QString("1 file was") : QString("%1 files were").arg(count);
}

QString Others(const std::vector<std::string>& archives) {
  QStringList names;
  for (std::size_t i = 1; i < archives.size(); ++i) names += Shown(archives[i]);
  return names.join(", ");
}

QString OriginOf(const RestoredFile& file) {
  if (!file.reason.empty()) return "not written: " + ShownText(QString::fromLocal8Bit(file.reason.c_str()));
  if (file.source == RestoredFile::Source::database) return "sample text of the program";
  const QString first = "from " + Shown(file.archives.front());
  return file.archives.size() == 1 ? first : first + "; also in " + Others(file.archives);
}

QString Summary(const std::vector<RestoredFile>& files) {
  const auto failed = std::count_if(files.begin(), files.end(),
                                    [](const RestoredFile& file) { return !file.reason.empty(); });
  const QString written = Files(static_cast<qsizetype>(files.size()) - failed) + " written.";
  return failed == 0 ? written : Files(failed) + " not written. " + written;
}

}  // namespace

RestoreReport::RestoreReport(QWidget* parent)
    : QWidget(parent),
      LblRestored_(Named("LblRestored", new QLabel)),
      LstRestored_(Named("LstRestored", new QTreeWidget)) {
  LblRestored_->setTextFormat(Qt::PlainText);
  LblRestored_->setWordWrap(true);
  LstRestored_->setAccessibleName("Files");
  LstRestored_->setHeaderLabels({"File", "Result"});
  LstRestored_->setRootIsDecorated(false);
  LstRestored_->setUniformRowHeights(true);
  LstRestored_->setMinimumHeight(kLines * fontMetrics().height());
  LstRestored_->header()->setStretchLastSection(false);
  LstRestored_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(LblRestored_);
  layout->addWidget(LstRestored_, 1);
  clear();
}

void RestoreReport::clear() {
  LstRestored_->clear();
  hide();
}

void RestoreReport::show(const std::vector<RestoredFile>& files,
                         const std::vector<std::string>& archiveFailures) {
  clear();
  QList<QTreeWidgetItem*> rows;
  qsizetype problems = 0;
  const auto add = [&](const QString& what, const QString& result, bool isProblem) {
    auto* row = new QTreeWidgetItem({what, result});
    row->setToolTip(0, what);
    row->setToolTip(1, result);
    rows.insert(isProblem ? problems++ : rows.size(), row);
  };
  for (const std::string& failure : archiveFailures) add("Archives", Shown(failure), true);
  for (const RestoredFile& file : files) add(Shown(file.path), OriginOf(file), !file.reason.empty());
  LstRestored_->addTopLevelItems(rows);
  LblRestored_->setText(Summary(files));
  setVisible(!rows.isEmpty());
}

}  // namespace korvane
