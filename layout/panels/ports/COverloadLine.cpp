// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/COverloadLine.h"

#include "layout/data/CLayoutData.h"
#include "layout/panels/ports/LoadText.h"
#include "platform/widgets/ThemeColors.h"
#include "platform/widgets/WarningSign.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include <utility>

namespace {

constexpr int LineHeight = 20;
constexpr int SignWidth = 18;
constexpr int TextMargin = 4;
constexpr int PortsInToolTip = 8;

QFont lineFont()
{
    QFont font;
    font.setPixelSize(11);
    return font;
}

} // namespace

COverloadLine::COverloadLine(CLayoutData &store, QWidget *parent)
    : QAbstractButton(parent)
    , m_store(store)
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] { Q_EMIT notifySelectPorts(m_overload.ports); });
    connect(&store, &CLayoutData::notifyProcessorPayloadChanged, this, &COverloadLine::scheduleRefresh);
    connect(&store, &CLayoutData::notifyProcessorPortPayloadChanged, this, &COverloadLine::scheduleRefresh);
    connect(&store, &CLayoutData::notifyProcessorPortBackup, this, &COverloadLine::scheduleRefresh);
    refresh();
}

/// Many loads that change at once are looked at once.
void COverloadLine::scheduleRefresh()
{
    if (m_scheduled)
        return;
    m_scheduled = true;
    QTimer::singleShot(0, this, &COverloadLine::refresh);
}

void COverloadLine::setLayoutShown(bool shown)
{
    m_layoutShown = shown;
    refresh();
}

void COverloadLine::refresh()
{
    m_scheduled = false;
    const SOverload before = std::exchange(m_overload, SOverload::shown(m_store));
    setText(m_overload.text());
    if (accessibleName() != shown() || before.ports != m_overload.ports ||
        before.backups != m_overload.backups) {
        Q_EMIT notifyOverloadChanged(m_overload);
        setAccessibleName(shown());
        updateGeometry();
        update();
    }
    setVisible(m_layoutShown && !m_overload.isEmpty());
}

/// The text, and the figure that no colour tells.
QString COverloadLine::shown() const
{
    return m_overload.isEmpty() ? QString() : tr("%1 (up to %2%)").arg(text()).arg(m_overload.worst);
}

QSize COverloadLine::sizeHint() const
{
    return {SignWidth + 2 * TextMargin + QFontMetrics(lineFont()).horizontalAdvance(shown()), LineHeight};
}

QSize COverloadLine::minimumSizeHint() const
{
    return {SignWidth + 2 * TextMargin, LineHeight};
}

bool COverloadLine::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractButton::event(event);
    QStringList lines{text()};
    for (const int port : m_overload.ports + m_overload.backups) {
        if (lines.size() > PortsInToolTip) {
            lines << QStringLiteral("…");
            break;
        }
        lines << LoadText::ofPort(m_store, port);
    }
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), lines.join(QLatin1Char('\n')), this);
    return true;
}

void COverloadLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color(ThemeColors::Fault);
    WarningSign::paint(painter, {SignWidth / 2.0, height() / 2.0}, color, QColor(ThemeColors::Frame));
    QFont font = lineFont();
    font.setUnderline(underMouse());
    painter.setFont(font);
    painter.setPen(color);
    const QRect place = rect().adjusted(SignWidth + TextMargin, 0, -TextMargin, 0);
    painter.drawText(place, Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(shown(), Qt::ElideRight, place.width()));
    if (!hasFocus())
        return;
    painter.setPen(QColor(ThemeColors::Focus));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}
