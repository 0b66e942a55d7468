// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CTypeSizeRule.h"

#include "layout/api/records/LayoutLimits.h"
#include "platform/widgets/CMessageBox.h"

static_assert(LayoutLimits::SmallestSide == 1 && LayoutLimits::LargestSide == 2048, "the text names them");

bool CTypeSizeRule::check(const RcvTypeInfo &type, QWidget *messageParent)
{
    if (LayoutLimits::isCabinetSize(QSize(type.width, type.height)))
        return true;
    CMessageBox::warning(messageParent,
                         tr("Cabinet height or width must be between 1-2048, the WxH (%1x%2) of this "
                            "cabinet type already exceeds the limit.")
                             .arg(type.width)
                             .arg(type.height));
    return false;
}
