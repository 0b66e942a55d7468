// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/content/CPendingEdits.h"
#include "layout/editor/items/IEditing.h"

#include <functional>

class CGraphicsCabinetItem;

/// Collects what items report while a batch is open, and does the resulting work once, when the outermost
/// batch ends. A report outside a batch forms a batch of its own. GUI thread.
class CEditBatches final : public IEditing
{
public:
    /// @p finish does the work; if items report more meanwhile, it runs again. @p cancel undoes the gesture
    /// in progress. @p tell shows a message in the status bar.
    CEditBatches(std::function<void(const CPendingEdits &)> finish, std::function<void()> cancel,
                 std::function<void(const QString &)> tell)
        : m_finish(std::move(finish))
        , m_cancel(std::move(cancel))
        , m_tell(std::move(tell))
    {
    }

    void beginBatch() override { ++m_depth; }
    void endBatch() override;
    void cancelGesture() override { m_cancel(); }
    void tell(const QString &words) override { m_tell(words); }
    void forget() { m_pending = CPendingEdits(); }

    void noteCabinetMoved(CGraphicsCabinetItem &cabinet);
    void noteMembersChanged(CGraphicsGroupItem &group);
    void notePortChanged(const CGraphicsPortItem &port);
    void noteSelection();
    void noteHighlight();
    /// Everything is to be repainted. Returns whether it is the first time in this batch.
    bool noteRepaint();

private:
    std::function<void(const CPendingEdits &)> m_finish;
    std::function<void()> m_cancel;
    std::function<void(const QString &)> m_tell;
    CPendingEdits m_pending;
    int m_depth = 0;
};
