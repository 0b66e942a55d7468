// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/SheetNumbers.h"

#include <QLocale>

#include <cmath>

namespace {

const QLocale &numbers()
{
    static const QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale;
}

} // namespace

QString SheetNumbers::whole(qint64 number)
{
    return numbers().toString(number);
}

QString SheetNumbers::decimal(double number, int places)
{
    return numbers().toString(number, 'f', places);
}

QString SheetNumbers::sides(const QSizeF &size)
{
    const auto side = [](double millimetres) {
        const bool even = std::abs(millimetres - std::round(millimetres)) < 0.05;
        return decimal(millimetres, even ? 0 : 1);
    };
    return QStringLiteral("%1 \u00d7 %2").arg(side(size.width()), side(size.height()));
}

QString SheetNumbers::orDash(qint64 number)
{
    return number == 0 ? dash() : whole(number);
}

QString SheetNumbers::dash()
{
    return QStringLiteral("\u2013");
}
