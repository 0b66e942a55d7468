// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CProcessorMenu.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/EditRefusal.h"
#include "layout/plugin/CProcessorCommands.h"
#include "layout/redundancy/PairObstacle.h"

#include <QIcon>
#include <QMenu>

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;

const QString ImportIcon = QStringLiteral(":/Image/Layout/PortList/Menu/import.svg");
const QString ExportIcon = QStringLiteral(":/Image/Layout/PortList/Menu/export.svg");
const QString BackupIcon = QStringLiteral(":/Image/Layout/PortList/Menu/backup.svg");
const QString PlaceholderIcon = QStringLiteral(":/Image/Menu/placeholder.svg");

constexpr int PortCounts[] = {2, 4, 6, 8, 10, 12, 16, 20, 26, 32, 40, 80};

QString fiberText()
{
    return CProcessorMenu::tr("Fiber Optic Transceiver Mode is on");
}

/// An empty @p reason enables the entry; any other says why it is disabled.
void allowUnless(QAction *entry, const QString &reason)
{
    entry->setEnabled(reason.isEmpty());
    if (!reason.isEmpty())
        entry->setToolTip(reason);
}

using Port = CabinetLayout::CabinetPort;

/// Why a port prevents that there are only @p count of them; empty if it does not.
QString obstacleTo(int count, const Port &port)
{
    const QString text = CProcessorMenu::tr("Output port %1").arg(port.index + 1) + QLatin1Char(' ');
    const bool pairedHere = port.redundancyProcessor.isNull() && port.redundancyPort >= 0;
    if (port.index < count)
        return pairedHere && port.redundancyPort >= count
                   ? text + CProcessorMenu::tr("has its redundancy on a port that would go.")
                   : QString();
    if (port.cabinetCount() > 0)
        return text + CProcessorMenu::tr("holds cabinets.");
    if (!port.redundancyProcessor.isNull())
        return text + CProcessorMenu::tr("is in a redundancy pair.");
    return port.locked ? text + CProcessorMenu::tr("is locked.") : QString();
}

/// Why @p layout cannot have only @p count ports; empty if it can.
QString obstacleTo(int count, const CabinetLayout &layout)
{
    for (const Port &port : layout.ports) {
        const QString obstacle = obstacleTo(count, port);
        if (!obstacle.isEmpty())
            return obstacle;
    }
    return {};
}

QString projectText()
{
    return CProcessorMenu::tr("A project is connected to nothing.");
}

QString pairedText()
{
    return CProcessorMenu::tr("The processor is already in a redundancy pair.");
}

} // namespace

CProcessorMenu::CProcessorMenu(QMenu &menu, CProcessorCommands &commands, const QUuid &processor,
                               const QString &block, const Cabinets &selected)
    : m_menu(menu)
    , m_commands(commands)
    , m_processor(CHostAccess::call<&Host::getProcessorNode>(processor))
    , m_selected(selected)
    , m_modeReason(CHostAccess::call<&Host::isFiberTransceiverMode>(processor) ? fiberText() : QString())
    , m_editReason(m_modeReason.isEmpty() ? block : m_modeReason)
{
}

void CProcessorMenu::fill()
{
    m_menu.setToolTipsVisible(true);
    addMappingEntries();
    addStatusLed();
    m_menu.addSeparator();
    addPortCounts();
    addRedundancy();
    m_menu.addSeparator();
    addCabinetParameters();
    m_menu.addSeparator();
    addCabinetInformation();
    m_menu.addSeparator();
    addRedundancyView();
}

