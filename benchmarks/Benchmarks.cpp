// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"

const QVector<SBenchmark> &Benchmarks::all()
{
    static const QVector<SBenchmark> table = {
        {"B1", "records to scene", measureBuild},
        {"B2", "a frame with the whole wall in the view", measureWholeWallFrame},
        {"B3", "a frame at 1:1", measureActualSizeFrame},
        {"B4", "what is under the cursor", measureLookup},
        {"B5", "wiring by a snake pattern", measureWiring},
        {"B6", "delete a port's cabinets, and undo", measureRemoval},
        {"B7", "move everything by an arrow key", measureNudge},
        {"B8", "select all", measureSelectAll},
        {"B9", "move one cabinet, until the host has the layout", measureHandOver},
        {"B10", "a project file to a picture, whole process", measureExport},
        {"B11", "resident memory a cabinet with its line", measureMemory},
        {"B12", "start to first frame", measureStart},
        {"B13", "growth from a tenth to the full size", measureGrowth},
        {"B13", "growth of edits from a tenth to the full size", measureEditGrowth},
        {"B14", "the slowest frame while the mouse works", measureGestures},
        {"B15", "a PDF of all sheets of a wall", measurePrint},
        {"B16", "edits with the journal", measureJournal},
        {"B18", "the list of all ports: loads, another processor", measurePortList},
        {"B18", "select all, until side panel and port list show it", measureSelectionTold},
        {"hostile", "pictures of layouts that no editor makes", measureHostile},
    };
    return table;
}

const QVector<SChildPart> &Benchmarks::childParts()
{
    static const QVector<SChildPart> table = {
        {"editor-memory", memoryOfEditor},
        {"undo-memory", memoryOfUndo},
        {"bare-memory", memoryOfBareScene},
        {"editor-start", startOfEditor},
    };
    return table;
}
