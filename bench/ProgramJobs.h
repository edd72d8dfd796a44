// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BenchDesk.h"
#include "Job.h"

namespace korvane {

class Program;

// The program with its main window on the screen.
struct RunningProgram {
  BenchFolders folders;
  BenchDesk& desk;
  Program& program;
};

// Jobs refer to the running program, which outlives them.
Jobs ReadingJobs(const RunningProgram& running);
Jobs EditorJobs(const RunningProgram& running);
Jobs ManualEditorJobs(const RunningProgram& running);
Jobs DatabaseJobs(const RunningProgram& running);
// These need a program that shows a modification.
Jobs CatalogueJobs(const RunningProgram& running);
Jobs CheckJobs(const RunningProgram& running);
Jobs CompareJobs(const RunningProgram& running);
Jobs SearchJobs(const RunningProgram& running);

// Those that are programs of their own; they need no window here.
Jobs ProcessJobs(const BenchFolders& folders);

// What a process of its own tells of its start, kept in a file, for ProcessJobs.
void KeepTold(const BenchFolders& folders, const Told& told);

}  // namespace korvane
