// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CRecentCabinets.h"

#include "layout/api/records/LayoutLimits.h"

namespace {

const QString TypesKey = QStringLiteral("client/recentTypes");
const QString CustomSizeKey = QStringLiteral("client/customCabinet");
constexpr QSize FirstCustomSize(192, 192);
constexpr QSize SmallestCustomSize(LayoutLimits::SmallestCustomSide, LayoutLimits::SmallestCustomSide);
constexpr QSize LargestCustomSize(LayoutLimits::LargestSide, LayoutLimits::LargestSide);

} // namespace

QVector<SMD5> CRecentCabinets::types() const
{
    QVector<SMD5> types;
    for (const QString &digits : m_settings.value(TypesKey).toStringList()) {
        const SMD5 key = SMD5::fromText(digits.toLatin1());
        if (!key.isNull())
            types << key;
    }
    return types;
}

void CRecentCabinets::noteType(const SMD5 &key)
{
    QStringList types = m_settings.value(TypesKey).toStringList();
    const QString digits = QString::fromLatin1(key.toText());
    types.removeAll(digits);
    types.prepend(digits);
    m_settings.setValue(TypesKey, QStringList(types.mid(0, Limit)));
}

QSize CRecentCabinets::customSize() const
{
    const QSize size = m_settings.value(CustomSizeKey).toSize();
    if (size.isEmpty())
        return FirstCustomSize;
    return size.expandedTo(SmallestCustomSize).boundedTo(LargestCustomSize); // the file may hold anything
}

void CRecentCabinets::setCustomSize(const QSize &size)
{
    m_settings.setValue(CustomSizeKey, size);
}
