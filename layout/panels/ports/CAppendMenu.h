// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

#include <QCoreApplication>
#include <QSize>

#include <functional>

class CRecentCabinets;
class ITypeLookup;
class QMenu;
class QWidget;

/// Fills the menu whose entries append cabinets to an output port: recent types, a custom size, and the type
/// library. The property "append" of an entry holds its type, "appendSize" its size. GUI thread.
class CAppendMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CAppendMenu)

public:
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;
    /// Receives the chosen type (empty for a custom size) and its size in pixels.
    using Chosen = std::function<void(const TypeInfo &, const QSize &)>;

    /// The least side that the message about a type beyond the limits names.
    enum ENamedLeast {
        OfTypes = 1,
        OfCustomSizes = 8 ///< that users can enter
    };

    /// @p parent is the parent of questions and messages. It, @p types and @p recent must outlive the menu.
    CAppendMenu(const ITypeLookup &types, CRecentCabinets &recent, Chosen chosen, ENamedLeast namedLeast,
                QWidget *parent)
        : m_types(types)
        , m_recent(recent)
        , m_chosen(std::move(chosen))
        , m_namedLeast(namedLeast)
        , m_parent(parent)
    {
    }

    void fill(QMenu &menu) const;

private:
    void addRecent(QMenu &menu) const;
    void addCustom(QMenu &menu) const;
    void addLibrary(QMenu &menu) const;

    const ITypeLookup &m_types;
    CRecentCabinets &m_recent;
    Chosen m_chosen;
    ENamedLeast m_namedLeast;
    QWidget *m_parent;
};
