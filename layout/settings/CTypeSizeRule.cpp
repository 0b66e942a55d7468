// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CTypeSizeRule.h"

#include "platform/widgets/CMessageBox.h"

bool CTypeSizeRule::check(const RcvTypeInfo &type, QWidget *messageParent)
{
    if (isUsable(type))
        return true;
    refuse(type,
           tr("Cabinet height or width must be between 1-2048, the WxH (%1x%2) of this cabinet type already "
              "exceeds the limit."),
           messageParent);
    return false;
}

bool CTypeSizeRule::checkRecent(const RcvTypeInfo &type, QWidget *messageParent)
{
    if (isUsable(type))
        return true;
    refuse(type,
           tr("Cabinet height or width must be between 8-2048, the WxH (%1x%2) of this cabinet type already "
              "exceeds the limit."),
           messageParent);
    return false;
}

bool CTypeSizeRule::isUsable(const RcvTypeInfo &type)
{
    return type.width >= MinimumSide && type.width <= MaximumSide && type.height >= MinimumSide &&
           type.height <= MaximumSide;
}

void CTypeSizeRule::refuse(const RcvTypeInfo &type, const QString &text, QWidget *messageParent)
{
    CMessageBox::information(messageParent, text.arg(type.width).arg(type.height));
}
