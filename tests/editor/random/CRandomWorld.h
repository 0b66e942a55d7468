// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/editor/random/RandomKinds.h"
#include "tests/editor/random/RandomLayout.h"
#include "tests/editor/random/SRandomScene.h"
#include "tests/harness/CKeptSteps.h"

#include <QRandomGenerator>

/// One random operation: its kind, and the seed of its random numbers.
struct SRandomOperation
{
    int kind = 0;
    quint32 seed = 0;
};

/// A small world of three ports, edited at random and checked after each operation. The same seed and
/// operations always give the same run.
class CRandomWorld final
{
public:
    static constexpr int KindCount = RandomKinds::Count;
    static QString kindName(int kind);

    /// Begins with ports of up to @p mostCabinets each.
    explicit CRandomWorld(quint32 seed, int mostCabinets = RandomLayout::MostCabinets);

    /// Carries out an operation. Returns the fault found afterwards; empty if there is none.
    QString run(const SRandomOperation &operation);
    /// Undoes everything and redoes everything, then again by steps that were restored. Returns the fault
    /// found; empty if there is none.
    QString checkHistory();

private:
    void select(QRandomGenerator &random);
    QString stepThrough();
    QString edit(int kind, QRandomGenerator &random);
    bool stepHistory(QRandomGenerator &random);
    QString reload(bool undoable, QRandomGenerator &random);
    QString lookAway(QRandomGenerator &random);
    QString restart();
    void beginHistory(const SEditHistory &kept);
    void noteEdit();
    QString checkKept();
    QString check(int indexBefore, bool edited, const CReferenceModel &expected);
    QString checkHighlights();
    QString checkColors() const;
    QSet<QUuid> highlighted() const;
    CabinetLayout comparable() const;

    const int m_mostCabinets;
    SRandomScene m_world;
    CCabinetGraphicsScene &m_scene;
    QVector<CabinetLayout> m_history;                      // by index of the undo stack
    QVector<QPair<QSet<QUuid>, QSet<QUuid>>> m_selections; // before and after that step
    CabinetLayout m_known;                                 // by the store
    CKeptSteps m_kept;                                     // by the host
    int m_restored = 0;                                    // that many steps select the cabinets that differ
};
