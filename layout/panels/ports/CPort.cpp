// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/CPort.h"

#include "layout/api/records/EditRefusal.h"
#include "layout/data/CLayoutData.h"
#include "layout/panels/ports/CAppendMenu.h"
#include "layout/panels/ports/CPortFill.h"
#include "layout/panels/ports/CPortMenu.h"
#include "layout/panels/ports/IPortCommands.h"
#include "layout/panels/ports/LoadText.h"
#include "platform/widgets/CMessageBox.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

CPort::CPort(int port, CLayoutData &store, IPortCommands &commands, QWidget *parent)
    : QPushButton(parent)
    , m_store(store)
    , m_commands(commands)
{
    setFixedSize(CPortPainter::Size);
    setCheckable(true);
    setMouseTracking(true);
    refresh(port);
}

void CPort::refresh(int port)
{
    const CLayoutData::Port record = m_store.port(port);
    const SPortRedundancyNote note = m_store.portNote(port);
    SPortFace face;
    face.port = port;
    face.load = int(record.load);
    face.fill = m_store.portColor(port);
    face.locked = record.locked;
    face.redundant = record.redundancy == CLayoutData::Port::Redundant;
    face.note = note.text;
    face.needsReset = note.needsReset;
    show(face);
}

void CPort::show(const SPortFace &face)
{
    if (m_face == face)
        return;
    m_face = face;
    setAccessibleName(nameForReaders());
    update();
}

void CPort::setLoad(int load)
{
    if (m_face.load == load)
        return;
    m_face.load = load;
    setAccessibleName(nameForReaders());
    update(CPortPainter::loadRegion());
}

void CPort::setFill(const QColor &fill)
{
    SPortFace face = m_face;
    face.fill = fill;
    show(face);
}

void CPort::setLocked(bool locked)
{
    SPortFace face = m_face;
    face.locked = locked;
    show(face);
}

void CPort::refreshPair()
{
    const SPortRedundancyNote note = m_store.portNote(port());
    SPortFace face = m_face;
    face.redundant = m_store.portRedundancy(port()) == CLayoutData::Port::Redundant;
    face.note = note.text;
    face.needsReset = note.needsReset;
    show(face);
}

void CPort::openAppendMenu()
{
    if (!isEnabled())
        return;
    if (m_face.locked || m_face.redundant) {
        m_commands.tellRefusal(port());
        return;
    }
    const QString full = EditRefusal::fullPort(m_store.port(port()).cabinetCount());
    if (!full.isEmpty()) {
        CMessageBox::warning(window(), full);
        return;
    }
    auto *menu = new QMenu(this);
    const auto append = [this, index = port()](const TypeInfo &type, const QSize &size) {
        Q_EMIT notifyAppendCabinet(index, size, type);
    };
    CAppendMenu(m_store, m_store.recentCabinets(), append, CAppendMenu::OfCustomSizes, window()).fill(*menu);
    m_held = true;
    update();
    connect(menu, &QMenu::aboutToHide, this, [this] {
        m_held = false;
        update();
    });
    popUp(menu);
}

void CPort::popUp(QMenu *menu)
{
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(mapToGlobal(rect().bottomLeft()));
}

void CPort::setProcessorLocked(bool locked)
{
    m_store.setPortLocked(-1, locked);
    Q_EMIT notifyProcessorLocked(locked);
}

void CPort::setAllProcessorsLocked(bool locked)
{
    m_store.setAllProcessorsLocked(locked);
    Q_EMIT notifyAllProcessorLocked(locked);
}

void CPort::askFill()
{
    if (!m_face.redundant)
        CPortFill(m_store, window()).ask(port());
}

void CPort::act(CPortPainter::EArea area)
{
    switch (area) {
    case CPortPainter::Fill:
        askFill();
        break;
    case CPortPainter::Lock:
        m_store.setPortLocked(port(), !m_face.locked);
        break;
    case CPortPainter::Append:
        openAppendMenu();
        break;
    case CPortPainter::NoArea:
        break;
    }
}

bool CPort::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), this);
        return true;
    }
    return QPushButton::event(event);
}

QString CPort::toolTipAt(const QPoint &place) const
{
    switch (CPortPainter::areaAt(place)) {
    case CPortPainter::Fill:
        if (!m_face.redundant)
            return tr("Cabinet fill");
        break;
    case CPortPainter::Lock:
        return m_face.locked ? tr("Unlock") : tr("Lock");
    case CPortPainter::Append:
        return tr("Append(Ctrl+T)");
    case CPortPainter::NoArea:
        break;
    }
    const QString load = LoadText::ofPort(m_store, port());
    return m_face.note.isEmpty() ? load : load + QLatin1Char('\n') + m_face.note;
}

QString CPort::nameForReaders() const
{
    QStringList parts{tr("Port %1").arg(port() + 1), tr("load %1%").arg(m_face.load)};
    if (m_face.locked)
        parts << tr("locked");
    if (m_face.redundant)
        parts << tr("redundancy");
    if (!m_face.note.isEmpty())
        parts << m_face.note;
    return parts.join(QStringLiteral(", "));
}

void CPort::paintEvent(QPaintEvent *event)
{
    CPortPainter::SState state;
    state.enabled = isEnabled();
    state.checked = isChecked();
    state.hovered = underMouse();
    state.held = m_held || isDown();
    state.focused = m_ringShown && hasFocus();
    state.hoveredArea = m_hovered;
    state.pressedArea = m_pressed;
    QPainter painter(this);
    CPortPainter(painter).paint(m_face, state, event->region());
}

void CPort::mousePressEvent(QMouseEvent *event)
{
    m_ringShown = false;
    m_pressed = event->button() == Qt::LeftButton ? CPortPainter::areaAt(event->pos()) : CPortPainter::NoArea;
    if (m_pressed == CPortPainter::NoArea)
        QPushButton::mousePressEvent(event);
    update();
}

void CPort::mouseMoveEvent(QMouseEvent *event)
{
    hover(CPortPainter::areaAt(event->pos()));
    if (m_pressed == CPortPainter::NoArea)
        QPushButton::mouseMoveEvent(event);
}

void CPort::mouseReleaseEvent(QMouseEvent *event)
{
    const CPortPainter::EArea pressed = m_pressed;
    m_pressed = CPortPainter::NoArea;
    update();
    if (pressed == CPortPainter::NoArea)
        QPushButton::mouseReleaseEvent(event);
    else if (event->button() == Qt::LeftButton && CPortPainter::areaAt(event->pos()) == pressed)
        act(pressed); // last: a dialog may outlive the button
}

void CPort::hover(CPortPainter::EArea area)
{
    if (m_hovered == area)
        return;
    m_hovered = area;
    update();
}

void CPort::leaveEvent(QEvent *event)
{
    hover(CPortPainter::NoArea);
    QPushButton::leaveEvent(event);
}

void CPort::focusInEvent(QFocusEvent *event)
{
    m_ringShown = event->reason() != Qt::MouseFocusReason;
    QPushButton::focusInEvent(event);
}

void CPort::contextMenuEvent(QContextMenuEvent *event)
{
    auto *menu = new QMenu(this);
    CPortMenu(*this, m_store, m_commands).fill(*menu);
    if (event->reason() == QContextMenuEvent::Keyboard) {
        popUp(menu);
    } else {
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(event->globalPos());
    }
}

void CPort::keyPressEvent(QKeyEvent *event)
{
    m_ringShown = true;
    update();
    if (event->key() == Qt::Key_T && event->modifiers() == Qt::ControlModifier)
        openAppendMenu();
    else
        QPushButton::keyPressEvent(event);
}
