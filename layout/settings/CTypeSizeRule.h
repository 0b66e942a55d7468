// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"

#include <QCoreApplication>

class QWidget;

/// The sizes that a cabinet type must have so that cabinets can be made from it. GUI thread.
class CTypeSizeRule final
{
    Q_DECLARE_TR_FUNCTIONS(CTypeSizeRule)

public:
    using RcvTypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    /// Whether a cabinet can have the type's size; if not, the user is told why.
    static bool check(const RcvTypeInfo &type, QWidget *messageParent);
};
