// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CTheme.h"

#include "platform/widgets/ThemeColors.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QPalette>
#include <QProxyStyle>
#include <QPushButton>
#include <QStringList>
#include <QStyleOption>
#include <QToolTip>

#include <algorithm>
#include <cmath>

// Outside any namespace, as the macro requires.
static void initThemeResources()
{
    Q_INIT_RESOURCE(theme);
}

namespace {

constexpr int ThemeFontPixels = 12;
constexpr int RowPadding = 3;
constexpr int MenuArrowSide = 10;
constexpr int RoomBehindMenuArrow = 5;

/// The base style, with what the style sheet cannot do: rows of lists and trees that are easy to hit (views
/// that lay out their rows before they are shown do not ask it), and the arrow of a button with a menu beside
/// the text instead of in the corner (a rule for it takes the button's padding away).
class CThemeStyle final : public QProxyStyle
{
public:
    CThemeStyle()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override
    {
        const QSize needed = QProxyStyle::sizeFromContents(type, option, size, widget);
        return type == CT_ItemViewItem ? needed + QSize(0, 2 * RowPadding) : needed;
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_IndicatorArrowDown || !qobject_cast<const QPushButton *>(widget)) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        const QRect arrow =
            alignedRect(option->direction, Qt::AlignRight | Qt::AlignVCenter, {MenuArrowSide, MenuArrowSide},
                        widget->rect().adjusted(RoomBehindMenuArrow, 0, -RoomBehindMenuArrow, 0));
        const bool enabled = option->state & State_Enabled;
        QIcon(
            QStringLiteral(":/Theme/arrow-down%1.svg").arg(enabled ? QString() : QStringLiteral("-disabled")))
            .paint(painter, arrow);
    }
};

const QHash<QString, QRgb> &themeColorNames()
{
    using namespace ThemeColors;
    static const QHash<QString, QRgb> names{
        {QStringLiteral("Frame"), Frame},
        {QStringLiteral("Base"), Base},
        {QStringLiteral("Raised"), Raised},
        {QStringLiteral("RaisedHover"), RaisedHover},
        {QStringLiteral("Border"), Border},
        {QStringLiteral("Outline"), Outline},
        {QStringLiteral("Text"), Text},
        {QStringLiteral("SoftText"), SoftText},
        {QStringLiteral("DimText"), DimText},
        {QStringLiteral("Accent"), Accent},
        {QStringLiteral("AccentHover"), AccentHover},
        {QStringLiteral("AccentDown"), AccentDown},
        {QStringLiteral("IdleSelection"), IdleSelection},
        {QStringLiteral("Focus"), Focus},
    };
    return names;
}

QPalette themePalette()
{
    using namespace ThemeColors;
    QPalette palette{QColor(Raised), QColor(Frame)};
    palette.setColor(QPalette::Base, Base);
    palette.setColor(QPalette::AlternateBase, Frame);
    palette.setColor(QPalette::ToolTipBase, Raised);
    palette.setColor(QPalette::ToolTipText, Text);
    palette.setColor(QPalette::Highlight, Accent);
    palette.setColor(QPalette::Link, Focus);
    palette.setColor(QPalette::LinkVisited, Focus);
    palette.setColor(QPalette::PlaceholderText, DimText);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(role, Text);
        palette.setColor(QPalette::Disabled, role, DimText);
    }
    palette.setColor(QPalette::Disabled, QPalette::Button, Frame);
    palette.setColor(QPalette::Disabled, QPalette::Base, Frame);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, Base);
    return palette;
}

QString themeStyleSheet()
{
    QFile file(QStringLiteral(":/Theme/theme.qss"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the style sheet is missing from the program");
    // In one pass: a search for each name would take a part of the program's start that can be measured.
    const QHash<QString, QRgb> &names = themeColorNames();
    const QStringList parts = QString::fromUtf8(file.readAll()).split(QLatin1Char('@'));
    QString sheet = parts.first();
    for (int i = 1; i < parts.size(); ++i) {
        const QString &part = parts.at(i);
        const auto isLetter = [](QChar c) { return c.isLetterOrNumber(); };
        const auto end = std::find_if_not(part.begin(), part.end(), isLetter);
        const QString name = part.left(int(end - part.begin()));
        if (!names.contains(name))
            qFatal("the style sheet names an unknown colour");
        sheet += QColor(names.value(name)).name() + part.mid(name.size());
    }
    return sheet;
}

double linearChannel(double value)
{
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const QColor &color)
{
    return 0.2126 * linearChannel(color.redF()) + 0.7152 * linearChannel(color.greenF()) +
           0.0722 * linearChannel(color.blueF());
}

} // namespace

void CTheme::apply(QApplication &application)
{
    applyBase();
    applyStyleSheet(application);
}

void CTheme::applyBase()
{
    initThemeResources();
    QApplication::setStyle(new CThemeStyle);
    QApplication::setPalette(themePalette());
    QToolTip::setPalette(themePalette());
    // Many sizes are fixed in pixels, so the text is too; the display's scale factor enlarges both.
    QFont font = QApplication::font();
    font.setPixelSize(ThemeFontPixels);
    QApplication::setFont(font);
}

void CTheme::applyStyleSheet(QApplication &application)
{
    application.setStyleSheet(themeStyleSheet());
}

QColor CTheme::textOn(const QColor &background)
{
    const QColor light(ThemeColors::Text);
    const QColor dark(ThemeColors::DarkText);
    return contrast(background, light) >= contrast(background, dark) ? light : dark;
}

double CTheme::contrast(const QColor &a, const QColor &b)
{
    const double first = relativeLuminance(a);
    const double second = relativeLuminance(b);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}
