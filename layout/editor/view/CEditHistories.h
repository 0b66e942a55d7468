// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/history/CEditHistory.h"

#include <map>
#include <memory>

/// The undo histories of the processors, one each. A history is kept while another processor is in view, but
/// cleared if the layout was changed elsewhere meanwhile, because its steps would no longer fit. GUI thread.
class CEditHistories final
{
public:
    /// @p content must outlive the histories.
    explicit CEditHistories(CSceneContent &content)
        : m_content(content)
    {
    }

    /// What enter() has found.
    enum EState {
        Fits,     ///< the history leads to the layout
        Outdated, ///< it did not, and was cleared
        Unfit,    ///< what the host had kept did not, and was not used
    };

    bool hasSteps(const QUuid &processor) const;
    /// Call when a processor goes out of view; @p layout is its layout at that moment.
    void leave(const CabinetLayout &layout);
    /// Returns the history for the processor of @p layout, which comes into view. @p kept is what the host
    /// has of an earlier run; it is used if the history has no steps. @p edits are those of that layout.
    CEditHistory &enter(const CabinetLayout &layout, const SEditHistory &kept, const SUnsavedEdits &edits,
                        int stepCount, EState &state);

private:
    CSceneContent &m_content;
    std::map<QUuid, std::unique_ptr<CEditHistory>> m_histories;
};
