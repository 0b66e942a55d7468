// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

#include <QCoreApplication>

class QWidget;

/// Checks that cabinets can have the size of a cabinet type. GUI thread.
class CTypeSizeRule final
{
    Q_DECLARE_TR_FUNCTIONS(CTypeSizeRule)

public:
    using RcvTypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    /// Returns whether a cabinet can have the type's size; if not, shows why.
    static bool check(const RcvTypeInfo &type, QWidget *messageParent);
};
