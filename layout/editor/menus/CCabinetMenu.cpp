// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/menus/CCabinetMenu.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/menus/CEditEntries.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QMenu>

namespace {

QString menuIcon(const char *name)
{
    return QStringLiteral(":/Image/Layout/Menu/%1.svg").arg(QLatin1String(name));
}

} // namespace

CCabinetMenu::CCabinetMenu(QMenu &menu, CCabinetGraphicsScene &scene, const CGraphicsItemBase &clicked,
                           QWidget *parent)
    : m_menu(menu)
    , m_scene(scene)
    , m_clicked(clicked)
    , m_parent(parent)
    , m_onePort(scene.selection().ports().size() == 1)
    , m_locked(scene.portStates().isPortLocked(clicked.port()))
{
}

void CCabinetMenu::fill()
{
    m_menu.setObjectName(QStringLiteral("CabinetMenu"));
    m_menu.setFixedWidth(Width);
    m_menu.setToolTipsVisible(true);
    CEditEntries::addHistory(m_menu, m_scene, m_parent);
    if (m_onePort && !m_locked)
        addGrouping();
    if (m_onePort)
        CEditEntries::addSelectAll(m_menu, m_scene);
    addClipboard();
    if (m_onePort && !m_locked)
        CEditEntries::addClearTopology(m_menu, m_scene, m_clicked.port(), m_parent);
    IEditorCommands *commands = m_scene.commands();
    if (!m_onePort || !commands)
        return;
    addFill();
    addParameters();
    CEditEntries::add(m_menu, m_scene, tr("Cabinet information...."), QString(),
                      [commands, &scene = m_scene, parent = m_parent] {
                          commands->showInformation(scene.selection().records(), parent);
                      });
}

void CCabinetMenu::addGrouping()
{
    CCabinetGraphicsScene &scene = m_scene;
    if (scene.selection().canGroup())
        CEditEntries::add(m_menu, scene, tr("Group"), QString(), [&scene] {
            scene.groupSelected();
        })->setShortcut(Qt::CTRL | Qt::Key_G);
    else if (scene.selection().groups().size() == 1)
        CEditEntries::add(m_menu, scene, tr("Ungroup"), menuIcon("ungroup"), [&scene] {
            scene.ungroupSelected();
        })->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_G);
}

void CCabinetMenu::addClipboard()
{
    CCabinetGraphicsScene &scene = m_scene;
    CEditEntries::add(m_menu, scene, tr("Cut"), menuIcon("cut"), [&scene] {
        scene.cutSelected();
    })->setShortcuts(QKeySequence::Cut);
    CEditEntries::add(m_menu, scene, tr("Copy"), menuIcon("copy"), [&scene] {
        scene.copySelected();
    })->setShortcuts(QKeySequence::Copy);
    CEditEntries::add(m_menu, scene, tr("Delete cabinet"), menuIcon("delete"),
                      [&scene] { scene.deleteSelected(); });
}

void CCabinetMenu::addFill()
{
    IEditorCommands *commands = m_scene.commands();
    QMenu *fill = m_menu.addMenu(tr("Cabinet fill"));
    CEditEntries::add(*fill, m_scene, tr("Current output..."), QString(),
                      [commands, parent = m_parent] { commands->fillCurrentPort(parent); });
    CEditEntries::add(*fill, m_scene, tr("Set all outputs to default"), QString(),
                      [commands, parent = m_parent] { commands->resetFills(parent); });
}

void CCabinetMenu::addParameters()
{
    IEditorCommands *commands = m_scene.commands();
    CCabinetGraphicsScene &scene = m_scene;
    QMenu *parameters = m_menu.addMenu(tr("Cabinet parameters"));
    parameters->setToolTipsVisible(true);
    QAction *markup = parameters->addAction(tr("Markup custom-defined cabinets"));
    markup->setCheckable(true);
    markup->setChecked(scene.portStates().marksCustomCabinets());
    QObject::connect(markup, &QAction::toggled, &scene,
                     [commands](bool marked) { commands->markCustomCabinets(marked); });
    CEditEntries::add(*parameters, scene, tr("Select the same type"),
                      QStringLiteral(":/Image/Menu/placeholder.svg"),
                      [&scene, uuid = m_clicked.uuid()] { scene.selectSameType(uuid); });
    CEditEntries::add(*parameters, scene, tr("Set type..."), QString(),
                      [commands, parent = m_parent] { commands->chooseType(parent); });
    CEditEntries::add(*parameters, scene, tr("Save parameters..."), QString(),
                      [commands, &scene, parent = m_parent] {
                          commands->saveParameters(scene.selection().records(), parent);
                      });
    if (m_clicked.type() == CabinetItemKind)
        addFiles(*parameters);
}

/// What concerns the configuration file of the clicked cabinet.
void CCabinetMenu::addFiles(QMenu &parameters)
{
    IEditorCommands *commands = m_scene.commands();
    const auto &item = static_cast<const CGraphicsCabinetItem &>(m_clicked);
    const auto cabinet = item.cabinet();
    if (item.isSelected() && !cabinet.type.isNull()) {
        parameters.addSeparator();
        CEditEntries::add(
            parameters, m_scene, tr("Export cabinet configuration< .rcvbp> file..."),
            QStringLiteral(":/Image/Layout/PortList/Menu/export.svg"),
            [commands, cabinet, parent = m_parent] { commands->exportConfiguration(cabinet, parent); });
    }
    if (!item.isSelected() || !m_scene.isSingleSelection() || item.chainPosition() < 0)
        return;
    const QString refused = commands->readbackRefusal();
    parameters.addSeparator();
    QAction *readback = CEditEntries::add(
        parameters, m_scene, tr("Readback from connected cabinet..."),
        menuIcon(refused.isEmpty() ? "readback" : "readback_disabled"),
        [commands, cabinet, parent = m_parent] { commands->readBackConfiguration(cabinet, parent); });
    readback->setEnabled(refused.isEmpty());
    readback->setToolTip(refused);
}
