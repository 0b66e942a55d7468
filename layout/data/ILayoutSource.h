// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QUuid;
struct CabinetLayout;

/// Where the store reads the edited layout from: the editor's scene.
class ILayoutSource
{
public:
    virtual ~ILayoutSource() = default;
    /// Writes the edited layout of @p processor to @p layout; ports that did not change are shared with the
    /// layout given before. GUI thread.
    virtual void getLayoutData(CabinetLayout &layout, const QUuid &processor) const = 0;
};
