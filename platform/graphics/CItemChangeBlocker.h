// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

/// A graphics item whose reactions to its own changes can be blocked.
class CChangeBlockable
{
public:
    bool isChangeBlocked() const { return m_blocks > 0; }

protected:
    CChangeBlockable() = default;
    ~CChangeBlockable() = default;

private:
    friend class CItemChangeBlocker;
    int m_blocks = 0;
};

/// Blocks an item's reactions to its own changes for its lifetime; guards can be nested. The item must
/// outlive the guard.
class CItemChangeBlocker final
{
    Q_DISABLE_COPY(CItemChangeBlocker)

public:
    explicit CItemChangeBlocker(CChangeBlockable &item)
        : m_item(item)
    {
        ++m_item.m_blocks;
    }
    ~CItemChangeBlocker() { --m_item.m_blocks; }

private:
    CChangeBlockable &m_item;
};
