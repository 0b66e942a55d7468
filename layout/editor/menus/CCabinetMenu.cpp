// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CCabinetMenu.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/menus/CEditEntries.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/placing/CScenePlacing.h"

#include <QMenu>

namespace {

QString menuIcon(const char *name)
{
    return QStringLiteral(":/Image/Layout/Menu/%1.svg").arg(QLatin1String(name));
}

} // namespace

CCabinetMenu::CCabinetMenu(QMenu &menu, const SEditTargets &targets, IEditorCommands *commands,
                           const CGraphicsItemBase &clicked, QWidget *parent)
    : m_menu(menu)
    , m_targets(targets)
    , m_commands(commands)
    , m_clicked(clicked)
    , m_parent(parent)
    , m_onePort(targets.selection.ports().size() == 1)
    , m_locked(targets.states.isPortLocked(clicked.port()))
{
}

void CCabinetMenu::fill()
{
    m_menu.setObjectName(QStringLiteral("CabinetMenu"));
    m_menu.setFixedWidth(Width);
    m_menu.setToolTipsVisible(true);
    CEditEntries::addHistory(m_menu, m_targets.history, m_parent);
    if (m_onePort && !m_locked)
        addGrouping();
    if (m_onePort)
        CEditEntries::addSelectAll(m_menu, m_targets.picks);
    addClipboard();
    if (m_onePort && !m_locked)
        CEditEntries::addClearTopology(m_menu, m_targets.content, m_targets.operations, m_clicked.port(),
                                       m_parent);
    if (!m_onePort || !m_commands)
        return;
    addFill();
    addParameters();
    CEditEntries::add(m_menu, tr("Cabinet information...."), QString(),
                      [commands = m_commands, &selection = m_targets.selection, parent = m_parent] {
                          commands->showInformation(selection.records(), parent);
                      });
}

void CCabinetMenu::addGrouping()
{
    CSceneOperations &operations = m_targets.operations;
    if (m_targets.selection.canGroup())
        CEditEntries::add(m_menu, tr("Group"), QString(), [&operations] {
            operations.group();
        })->setShortcut(Qt::CTRL | Qt::Key_G);
    else if (m_targets.selection.groups().size() == 1)
        CEditEntries::add(m_menu, tr("Ungroup"), menuIcon("ungroup"), [&operations] {
            operations.ungroup();
        })->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_G);
}

void CCabinetMenu::addClipboard()
{
    CSceneOperations &operations = m_targets.operations;
    CScenePlacing &placing = m_targets.placing;
    QAction *cut = CEditEntries::add(m_menu, tr("Cut"), menuIcon("cut"),
                                     [&placing, &operations] { placing.cut(operations); });
    cut->setShortcuts(QKeySequence::Cut);
    CEditEntries::add(m_menu, tr("Copy"), menuIcon("copy"), [&placing] {
        placing.copy();
    })->setShortcuts(QKeySequence::Copy);
    QAction *remove = CEditEntries::add(m_menu, tr("Delete cabinet"), menuIcon("delete"),
                                        [&operations] { operations.remove(); });
    for (QAction *entry : {cut, remove})
        CEditEntries::disableIfClosed(*entry, m_targets.selection.closedPort());
}

void CCabinetMenu::addFill()
{
    IEditorCommands *commands = m_commands;
    QMenu *fill = m_menu.addMenu(tr("Cabinet fill"));
    QAction *current =
        CEditEntries::add(*fill, tr("Current output..."), QString(),
                          [commands, parent = m_parent] { commands->fillCurrentPort(parent); });
    if (m_clicked.portItem()->isRedundant()) // is drawn without a fill
        CEditEntries::disableIfClosed(*current, m_clicked.portItem());
    CEditEntries::add(*fill, tr("Set all outputs to default"), QString(),
                      [commands, parent = m_parent] { commands->resetFills(parent); });
}

void CCabinetMenu::addParameters()
{
    IEditorCommands *commands = m_commands;
    const CSceneSelection &selection = m_targets.selection;
    CSelectionPicks &picks = m_targets.picks;
    QMenu *parameters = m_menu.addMenu(tr("Cabinet parameters"));
    parameters->setToolTipsVisible(true);
    QAction *markup = parameters->addAction(tr("Markup custom-defined cabinets"));
    markup->setCheckable(true);
    markup->setChecked(m_targets.states.marksCustomCabinets());
    QObject::connect(markup, &QAction::toggled, markup,
                     [commands](bool marked) { commands->markCustomCabinets(marked); });
    CEditEntries::add(*parameters, tr("Select the same type"), QStringLiteral(":/Image/Menu/placeholder.svg"),
                      [&picks, uuid = m_clicked.uuid()] { picks.sameType(uuid); });
    QAction *type = CEditEntries::add(*parameters, tr("Set type..."), QString(),
                                      [commands, parent = m_parent] { commands->chooseType(parent); });
    CEditEntries::disableIfClosed(*type, selection.closedPort());
    QAction *save = CEditEntries::add(
        *parameters, tr("Save parameters..."), QString(),
        [commands, &selection, parent = m_parent] { commands->saveParameters(selection.records(), parent); });
    CEditEntries::disableUnless(*save, commands->connectionRefusal(selection.records()));
    if (m_clicked.type() == CabinetItemKind)
        addFiles(*parameters);
}

/// Entries for the configuration file of the clicked cabinet.
void CCabinetMenu::addFiles(QMenu &parameters)
{
    IEditorCommands *commands = m_commands;
    const auto &item = static_cast<const CGraphicsCabinetItem &>(m_clicked);
    const auto cabinet = item.cabinet();
    if (item.isSelected() && !cabinet.type.isNull()) {
        parameters.addSeparator();
        QAction *configuration = CEditEntries::add(
            parameters, tr("Export cabinet configuration< .rcvbp> file..."),
            QStringLiteral(":/Image/Layout/PortList/Menu/export.svg"),
            [commands, cabinet, parent = m_parent] { commands->exportConfiguration(cabinet, parent); });
        CEditEntries::disableUnless(*configuration, commands->exportRefusal(cabinet));
    }
    if (!item.isSelected() || m_targets.selection.count() != 1 || item.chainPosition() < 0)
        return;
    const QString refused = commands->connectionRefusal({cabinet});
    parameters.addSeparator();
    QAction *readback = CEditEntries::add(
        parameters, tr("Readback from connected cabinet..."),
        menuIcon(refused.isEmpty() ? "readback" : "readback_disabled"),
        [commands, cabinet, parent = m_parent] { commands->readBackConfiguration(cabinet, parent); });
    CEditEntries::disableUnless(*readback, refused);
}
