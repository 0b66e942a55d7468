// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Holds edits that the host does not have yet.
class IEditSource
{
public:
    virtual ~IEditSource() = default;
    /// Hands the edited layout to the host before returning. GUI thread.
    virtual void flushEdits() = 0;
};
