// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/CBareSide.h"
#include "benchmarks/CEditorSide.h"
#include "benchmarks/Figures.h"
#include "benchmarks/ShownView.h"

namespace {

constexpr int LookupRepetitions = 9;
constexpr int LookupsAcross = 20; ///< in a row of the view, and in a column

/// What hovering and pressing ask, at places all over the view. Gives the cost of one.
std::function<double()> lookupsIn(const QGraphicsView &view)
{
    return [&view] {
        SWork work;
        work.run = [&view] {
            const QSize size = view.viewport()->size();
            for (int row = 0; row < LookupsAcross; ++row) {
                for (int column = 0; column < LookupsAcross; ++column)
                    view.items(
                        QPoint(size.width() * column / LookupsAcross, size.height() * row / LookupsAcross));
            }
        };
        return Figures::milliseconds(work) / (LookupsAcross * LookupsAcross);
    };
}

} // namespace

void Benchmarks::measureLookup()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    CEditorSide editor;
    editor.load(data);
    CBareSide bare(CBareScene::ContainedPorts);
    bare.load(data.layout);
    const QPoint middle = data.bounds.center();
    editor.view().showActualSize();
    editor.view().centerOn(middle);
    bare.view().centerOn(middle);
    const SMedians medians =
        Figures::compare(LookupRepetitions, lookupsIn(editor.view()), lookupsIn(bare.view()));
    Figures::print({"B4 what is under the cursor", data.layout.cabinetCount(), medians.work,
                    "bare scene with contained ports", medians.reference});
}