void CProcessorMenu::addMappingEntries()
{
    CProcessorCommands *commands = &m_commands;
    const QUuid processor = m_processor.uuid;
    allowUnless(addEntry(
                    m_menu, tr("Import mapping by processor..."),
                    [commands, processor] { commands->importMapping(processor); }, ImportIcon),
                m_editReason);
    QMenu *copies =
        addOtherProcessors(tr("Copy mapping from"), ImportIcon, [commands, processor](const QUuid &other) {
            commands->copyMapping(other, processor);
        });
    allowUnless(copies->menuAction(), reasonFor(*copies, m_editReason));
    allowUnless(addEntry(
                    m_menu, tr("Export mapping by processor..."),
                    [commands, processor] { commands->exportMapping(processor); }, ExportIcon),
                m_modeReason);
}

void CProcessorMenu::addStatusLed()
{
    CProcessorCommands *commands = &m_commands;
    QMenu *led = addSubmenu(m_menu, tr("Cabinet status LED"));
    addEntry(*led, tr("On"), [commands] { commands->setStatusLed(true); });
    addEntry(*led, tr("Off"), [commands] { commands->setStatusLed(false); });
    const QString reason = currentReason();
    allowUnless(led->menuAction(), reason.isEmpty() ? connectionReason() : reason);
}

void CProcessorMenu::addPortCounts()
{
    CProcessorCommands *commands = &m_commands;
    const QUuid processor = m_processor.uuid;
    const int set = CHostAccess::call<&Host::outputPortCount>(processor);
    const int maximum = CHostAccess::call<&Host::maximumPortCount>(processor);
    const CabinetLayout layout = CHostAccess::call<&Host::layoutData>(processor).layout;
    QMenu *counts = addSubmenu(m_menu, tr("Number of output ports"));
    for (const int count : PortCounts) {
        QAction *entry = addEntry(*counts, QString::number(count), [commands, processor, count, set] {
            if (count != set)
                commands->setPortCount(processor, count);
        });
        entry->setCheckable(true);
        entry->setChecked(count == set);
        if (count > maximum)
            allowUnless(entry, tr("The processor has %1 output ports.").arg(maximum));
        else
            allowUnless(entry, obstacleTo(count, layout));
    }
    allowUnless(counts->menuAction(),
                m_editReason.isEmpty() && !m_processor.online ? connectionReason() : m_editReason);
}

void CProcessorMenu::addRedundancy()
{
    CProcessorCommands *commands = &m_commands;
    const QUuid processor = m_processor.uuid;
    const QList<QPair<QUuid, QUuid>> pairs = CHostAccess::call<&Host::processorRedundancies>();
    const auto paired = [pairs](const ProcessorTree::ProcessorNode &node) {
        const bool is = std::any_of(pairs.begin(), pairs.end(), [&node](const QPair<QUuid, QUuid> &pair) {
            return pair.first == node.uuid || pair.second == node.uuid;
        });
        return is ? pairedText() : QString();
    };
    QMenu *primaries = addOtherProcessors(
        tr("Set as redundancy for"), BackupIcon,
        [commands, processor](const QUuid &other) { commands->setRedundancyFor(other, processor); },
        [paired, own = m_processor](const ProcessorTree::ProcessorNode &other) {
            const QString unfit = other.address == 0 ? projectText() : paired(other);
            return unfit.isEmpty() ? PairObstacle::of(other, own) : unfit;
        });
    QString unfit = m_modeReason.isEmpty() ? connectionReason() : m_modeReason;
    if (unfit.isEmpty())
        unfit = paired(m_processor);
    allowUnless(primaries->menuAction(), reasonFor(*primaries, unfit));
    addCancelRedundancy();
}

void CProcessorMenu::addCancelRedundancy()
{
    CProcessorCommands *commands = &m_commands;
    const QUuid processor = m_processor.uuid;
    const QList<QPair<QUuid, QUuid>> pairs = CHostAccess::call<&Host::processorRedundancies>();
    const auto pair = std::find_if(pairs.begin(), pairs.end(), [&processor](const QPair<QUuid, QUuid> &p) {
        return p.first == processor || p.second == processor;
    });
    QAction *cancel = addEntry(m_menu, tr("Cancel redundancy"),
                               [commands, processor] { commands->cancelRedundancy(processor); });
    QString reason;
    if (pair == pairs.end())
        reason = tr("The processor is not in a redundancy pair.");
    else if (!CHostAccess::call<&Host::getProcessorNode>(pair->second).online) // which keeps the pair
        reason = tr("The redundancy processor is offline.");
    allowUnless(cancel, m_modeReason.isEmpty() ? reason : m_modeReason);
}

