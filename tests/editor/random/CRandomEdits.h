// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/editor/random/CRandomPlacing.h"

/// One random edit of the selection or of a port, by call or by mouse.
class CRandomEdits final
{
public:
    /// @p expected gets the same edit.
    CRandomEdits(SRandomScene &world, QRandomGenerator &random, CReferenceModel &expected);

    /// Returns whether the edit may change the layout.
    bool carryOut(int kind);
    /// What must be selected afterwards; empty if that is not defined.
    const std::optional<QSet<QUuid>> &selection() const { return m_selection; }
    bool isHighlight() const { return m_highlights; }

private:
    bool editPort(int kind);
    bool editSelection(int kind);
    bool changeShape(int kind, CReferenceModel &edited);
    bool dragSelection();
    bool resizeSelected();
    bool exchangeReceivers();
    bool drawStroke();
    bool groupSelection();
    void selectSameType();
    void highlight();
    void interruptDrag();
    void changeState(int kind);
    QUuid randomCabinet();

    SRandomScene &m_world;
    CCabinetGraphicsScene &m_scene;
    QRandomGenerator &m_random;
    const CReferenceModel m_before;
    CReferenceModel &m_expected;
    CRandomPlacing m_placing;
    QSet<QUuid> m_items; // selected at the beginning
    bool m_refused;      // a port of theirs is locked
    bool m_highlights = false;
    std::optional<QSet<QUuid>> m_selection;
};
