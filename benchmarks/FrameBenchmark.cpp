// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/CBareSide.h"
#include "benchmarks/CEditorSide.h"
#include "benchmarks/CPainterReference.h"
#include "benchmarks/Figures.h"
#include "benchmarks/ShownView.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

namespace {

constexpr int FrameRepetitions = 11;

SWork frameOf(QWidget &surface)
{
    SWork work;
    work.run = [&surface] { surface.repaint(); };
    return work;
}

void measureActualSizeFrameOf(const char *name, const LayoutData &data)
{
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::ContainedPorts, CBareScene::Outlined);
    bare.load(data.layout);
    const QPoint middle = data.bounds.center();
    editor.view().showActualSize();
    editor.view().centerOn(middle);
    bare.view().centerOn(middle);
    const SMedians medians = Figures::compare(FrameRepetitions, frameOf(*editor.view().viewport()),
                                              frameOf(*bare.view().viewport()));
    Figures::print({name, data.layout.cabinetCount(), medians.work, "bare scene with contained ports",
                    medians.reference});
}

} // namespace

void Benchmarks::measureWholeWallFrame()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    CEditorSide editor;
    editor.load(data);
    editor.view().fitContent();
    CPainterReference painter(data.layout);
    ShownView::show(painter);
    SMedians medians =
        Figures::compare(FrameRepetitions, frameOf(*editor.view().viewport()), frameOf(painter));
    Figures::print({"B2 frame with the whole wall in the view", data.layout.cabinetCount(), medians.work,
                    "painter", medians.reference});
    SWork changing = frameOf(*editor.view().viewport());
    changing.prepare = [&scene = editor.scene()] {
        const bool none = scene.selection().isEmpty();
        const CEditBatch batch(scene.backend().batches());
        scene.clearSelection();
        if (none)
            scene.selectAllItem();
    };
    medians = Figures::compare(FrameRepetitions, changing, frameOf(painter));
    Figures::print({"B2 frame with another selection", data.layout.cabinetCount(), medians.work, "painter",
                    medians.reference});
}

void Benchmarks::measureActualSizeFrame()
{
    measureActualSizeFrameOf("B3 frame at 1:1", Wall::data(Wall::FullPorts));
    measureActualSizeFrameOf("B3 frame at 1:1, cabinets of 128 pixels",
                             Wall::data(Wall::FullPorts, false, Wall::UsualSide));
}
