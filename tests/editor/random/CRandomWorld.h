// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/CCabinetGraphicsScene.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/random/CReferenceModel.h"
#include "tests/editor/random/RandomKinds.h"

#include <QRandomGenerator>

/// One random operation: its kind and the seed of all it draws.
struct SRandomOperation
{
    int kind = 0;
    quint32 seed = 0;
};

/// A small world of three ports that is edited at random and checked after each operation. The same seed and
/// the same operations give the same run.
class CRandomWorld final
{
public:
    static constexpr int KindCount = RandomKinds::Count;
    static QString kindName(int kind);

    explicit CRandomWorld(quint32 seed);

    /// Carries out an operation; gives what is wrong afterwards, empty when all is well.
    QString run(const SRandomOperation &operation);
    /// Undoes everything, redoes everything; gives what is wrong.
    QString checkHistory();

private:
    void select(QRandomGenerator &random);
    QSet<QUuid> selected() const;
    bool touchesLocked(const QSet<QUuid> &items) const;
    bool carryOut(int kind, QRandomGenerator &random, CReferenceModel &expected);
    bool editSelection(int kind, QRandomGenerator &random, CReferenceModel &expected);
    bool dragSelection(QRandomGenerator &random, CReferenceModel &expected);
    bool resizeSelected(QRandomGenerator &random, CReferenceModel &expected);
    bool exchangeReceivers(QRandomGenerator &random);
    bool drawStroke(QRandomGenerator &random, CReferenceModel &expected);
    bool groupSelection(CReferenceModel &expected);
    void interruptDrag(QRandomGenerator &random);
    void stepHistory(QRandomGenerator &random);
    QString reload(bool undoable, QRandomGenerator &random);
    QString check(int indexBefore, bool edited, const CReferenceModel &expected);
    CabinetLayout layout() const;

    CFixedPortStates m_states;
    CCabinetGraphicsScene m_scene;
    LayoutData m_data;
    QVector<CabinetLayout> m_history; // by undo index
    QString m_fault; // of the running operation, where the reference model knows nothing of it
    int m_selectionSignals = 0;
    int m_sceneSignals = 0;
};
