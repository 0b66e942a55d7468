// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CTypeSizeRule.h"

#include "layout/api/records/LayoutLimits.h"
#include "platform/widgets/CMessageBox.h"

bool CTypeSizeRule::check(const RcvTypeInfo &type, QWidget *messageParent)
{
    if (LayoutLimits::isCabinetSize(QSize(type.width, type.height)))
        return true;
    CMessageBox::warning(messageParent,
                         tr("Cabinet height or width must be between %1-%2, the WxH (%3x%4) of this "
                            "cabinet type already exceeds the limit.")
                             .arg(LayoutLimits::SmallestSide)
                             .arg(LayoutLimits::LargestSide)
                             .arg(type.width)
                             .arg(type.height));
    return false;
}
