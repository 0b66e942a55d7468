// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <optional>

/// What a step of an earlier run changed of one output port, in the form in which it was kept, which takes
/// little memory. Leads from either side to the other. Any thread.
class IPortChange
{
public:
    using Groups = QVector<CabinetLayout::CabinetPort::CabinetGroup>;
    enum ESide { Before = 0, After = 1 };
    static constexpr ESide otherOf(ESide side) { return side == Before ? After : Before; }

    virtual ~IPortChange() = default;

    virtual int port() const = 0; ///< index, from 0
    /// The groups of the port on @p side; @p other are those on the other side. Empty optional: @p other is
    /// not what the change knows.
    virtual std::optional<Groups> groups(ESide side, const Groups &other) const = 0;
    /// The digest of the groups on @p side, to compare with that of another change or with digestOf().
    virtual quint64 digest(ESide side) const = 0;
    virtual quint64 digestOf(const Groups &groups) const = 0;
    virtual qint64 bytes() const = 0; ///< the memory that it needs, approximately
};
