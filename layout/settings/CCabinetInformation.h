// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SSettings.h"
#include "platform/widgets/CDialog.h"

#include <functional>

/// Shows what is known about the selected cabinets: the values that all of them share. GUI thread.
class CCabinetInformation final : public CDialog
{
    Q_OBJECT

public:
    using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;
    using RcvTypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;
    /// Returns the library's record of a type; an empty one for an unknown key.
    using TypeLookup = std::function<RcvTypeInfo(const SMD5 &key)>;

    /// @p typeOf is called by the constructor only.
    CCabinetInformation(const Cabinets &selected, const TypeLookup &typeOf, QWidget *parent);

private:
    void buildUi(const QStringList &values);
    static QStringList valuesOf(const RcvTypeInfo &type);
    static QStringList commonValues(const Cabinets &selected, const TypeLookup &typeOf);
};
