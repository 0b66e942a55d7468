// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PortPairs.h"
#include "layout/api/records/SHostRecords.h"

#include <QObject>
#include <QPoint>
#include <QSet>
#include <QUuid>

#include <memory>

class CDeviceServices;
class CScreenPicture;
class QMouseEvent;
class QWidget;

/// Shows the wall of the current processor in a window of its own: opens and closes it, keeps it up to date,
/// and lets the user move it (drag) and close it (double click, Esc). GUI thread.
class CScreenWindow final : public QObject
{
    Q_OBJECT

public:
    /// The screen opens beside @p main, the main window. Both must outlive this object.
    CScreenWindow(CDeviceServices &services, const QWidget &main);
    ~CScreenWindow() override;

    void setShown(bool shown);
    bool isShown() const { return m_window != nullptr; }
    /// Sets the output ports whose cables are unplugged: cabinets fed only by them stay dark.
    void setUnplugged(const QSet<SPortKey> &ports);

Q_SIGNALS:
    void notifyClosedByUser();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectSignals();
    void open();
    void place();
    void onCurrentProcessorChanged(const QUuid &processor);
    void onHighlightChanged(const QUuid &processor,
                            const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                            CabinetHighlight highlight);
    void onNumbersShownChanged(const QUuid &processor, bool shown);
    void showWall();
    void closeByUser();
    bool onMouseMove(const QMouseEvent &event);

    CDeviceServices &m_services;
    const QWidget &m_main;
    CScreenPicture *m_picture = nullptr;
    std::unique_ptr<QWidget> m_window; ///< null while it is closed
    QSet<QUuid> m_numbered;            ///< processors whose cabinets show their numbers
    QSet<SPortKey> m_unplugged;
    QPoint m_grip; ///< where the mouse grabbed the window, relative to its corner
};
