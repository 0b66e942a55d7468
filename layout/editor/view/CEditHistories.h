// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"

#include <QUndoStack>

#include <map>
#include <memory>

/// The undo stacks of the processors, one each. A stack is kept while another processor is in view, but
/// replaced if the layout was changed elsewhere meanwhile, because its steps would no longer fit. GUI thread.
class CEditHistories final
{
public:
    /// Call when @p processor goes out of view; @p layout is its layout at that moment.
    void leave(const QUuid &processor, const CabinetLayout &layout);
    /// Returns the stack for @p processor, which comes into view with @p layout.
    QUndoStack &enter(const QUuid &processor, const CabinetLayout &layout);

private:
    struct SHistory
    {
        QUndoStack stack;
        CabinetLayout layout;
    };

    std::map<QUuid, std::unique_ptr<SHistory>> m_histories;
};
