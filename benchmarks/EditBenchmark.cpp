// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/EditSides.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

#include <QGraphicsLineItem>

#include <algorithm>

namespace {

using EditSides::Edit;
using EditSides::EStep;

constexpr int PortRepetitions = 15;
constexpr int WallRepetitions = 5;
constexpr int MeasuredPort = 1;
constexpr uint Pattern = 2;
constexpr int GroupedPorts = 64;
constexpr int SmallGroup = 64; ///< cabinets
constexpr int UngroupedPorts = 8;

const Edit wireUp = [](CCabinetGraphicsScene &scene) { scene.topologyWiring(Pattern); };
const Edit removeSelected = [](CCabinetGraphicsScene &scene) { scene.backend().operations().remove(); };
const Edit nudge = [](CCabinetGraphicsScene &scene) { scene.selectedItemMoveRight(); };
const Edit ungroup = [](CCabinetGraphicsScene &scene) { scene.backend().operations().ungroup(); };
const Edit measuredPort = [](CCabinetGraphicsScene &scene) {
    EditSides::selectPort(scene, scene.backend().content().portItems().at(MeasuredPort)->port());
};
const Edit nothing = [](CCabinetGraphicsScene &) {};

/// The least that wiring could do: bring the places of a port into an order and make a line between each two.
SWork sortAndLink(CBareSide &side, const CabinetLayout::CabinetPort &port)
{
    QVector<QPointF> places;
    for (const auto &cabinet : port.getAllCabinets())
        places << cabinet.rect.center();
    SWork work;
    work.prepare = [&side] { side.scene().clear(); };
    work.run = [&side, places] {
        QVector<QPointF> sorted = places;
        std::sort(sorted.begin(), sorted.end(), [](const QPointF &a, const QPointF &b) {
            return a.y() != b.y() ? a.y() < b.y() : a.x() < b.x();
        });
        for (int i = 1; i < sorted.size(); ++i)
            side.scene().addItem(new QGraphicsLineItem(QLineF(sorted.at(i - 1), sorted.at(i))));
    };
    return work;
}

CabinetLayout onePort(const LayoutData &data)
{
    CabinetLayout layout = data.layout;
    layout.ports = {data.layout.ports.at(MeasuredPort)};
    return layout;
}

void printMedians(const char *name, int count, const char *reference, const SMedians &medians)
{
    Figures::print({name, count, medians.work, reference, medians.reference});
}

/// Cost of an edit at the full size beside that at a tenth.
void measureGrowthOf(const char *name, CEditorSide &full, CEditorSide &tenth, const Edit &select,
                     const Edit &edit, EStep step = EditSides::Do)
{
    const SMedians medians = Figures::compare(WallRepetitions, EditSides::work(full, select, edit, step),
                                              EditSides::work(tenth, select, edit, step));
    printMedians(name, Wall::FullPorts * Wall::CabinetsPerPort, "the same at 8192 cabinets", medians);
}

void measureBesideMove(const char *name, const LayoutData &data, const Edit &edit, EStep step)
{
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::OpenPorts);
    bare.load(data.layout);
    printMedians(name, data.layout.cabinetCount(), "bare moveBy",
                 Figures::compare(WallRepetitions, EditSides::work(editor, EditSides::selectAll, edit, step),
                                  EditSides::moveBare(bare)));
}

} // namespace

void Benchmarks::measureWiring()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::OpenPorts);
    const SWork reference = sortAndLink(bare, data.layout.ports.at(MeasuredPort));
    const char *const referenceName = "sort and lines";
    printMedians("B5 snake pattern over a wired port", Wall::CabinetsPerPort, referenceName,
                 Figures::compare(PortRepetitions, EditSides::work(editor, measuredPort, wireUp), reference));
    printMedians("B5 snake pattern over all ports", data.layout.cabinetCount(), "loading them",
                 Figures::compare(WallRepetitions, EditSides::work(editor, EditSides::selectAll, wireUp),
                                  EditSides::load(data)));

    editor.scene().breakPortWiring(editor.scene().backend().content().portItems().at(MeasuredPort)->port());
    editor.scene().backend().recorder().stack()->clear();
    printMedians("B5 snake pattern over an unwired port", Wall::CabinetsPerPort, referenceName,
                 Figures::compare(PortRepetitions, EditSides::work(editor, measuredPort, wireUp), reference));
}

void Benchmarks::measureRemoval()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    const CabinetLayout port = onePort(data);
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::OpenPorts);
    const SWork reference = EditSides::buildBare(bare, port);
    printMedians(
        "B6 delete a port's wired cabinets", Wall::CabinetsPerPort, "bare items and lines",
        Figures::compare(PortRepetitions, EditSides::work(editor, measuredPort, removeSelected), reference));
    printMedians("B6 undo of it", Wall::CabinetsPerPort, "bare items and lines",
                 Figures::compare(PortRepetitions,
                                  EditSides::work(editor, measuredPort, removeSelected, EditSides::Undo),
                                  reference));
}

void Benchmarks::measureNudge()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    measureBesideMove("B7 arrow key with everything selected", data, nudge, EditSides::Do);
    measureBesideMove("B7 undo of it", data, nudge, EditSides::Undo);
    measureBesideMove("B7 redo of it", data, nudge, EditSides::Redo);
    measureBesideMove("B7 arrow key with 1024 groups", Wall::inGroups(GroupedPorts, SmallGroup), nudge,
                      EditSides::Do);
    measureBesideMove("B7 ungroup 8192 members", Wall::inGroups(UngroupedPorts, Wall::CabinetsPerPort),
                      ungroup, EditSides::Do);
}

void Benchmarks::measureSelectAll()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::OpenPorts);
    bare.load(data.layout);
    printMedians("B8 select all", data.layout.cabinetCount(), "bare setSelected",
                 Figures::compare(WallRepetitions, EditSides::work(editor, nothing, EditSides::selectAll),
                                  EditSides::selectBare(bare)));
}

void Benchmarks::measureEditGrowth()
{
    CEditorSide full;
    full.load(Wall::data(Wall::FullPorts));
    CEditorSide tenth;
    tenth.load(Wall::data(Wall::TenthPorts));
    measureGrowthOf("B13 growth of B5", full, tenth, EditSides::selectAll, wireUp);
    measureGrowthOf("B13 growth of B6, delete", full, tenth, EditSides::selectAll, removeSelected);
    measureGrowthOf("B13 growth of B6, undo", full, tenth, EditSides::selectAll, removeSelected,
                    EditSides::Undo);
    measureGrowthOf("B13 growth of B7", full, tenth, EditSides::selectAll, nudge);
    measureGrowthOf("B13 growth of B8", full, tenth, nothing, EditSides::selectAll);
}
