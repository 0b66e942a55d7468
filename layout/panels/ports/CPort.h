// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"
#include "layout/panels/ports/CPortPainter.h"
#include "layout/panels/ports/SPortFace.h"

#include <QPushButton>

class CLayoutData;
class IPortCommands;

/// The button of one output port: number, load, lock, fill and append, with a menu of its own. It shows what
/// it is given, and reads the store when the user acts. GUI thread.
class CPort final : public QPushButton
{
    Q_OBJECT

public:
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    /// @p store and @p commands must outlive the button.
    CPort(int port, CLayoutData &store, IPortCommands &commands, QWidget *parent);

    int port() const { return m_face.port; }
    const SPortFace &face() const { return m_face; }

    /// Shows what the store knows of port @p port.
    void refresh(int port);
    void setLoad(int load); ///< percent
    void setFill(const QColor &fill);
    void setLocked(bool locked);
    void refreshPair(); ///< redundancy and note, from the store

    /// Opens the menu of what can be appended; a port that accepts nothing says why it does not.
    void openAppendMenu();
    /// Asks for the fill of the port, unless it is a redundancy port.
    void askFill();
    // What the menu offers for the port; each is announced.
    void setProcessorLocked(bool locked); ///< all ports of the processor
    void setAllProcessorsLocked(bool locked);
    void markUpCustomCabinets(bool marked) { Q_EMIT notifyMarkupCustomCabinet(marked); }
    void saveParameters() { Q_EMIT notifySaveCabinetPara(port()); }
    void showCabinets() { Q_EMIT notifyShowCabinetInfo(port()); }

Q_SIGNALS:
    /// The user wants to append cabinets of @p size; an empty @p type stands for a custom size.
    void notifyAppendCabinet(int port, const QSize &size,
                             const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type = {});
    void notifyProcessorLocked(bool locked);
    void notifyAllProcessorLocked(bool locked);
    void notifyResetProcessorColor();
    void notifyShowCabinetInfo(int port);
    void notifyMarkupCustomCabinet(bool markup);
    void notifySaveCabinetPara(int port);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void show(const SPortFace &face);
    void act(CPortPainter::EArea area);
    void hover(CPortPainter::EArea area);
    void popUp(QMenu *menu);
    QString toolTipAt(const QPoint &place) const;
    QString nameForReaders() const;

    CLayoutData &m_store;
    IPortCommands &m_commands;
    SPortFace m_face;
    CPortPainter::EArea m_hovered = CPortPainter::NoArea;
    CPortPainter::EArea m_pressed = CPortPainter::NoArea;
    bool m_held = false;      ///< the append menu is open
    bool m_ringShown = false; ///< the focus came by keyboard
};
