// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/EditSides.h"
#include "benchmarks/ShownView.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/IMappingCommands.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/panels/ports/IPortCommands.h"
#include "platform/widgets/CFlowListView.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/SStoreWorld.h"

#include <QApplication>
#include <QPushButton>

namespace {

constexpr int PortRepetitions = 25;
constexpr int SelectRepetitions = 9;

struct CNoPortCommands final : IPortCommands
{
    void importMapping(int) override {}
    void exportMapping(int) override {}
    void setRedundancy(int, int) override {}
    void cancelRedundancy(int) override {}
    bool isWhollySelected(int) const override { return false; }
    void tellRefusal(int) override {}
    void pairPorts() override {}
    void adjustCurrentGain() override {}
};

struct CNoMappingCommands final : IMappingCommands
{
    QString refusalForAll() const override { return {}; }
    void readMapping(ReadSaveMappingRole, const SMappingOptions &, Ended) override {}
    void saveMapping(ReadSaveMappingRole, Ended) override {}
};

/// The port list of a processor with all ports, shown, and another processor to change to.
struct SListSide final : SStoreWorld
{
    QUuid full = host.addProcessor(QStringLiteral("A"), Wall::FullPorts, 1);
    QUuid other = host.addProcessor(QStringLiteral("B"), Wall::FullPorts, 2);
    QUuid none = host.addProcessor(QStringLiteral("C"), 0);
    CNoPortCommands commands;
    CPortList list{store, commands};

    SListSide()
    {
        change(full);
        ShownView::show(list);
    }
    void change(const QUuid &processor)
    {
        show(processor);
        store.openProcessor(processor);
        list.onNotifyProcessorStateChanged();
        QCoreApplication::processEvents();
    }
};

/// As many plain buttons in the same arrangement, shown.
struct SPlainSide
{
    CFlowListView flow{CPortPainter::Size, 4};
    QVector<QWidget *> buttons;

    SPlainSide()
    {
        ShownView::show(flow);
        make();
    }
    void make()
    {
        for (int port = 0; port < Wall::FullPorts; ++port)
            buttons << new QPushButton(QStringLiteral("P%1").arg(port + 1));
        flow.setItems(buttons);
        QCoreApplication::processEvents();
    }
    void clear()
    {
        flow.setItems({});
        qDeleteAll(buttons);
        buttons.clear();
        QCoreApplication::processEvents();
    }
};

/// The loads of all ports change, and are painted.
SWork stormOf(SListSide &side)
{
    SWork work;
    work.run = [&side, load = 0]() mutable {
        load = load == 40 ? 90 : 40;
        for (int port = 0; port < Wall::FullPorts; ++port)
            Q_EMIT side.store.notifyProcessorPortPayloadChanged(port, load);
        QCoreApplication::processEvents();
    };
    return work;
}

SWork paintPlain(SPlainSide &side)
{
    SWork work;
    work.run = [&side] {
        for (QWidget *button : qAsConst(side.buttons))
            button->update();
        QCoreApplication::processEvents();
    };
    return work;
}

/// The list is made anew, or shows the ports of another processor.
SWork rebuild(SListSide &side, const QUuid &from)
{
    SWork work;
    work.prepare = [&side, from] {
        side.change(from);
        side.show(side.full);
        side.store.openProcessor(side.full);
    };
    work.run = [&side] {
        side.list.onNotifyProcessorStateChanged();
        QCoreApplication::processEvents();
    };
    return work;
}

SWork makePlain(SPlainSide &side)
{
    SWork work;
    work.prepare = [&side] { side.clear(); };
    work.run = [&side] { side.make(); };
    return work;
}

SWork selectEverything(CEditorSide &side)
{
    SWork work;
    work.prepare = [&side] {
        side.scene().clearSelection();
        QCoreApplication::processEvents();
    };
    work.run = [&side] {
        side.scene().selectAllItem();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(); // the view tells it once the event loop is back
    };
    return work;
}

} // namespace

void Benchmarks::measurePortList()
{
    CTheme::apply(*qApp); // buttons as the program has them, on both sides
    SListSide side;
    SPlainSide plain;
    const auto print = [](const char *name, const char *reference, const SMedians &medians) {
        Figures::print({name, Wall::FullPorts, medians.work, reference, medians.reference});
    };
    print("B18 storm of loads over all ports", "painting plain buttons",
          Figures::compare(PortRepetitions, stormOf(side), paintPlain(plain)));
    print("B18 list of another processor", "making plain buttons",
          Figures::compare(PortRepetitions, rebuild(side, side.other), makePlain(plain)));
    print("B18 list made anew", "making plain buttons",
          Figures::compare(PortRepetitions, rebuild(side, side.none), makePlain(plain)));
}

/// Both sides select and paint the same; the first one also tells side panel and port list.
void Benchmarks::measureSelectionTold()
{
    const LayoutData data = Wall::data(Wall::FullPorts);
    CEditorSide told;
    told.load(data);
    CEditorSide alone;
    alone.load(data);
    SListSide ports;
    ports.change(ports.full);
    CNoMappingCommands commands;
    CLayoutSidePanel panel({ports.store, commands});
    ShownView::show(panel);
    QObject::connect(&told.view(), &CLayoutGraphicsView::notifySelectedPort, &ports.list,
                     &CPortList::setCurrentSelectPort);
    QObject::connect(&told.view(), &CLayoutGraphicsView::notifySelectedPort, &panel,
                     &CLayoutSidePanel::onNotifySelectedPort);
    QObject::connect(&told.view(), &CLayoutGraphicsView::notifySelectionFigures, &panel,
                     &CLayoutSidePanel::onSelectionFigures);
    QObject::connect(&told.view(), &CLayoutGraphicsView::notifySelectedCabinetGeometryChanged, &panel,
                     &CLayoutSidePanel::onNotifySelectedCabinetGeometryChanged);
    const SMedians medians =
        Figures::compare(SelectRepetitions, selectEverything(told), selectEverything(alone));
    Figures::print({"B18 select all until side panel and port list show it", data.layout.cabinetCount(),
                    medians.work, "select all and paint", medians.reference});
}
