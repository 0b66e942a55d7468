// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"

#include <QUndoStack>

#include <map>
#include <memory>

/// The undo stacks of the processors that have been edited. A stack outlives a look at another processor, but
/// not a change of its layout that was made elsewhere meanwhile, since its steps would not fit any more. GUI
/// thread.
class CEditHistories final
{
public:
    /// The layout of @p processor goes out of view as it is in @p layout.
    void leave(const QUuid &processor, const CabinetLayout &layout);
    /// The stack for @p processor, whose layout comes into view as it is in @p layout.
    QUndoStack &enter(const QUuid &processor, const CabinetLayout &layout);

private:
    struct SHistory
    {
        QUndoStack stack;
        CabinetLayout layout;
    };

    std::map<QUuid, std::unique_ptr<SHistory>> m_histories;
};
