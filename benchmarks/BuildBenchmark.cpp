// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/CBareSide.h"
#include "benchmarks/CEditorSide.h"
#include "benchmarks/EditSides.h"
#include "benchmarks/Figures.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QCoreApplication>

#include <malloc.h>
#include <memory>

namespace {

constexpr int BuildRepetitions = 9;

SWork bareBuild(const LayoutData &data)
{
    const auto side = std::make_shared<std::unique_ptr<CBareSide>>();
    SWork work;
    work.prepare = [side] {
        *side = std::make_unique<CBareSide>(CBareScene::OpenPorts);
        malloc_trim(0);
    };
    work.run = [side, &data] { (*side)->load(data.layout); };
    work.finish = [side] { side->reset(); };
    return work;
}

void measureBuildOf(const char *name, const LayoutData &data)
{
    const SMedians medians = Figures::compare(BuildRepetitions, EditSides::load(data), bareBuild(data));
    Figures::print({name, data.layout.cabinetCount(), medians.work, "bare scene", medians.reference});
}

/// Both sides replace a layout by itself; the editor before the event loop has turned.
void measureReload(const LayoutData &data)
{
    SWork editor = EditSides::load(data);
    editor.prepare = [prepare = editor.prepare, run = editor.run] {
        prepare();
        run();
    };
    SWork bare = bareBuild(data);
    bare.prepare = [prepare = bare.prepare, run = bare.run] {
        prepare();
        run();
        QCoreApplication::processEvents();
    };
    const SMedians medians = Figures::compare(BuildRepetitions, editor, bare);
    Figures::print({"B1 setLayoutData in place of a layout", data.layout.cabinetCount(), medians.work,
                    "bare scene", medians.reference});
}

/// As when a processor leaves the view and comes back; both sides have been painted before.
void measureClearAndReload(const LayoutData &data)
{
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::OpenPorts);
    bare.load(data.layout);
    QCoreApplication::processEvents();
    SWork editorWork;
    editorWork.run = [&editor, &data] {
        editor.scene().clearLayout();
        editor.load(data);
    };
    editorWork.finish = [] { QCoreApplication::processEvents(); };
    SWork bareWork;
    bareWork.run = [&bare, &data] { bare.load(data.layout); };
    bareWork.finish = [] { QCoreApplication::processEvents(); };
    const SMedians medians = Figures::compare(BuildRepetitions, editorWork, bareWork);
    Figures::print({"B1 clear and setLayoutData", data.layout.cabinetCount(), medians.work, "bare scene",
                    medians.reference});
}

} // namespace

void Benchmarks::measureBuild()
{
    measureBuildOf("B1 setLayoutData", Wall::data(Wall::FullPorts));
    measureBuildOf("B1 setLayoutData, all in nested groups", Wall::data(Wall::FullPorts, true));
    measureReload(Wall::data(Wall::FullPorts));
    measureClearAndReload(Wall::data(Wall::FullPorts));
}

void Benchmarks::measureGrowth()
{
    const LayoutData full = Wall::data(Wall::FullPorts);
    const LayoutData tenth = Wall::data(Wall::TenthPorts);
    SMedians medians = Figures::compare(BuildRepetitions, EditSides::load(full), EditSides::load(tenth));
    Figures::print({"B13 growth of B1", full.layout.cabinetCount(), medians.work, "B1 at 8192 cabinets",
                    medians.reference});
    medians = Figures::compare(BuildRepetitions, bareBuild(full), bareBuild(tenth));
    Figures::print({"B13 growth of the bare scene, for comparison", full.layout.cabinetCount(), medians.work,
                    "bare scene at 8192 cabinets", medians.reference});
}
