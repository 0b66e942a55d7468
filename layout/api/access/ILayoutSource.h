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
    /// Writes the edited layout of @p processor to @p layout, empty for one that is not shown. The records
    /// are implicitly shared: a port that did not change since the call before has the same groups in memory,
    /// so that comparing or keeping layouts costs the edited ports only. The caller may change its copy. GUI
    /// thread.
    virtual void getLayoutData(CabinetLayout &layout, const QUuid &processor) const = 0;
};
