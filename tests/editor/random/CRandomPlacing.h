// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/editor/random/SRandomScene.h"

#include <QRandomGenerator>

#include <optional>

/// Copies, pastes and appends at random, in the scene and in a reference model. Edits return whether they
/// changed the layout.
class CRandomPlacing final
{
public:
    CRandomPlacing(SRandomScene &world, QRandomGenerator &random, CReferenceModel &expected)
        : m_world(world)
        , m_random(random)
        , m_expected(expected)
    {
    }

    static CReferenceModel::TypeInfo randomType(QRandomGenerator &random);

    /// Call after the scene has copied @p items.
    void takeCopy(const CReferenceModel &before, const QSet<QUuid> &items);
    bool paste();
    bool append();

private:
    std::optional<QRect> snapped(QRect ghost) const;
    void send(QEvent::Type type, const QPointF &scenePos, Qt::MouseButton button);
    void askForMenu(const QPointF &scenePos);
    bool hasRoom(int port) const;

    SRandomScene &m_world;
    QRandomGenerator &m_random;
    CReferenceModel &m_expected;
};
