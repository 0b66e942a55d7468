// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

/// A goal for speed or memory, and how it is measured.
struct SBenchmark
{
    const char *id;
    const char *work; ///< what is measured, for the list of goals
    void (*run)();    ///< prints one or more figures; a QApplication must exist
};

/// A task that this program runs in a separate process, for what can only be measured for a whole process.
struct SChildPart
{
    const char *name;
    int (*run)(int argc, char **argv); ///< returns the exit status; creates its own application object
};

/// All measurements of this program. A new goal needs a file and a row in one of the tables.
namespace Benchmarks {

const QVector<SBenchmark> &all();
const QVector<SChildPart> &childParts();

void measureBuild();

void measureWholeWallFrame();
void measureActualSizeFrame();
void measureLookup();
void measureWiring();
void measureRemoval();
void measureNudge();
void measureSelectAll();
void measureHandOver();
void measureExport();
void measureMemory();
void measureStart();
void measureGrowth();
void measureEditGrowth();
void measureGestures();
void measurePrint();
void measureJournal();
void measurePortList();
void measureSelectionTold();
void measureHostile();

int memoryOfEditor(int argc, char **argv);
int memoryOfUndo(int argc, char **argv);
int memoryOfBareScene(int argc, char **argv);
int startOfEditor(int argc, char **argv);

} // namespace Benchmarks
