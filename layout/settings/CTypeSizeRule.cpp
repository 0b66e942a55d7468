// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CTypeSizeRule.h"

#include "platform/widgets/CMessageBox.h"

bool CTypeSizeRule::check(const RcvTypeInfo &type, QWidget *messageParent)
{
    if (type.width >= MinimumSide && type.width <= MaximumSide && type.height >= MinimumSide &&
        type.height <= MaximumSide)
        return true;
    CMessageBox::information(messageParent,
                             tr("Cabinet height or width must be between 1-2048, the WxH (%1x%2) of this "
                                "cabinet type already exceeds the limit.")
                                 .arg(type.width)
                                 .arg(type.height));
    return false;
}
