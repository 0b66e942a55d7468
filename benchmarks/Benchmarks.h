// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

/// A goal of the system's speed or size, and how it is measured.
struct SBenchmark
{
    const char *id;
    const char *work; ///< what is measured, for the list of goals
    void (*run)();    ///< prints one or more figures; a QApplication exists
};

/// A part that this program plays in a process of its own, for what can only be measured of a whole process.
struct SChildPart
{
    const char *name;
    int (*run)(int argc, char **argv); ///< gives the exit status; makes its own application object
};

/// All that this program measures. A new goal is a file of its own and a row in one of the tables.
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

int memoryOfEditor(int argc, char **argv);
int memoryOfUndo(int argc, char **argv);
int memoryOfBareScene(int argc, char **argv);
int startOfEditor(int argc, char **argv);

} // namespace Benchmarks
