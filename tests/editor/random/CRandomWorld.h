// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/editor/random/RandomKinds.h"
#include "tests/editor/random/SRandomScene.h"

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
    QString edit(int kind, QRandomGenerator &random);
    bool stepHistory(QRandomGenerator &random);
    void stepByMenu(const QString &text);
    QString reload(bool undoable, QRandomGenerator &random);
    QString lookAway(QRandomGenerator &random);
    QString check(int indexBefore, bool edited, const CReferenceModel &expected);
    QString checkHighlights();
    QString checkColors() const;
    QSet<QUuid> highlighted() const;
    CabinetLayout comparable() const;

    SRandomScene m_world;
    CCabinetGraphicsScene &m_scene;
    QVector<CabinetLayout> m_history;                      // by undo index
    QVector<QPair<QSet<QUuid>, QSet<QUuid>>> m_selections; // before and after the step to that index
};
