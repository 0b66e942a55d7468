// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/CBareSide.h"
#include "benchmarks/CEditorSide.h"
#include "benchmarks/ChildProcess.h"
#include "benchmarks/Figures.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/resources/LayoutResources.h"

#include <QApplication>
#include <QFile>

#include <cstdio>
#include <malloc.h>
#include <unistd.h>

namespace {

constexpr int MemoryRepetitions = 3;
constexpr int RecordedSteps = 4;

/// Bytes of this process that are in memory.
qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read /proc/self/statm");
    const QList<QByteArray> pages = file.readAll().split(' ');
    return pages.value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// Prints what a cabinet of the full wall adds when @p load shows it; the records themselves do not count.
template <typename Side, typename Load>
int printGrowth(Side &side, Load load)
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    malloc_trim(0); // what making the records left free would hide some of the growth
    const qint64 before = residentBytes();
    load(side, data);
    side.view().viewport()->repaint();
    QCoreApplication::processEvents();
    std::printf("%f\n", double(residentBytes() - before) / data.layout.cabinetCount());
    return 0;
}

std::function<double()> bytesOf(const char *part)
{
    return [part] { return ChildProcess::outputOfPart(part).trimmed().toDouble(); };
}

} // namespace

void Benchmarks::measureMemory()
{
    const SMedians medians =
        Figures::compare(MemoryRepetitions, bytesOf("editor-memory"), bytesOf("bare-memory"));
    Figures::print({"B11 resident bytes a cabinet with its line (not ms)",
                    Wall::FullPorts * Wall::CabinetsPerPort, medians.work, "bare scene (bytes)",
                    medians.reference});
    const SMedians undo = Figures::compare(MemoryRepetitions, bytesOf("undo-memory"), bytesOf("bare-memory"));
    Figures::print({"B11 resident bytes a cabinet of an undo step that moves all (not ms)",
                    Wall::FullPorts * Wall::CabinetsPerPort, undo.work, "bare scene (bytes)",
                    undo.reference});
}

int Benchmarks::memoryOfEditor(int argc, char **argv)
{
    const QApplication application(argc, argv);
    initLayoutResources();
    CEditorSide side;
    return printGrowth(side, [](CEditorSide &editor, const LayoutData &data) { editor.load(data); });
}

int Benchmarks::memoryOfUndo(int argc, char **argv)
{
    const QApplication application(argc, argv);
    initLayoutResources();
    const LayoutData data = Wall::data(Wall::FullPorts);
    CEditorSide side;
    side.load(data);
    side.scene().selectAllItem();
    side.scene().selectedItemMoveRight(); // what the first step alone needs does not count
    QCoreApplication::processEvents();
    malloc_trim(0);
    const qint64 before = residentBytes();
    for (int i = 0; i < RecordedSteps; ++i)
        side.scene().selectedItemMoveRight();
    QCoreApplication::processEvents();
    malloc_trim(0);
    std::printf("%f\n", double(residentBytes() - before) / RecordedSteps / data.layout.cabinetCount());
    return 0;
}

int Benchmarks::memoryOfBareScene(int argc, char **argv)
{
    const QApplication application(argc, argv);
    CBareSide side(CBareScene::OpenPorts);
    return printGrowth(side, [](CBareSide &bare, const LayoutData &data) { bare.load(data.layout); });
}
