// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CPureImageBtn.h"

#include "platform/widgets/CSvgIcon.h"
#include "platform/widgets/ThemeColors.h"

#include <QEvent>
#include <QFile>
#include <QPainter>

namespace {

QIcon firstPicture(const QString &family, std::initializer_list<const char *> suffixes)
{
    for (const char *suffix : suffixes) {
        const QString file = family + QLatin1Char('_') + QLatin1String(suffix) + QStringLiteral(".svg");
        if (QFile::exists(file))
            return CSvgIcon::of(file);
    }
    return {};
}

} // namespace

CPureImageBtn::CPureImageBtn(const QString &family, QWidget *parent)
    : QAbstractButton(parent)
{
    m_pictures[Normal] = firstPicture(family, {"normal"});
    m_pictures[Hover] = firstPicture(family, {"hover", "normal"});
    m_pictures[Checked] = firstPicture(family, {"checked", "down", "normal"});
    m_pictures[Pressed] = firstPicture(family, {"pressed", "down", "checked", "hover", "normal"});
    m_pictures[Disabled] = firstPicture(family, {"disabled"});
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
}

bool CPureImageBtn::event(QEvent *event)
{
    // Screen readers cannot use the picture.
    if (event->type() == QEvent::ToolTipChange)
        setAccessibleName(toolTip());
    return QAbstractButton::event(event);
}

void CPureImageBtn::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (state() == Disabled && m_pictures[Disabled].isNull()) {
        painter.setOpacity(0.4);
        m_pictures[Normal].paint(&painter, rect());
    } else {
        m_pictures[state()].paint(&painter, rect());
    }
    if (!hasFocus())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(ThemeColors::Focus));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

CPureImageBtn::State CPureImageBtn::state() const
{
    if (!isEnabled())
        return Disabled;
    if (isDown())
        return Pressed;
    if (isChecked())
        return Checked;
    return underMouse() ? Hover : Normal;
}
