// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QUuid;
struct CabinetLayout;

/// The source from which the store reads the edited layout: the editor's scene.
class ILayoutSource
{
public:
    virtual ~ILayoutSource() = default;
    /// Writes the edited layout of @p processor to @p layout; empty if that processor is not shown. The
    /// records are implicitly shared: a port that has not changed since the previous call shares its groups
    /// in memory, so comparing and keeping layouts costs only the edited ports. The caller may change its
    /// copy. GUI thread.
    virtual void getLayoutData(CabinetLayout &layout, const QUuid &processor) const = 0;
};