void CProcessorMenu::addCabinetParameters()
{
    CProcessorCommands *commands = &m_commands;
    QMenu *parameters = addSubmenu(m_menu, tr("Cabinet parameters"));
    QAction *markup = parameters->addAction(tr("Markup custom-defined cabinets"));
    markup->setCheckable(true);
    markup->setChecked(m_commands.customMarkup());
    QObject::connect(markup, &QAction::toggled, commands, &CProcessorCommands::setCustomMarkup);
    allowUnless(addEntry(
                    *parameters, tr("Save parameters..."), [commands] { commands->saveParameters(); },
                    PlaceholderIcon),
                m_modeReason);
}

void CProcessorMenu::addCabinetInformation()
{
    CProcessorCommands *commands = &m_commands;
    QAction *entry = addEntry(m_menu, tr("Cabinet information..."),
                              [commands, selected = m_selected] { commands->showInformation(selected); });
    const QString reason = currentReason();
    allowUnless(entry, reason.isEmpty() && m_selected.isEmpty() ? tr("No cabinet is selected.") : reason);
}

QString CProcessorMenu::currentReason() const
{
    const bool current = CHostAccess::call<&Host::currentProcessorNode>().uuid == m_processor.uuid;
    const QString reason = current ? QString() : tr("The processor is not the current one.");
    return m_modeReason.isEmpty() ? reason : m_modeReason;
}

QString CProcessorMenu::connectionReason() const
{
    if (m_processor.address == 0)
        return projectText();
    return m_processor.online ? QString() : EditRefusal::offline();
}

void CProcessorMenu::addRedundancyView()
{
    CProcessorCommands *commands = &m_commands;
    addEntry(m_menu, tr("Redundant processor view..."), [commands] { commands->showRedundancy(); });
}

QMenu *CProcessorMenu::addOtherProcessors(const QString &text, const QString &icon, const Chosen &chosen,
                                          const Obstacle &obstacle)
{
    QMenu *submenu = addSubmenu(m_menu, text, icon);
    const QList<ProcessorTree::ProcessorNode> processors = CHostAccess::call<&Host::processors>();
    for (const ProcessorTree::ProcessorNode &other : processors) {
        if (other.uuid == m_processor.uuid)
            continue;
        const bool fiber = CHostAccess::call<&Host::isFiberTransceiverMode>(other.uuid);
        QAction *entry = addEntry(*submenu, fiber ? fiberText() : other.displayText(),
                                  [chosen, uuid = other.uuid] { chosen(uuid); });
        if (fiber) // the entry says why, the tool tip which one
            allowUnless(entry, other.displayText());
        else if (obstacle)
            allowUnless(entry, obstacle(other));
    }
    return submenu;
}

QString CProcessorMenu::reasonFor(const QMenu &others, const QString &reason)
{
    return reason.isEmpty() && others.isEmpty() ? tr("There is no other processor.") : reason;
}

QMenu *CProcessorMenu::addSubmenu(QMenu &menu, const QString &text, const QString &icon)
{
    QMenu *submenu = menu.addMenu(icon.isEmpty() ? QIcon() : QIcon(icon), text);
    submenu->setToolTipsVisible(true);
    return submenu;
}

QAction *CProcessorMenu::addEntry(QMenu &menu, const QString &text, const std::function<void()> &chosen,
                                  const QString &icon)
{
    QAction *entry = menu.addAction(icon.isEmpty() ? QIcon() : QIcon(icon), text);
    QObject::connect(entry, &QAction::triggered, &m_commands, chosen);
    return entry;
}
