// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/editor/random/CRandomPlacing.h"

#include <functional>

class QAction;

/// One random edit of the selection or of a port, by call, by mouse or by menu entry.
class CRandomEdits final
{
public:
    /// @p expected gets the same edit.
    CRandomEdits(SRandomScene &world, QRandomGenerator &random, CReferenceModel &expected);

    /// Returns whether the edit may change the layout.
    bool carryOut(int kind);
    /// The kind that was carried out; for a menu, that of the entry.
    int kind() const { return m_kind; }
    /// What must be selected afterwards; empty if that is not defined.
    const std::optional<QSet<QUuid>> &selection() const { return m_selection; }
    bool isHighlight() const { return m_highlights; }

private:
    void act(const std::function<void()> &directly);
    bool chooseEntry();
    bool editPort(int kind);
    bool editSelection(int kind);
    void nudge(int kind, CReferenceModel &edited);
    bool changeShape(int kind);
    bool arrange();
    bool removeSelection(bool cut);
    bool dragSelection();
    bool resizeSelected();
    bool exchangeReceivers();
    bool drawStroke();
    bool groupSelection();
    bool clearPort(int port);
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
    int m_kind = 0;
    bool m_highlights = false;
    std::optional<QSet<QUuid>> m_selection;
    QAction *m_entry = nullptr; // used instead of a call of the scene
    QUuid m_clicked;            // the item whose menu it is in; null: the canvas
    int m_entryPort = -1;       // the port of that menu
};
