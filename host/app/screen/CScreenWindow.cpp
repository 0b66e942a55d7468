// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/CScreenWindow.h"

#include "host/app/screen/CRasterScreen.h"
#include "host/app/screen/CScreenPicture.h"
#include "host/app/screen/CSimulateScreen.h"
#include "host/app/screen/LitWall.h"
#include "host/devices/services/CDeviceServices.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

namespace {
constexpr qreal ScreenShare = 0.6; // of the display, if shared with the main window
}

CScreenWindow::CScreenWindow(CDeviceServices &services, const QWidget &main)
    : m_services(services)
    , m_main(main)
    , m_picture(new CScreenPicture(this))
{
    connectSignals();
}

CScreenWindow::~CScreenWindow() = default;

void CScreenWindow::connectSignals()
{
    const CDeviceAnnouncer *announcer = &m_services.announcer();
    connect(announcer, &CDeviceAnnouncer::notifyCurrentProcessorChanged, this,
            &CScreenWindow::onCurrentProcessorChanged);
    connect(announcer, &CDeviceAnnouncer::notifyLayoutCommitted, this, &CScreenWindow::showWall);
    connect(announcer, &CDeviceAnnouncer::notifyProcessorsChanged, this, [this] {
        if (!m_unplugged.isEmpty())
            showWall(); // the processor of a redundancy port may be offline now
    });
    connect(announcer, &CDeviceAnnouncer::notifyStatusLedChanged, this, &CScreenWindow::showWall);
    connect(announcer, &CDeviceAnnouncer::notifyNumbersShownChanged, this,
            &CScreenWindow::onNumbersShownChanged);
    connect(announcer, &CDeviceAnnouncer::notifyHighlightChanged, this, &CScreenWindow::onHighlightChanged);
    connect(announcer, &CDeviceAnnouncer::notifyScreenRequested, this, &CScreenWindow::setShown);
}

void CScreenWindow::onHighlightChanged(const QUuid &processor,
                                       const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                                       CabinetHighlight highlight)
{
    if (processor == m_services.table().current())
        m_picture->setHighlight(cabinets.toVector(), highlight);
}

void CScreenWindow::onCurrentProcessorChanged(const QUuid &processor)
{
    m_picture->setHighlight({}, CabinetHighlight::Off);
    m_picture->setNumbersShown(m_numbered.contains(processor));
    showWall();
}

void CScreenWindow::onNumbersShownChanged(const QUuid &processor, bool shown)
{
    if (shown)
        m_numbered.insert(processor);
    else
        m_numbered.remove(processor);
    m_picture->setNumbersShown(m_numbered.contains(m_services.table().current()));
}

void CScreenWindow::setShown(bool shown)
{
    if (shown == isShown())
        return;
    if (shown) {
        open();
    } else {
        m_window->removeEventFilter(this);
        m_window->hide();
        m_window.release()->deleteLater(); // it may be closed from one of its own events
    }
}

void CScreenWindow::open()
{
    if (CSimulateScreen::isOpenGlUsable())
        m_window = std::make_unique<CSimulateScreen>(*m_picture);
    else
        m_window = std::make_unique<CRasterScreen>(*m_picture);
    m_window->setObjectName(QStringLiteral("SimulateScreen"));
    m_window->setWindowTitle(tr("Orvo - Screen"));
    m_window->setToolTip(tr("Drag to move, double click or Esc to close"));
    m_window->installEventFilter(this);
    showWall();
    place();
    m_window->show();
}

void CScreenWindow::place()
{
    const QScreen *own = m_main.screen();
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        // Fills a separate display. One that mirrors the main window's would cover that window.
        if (!screen->geometry().intersects(own->geometry())) {
            m_window->setGeometry(screen->geometry());
            return;
        }
    }
    const QRect available = own->availableGeometry();
    const QSize wall = m_picture->extent().isEmpty() ? QSize(16, 9) : m_picture->extent().size();
    const QSize size = wall.scaled(available.size() * ScreenShare, Qt::KeepAspectRatio).expandedTo({64, 64});
    const QPoint corner(available.right() - size.width(), available.bottom() - size.height());
    m_window->setGeometry(QRect(corner, size));
}

void CScreenWindow::showWall()
{
    if (!isShown())
        return;
    const std::optional<SDevice> device = m_services.table().currentDevice();
    m_picture->setStatusLed(device && device->settings.statusLed);
    LayoutData wall = device ? device->data() : LayoutData();
    const auto isOnline = [this](const QUuid &processor) {
        const std::optional<SDevice> other = m_services.table().device(processor);
        return other && other->node.online;
    };
    wall.layout = LitWall::of(wall.layout, m_unplugged, m_services.layoutOf(), isOnline);
    m_picture->setWall(wall, device ? device->settings.background : SBackgroundInfo());
}

void CScreenWindow::setUnplugged(const QSet<SPortKey> &ports)
{
    m_unplugged = ports;
    showWall();
}

void CScreenWindow::closeByUser()
{
    setShown(false);
    Q_EMIT notifyClosedByUser();
}

bool CScreenWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window.get())
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return false;
        closeByUser();
        return true;
    case QEvent::MouseButtonDblClick:
    case QEvent::Close:
        closeByUser();
        return true;
    case QEvent::MouseButtonPress:
        m_grip = static_cast<QMouseEvent *>(event)->globalPos() - m_window->frameGeometry().topLeft();
        return true;
    case QEvent::MouseMove:
        return onMouseMove(*static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

bool CScreenWindow::onMouseMove(const QMouseEvent &event)
{
    if (!(event.buttons() & Qt::LeftButton))
        return false;
    m_window->move(event.globalPos() - m_grip);
    return true;
}
