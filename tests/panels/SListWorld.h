// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ports/CPortList.h"
#include "layout/panels/ports/IPortCommands.h"
#include "tests/harness/SStoreWorld.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QtTest>

/// Notes what the list asks for.
struct CNotedPortCommands final : IPortCommands
{
    void importMapping(int port) override { calls << QStringLiteral("import %1").arg(port); }
    void exportMapping(int port) override { calls << QStringLiteral("export %1").arg(port); }
    void setRedundancy(int primary, int backup) override
    {
        calls << QStringLiteral("pair %1 %2").arg(primary).arg(backup);
    }
    void cancelRedundancy(int port) override { calls << QStringLiteral("cancel %1").arg(port); }
    bool isWhollySelected(int) const override { return whole; }
    void tellRefusal(int port) override { calls << QStringLiteral("refusal %1").arg(port); }
    void pairPorts() override { calls << QStringLiteral("pairs"); }
    void adjustCurrentGain() override { calls << QStringLiteral("gain"); }
    QStringList calls;
    bool whole = true;
};

/// A port list, with the processor that it shows.
struct SListWorld final : SStoreWorld
{
    CNotedPortCommands commands;
    CPortList list{store, commands};

    SListWorld() { list.resize(340, 180); }
    QUuid open(int ports, int cabinets = 1)
    {
        const QUuid processor = host.addProcessor(QStringLiteral("Main"), ports, cabinets);
        show(processor);
        store.openProcessor(processor);
        list.onNotifyProcessorStateChanged();
        return processor;
    }
    CPort &port(int index) const { return *list.button(index); }
    void click(int index, CPortPainter::EArea area) const
    {
        QTest::mouseClick(&port(index), Qt::LeftButton, {}, CPortPainter::areaRect(area).center());
    }
    /// The context menu of a port's button, by keyboard.
    QMenu *menu(int index) const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint());
        QApplication::sendEvent(&port(index), &event);
        return port(index).findChild<QMenu *>(QStringLiteral("PortMenu"));
    }
    void setRole(const QUuid &processor, int index, CabinetLayout::CabinetPort::Redundancy role, int other)
    {
        CabinetLayout::CabinetPort &record = host.answers()->layouts[processor].layout.ports[index];
        record.redundancy = role;
        record.redundancyPort = other;
    }
};
