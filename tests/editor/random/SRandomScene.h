// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/history/CEditHistory.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/SInstalledInput.h"
#include "tests/editor/random/CReferenceModel.h"

#include <QRandomGenerator>

#include <memory>

/// What random edits act on, and the state left by previous ones.
struct SRandomScene
{
    std::unique_ptr<CEditHistory> history; // outlives the scene, which records in it
    CFixedPortStates states;
    CCabinetGraphicsScene scene{states};
    SInstalledInput input{scene};
    LayoutData data;            // last loaded into the scene
    CReferenceModel copied;     // what a paste adds
    PasteCache cache;           // the same as records
    QSet<QUuid> highlighted;    // cabinets
    QSet<QUuid> selectedBefore; // when the operation began
    int selectionSignals = 0;   // since the operation began
    int sceneSignals = 0;

    CabinetLayout layout() const
    {
        CabinetLayout layout;
        scene.getLayoutData(layout, data.processor);
        return layout;
    }
    /// Gives a port a colour, or its default one, without notifying anybody.
    void chooseColor(int port, QRandomGenerator &random)
    {
        if (random.bounded(3))
            states.colors[port] = QColor::fromHsv(random.bounded(360), 200, 200);
        else
            states.colors.remove(port);
    }
    /// Whether a port refuses new cabinets.
    bool isClosed(int port) const
    {
        return states.isPortLocked(port) ||
               states.portRedundancy(port) == CabinetLayout::CabinetPort::Redundant;
    }
    QSet<QUuid> selected() const
    {
        const QVector<QUuid> uuids = scene.selection().uuids();
        return QSet<QUuid>(uuids.begin(), uuids.end());
    }
};
