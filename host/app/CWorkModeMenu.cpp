// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CWorkModeMenu.h"

#include "host/devices/CDeviceCommands.h"
#include "host/devices/services/CDeviceTable.h"
#include "platform/widgets/CMessageBox.h"

#include <QAction>

CWorkModeMenu::CWorkModeMenu(const CDeviceTable &table, CDeviceCommands &commands, QWidget *parent)
    : QMenu(tr("&Work mode"), parent)
    , m_table(table)
    , m_commands(commands)
{
    setToolTipsVisible(true);
    createActions();
    connect(this, &QMenu::aboutToShow, this, &CWorkModeMenu::updateActions);
    updateActions();
}

void CWorkModeMenu::createActions()
{
    struct SMode
    {
        ProcessorWorkMode mode;
        const char *name;
        QString text;
    };
    const SMode modes[] = {
        {ProcessorWorkMode::VideoProcessor, "video", tr("&Video processor mode")},
        {ProcessorWorkMode::Bypass, "bypass", tr("&Bypass mode")},
        {ProcessorWorkMode::FiberTransceiver, "fiber", tr("&Fiber optic transceiver mode")},
    };
    for (const SMode &mode : modes) {
        addEntry(
            mode.text, mode.name,
            [wanted = mode.mode](const SProcessorSettings &settings) { return settings.workMode == wanted; },
            [this, wanted = mode.mode](bool) { return m_commands.setWorkMode(m_processor, wanted); });
    }
    addSeparator();
    addEntry(
        tr("&3D"), "3d", [](const SProcessorSettings &settings) { return settings.threeD; },
        [this](bool on) { return m_commands.setThreeD(m_processor, on); });
    addEntry(
        tr("&Low latency"), "low-latency",
        [](const SProcessorSettings &settings) { return settings.lowLatency; },
        [this](bool on) { return m_commands.setLowLatency(m_processor, on); });
}

void CWorkModeMenu::addEntry(const QString &text, const char *name,
                             std::function<bool(const SProcessorSettings &)> isOn,
                             std::function<CStatus(bool on)> set)
{
    QAction *action = addAction(text);
    action->setObjectName(QStringLiteral("WorkMode.") + QLatin1String(name));
    action->setCheckable(true);
    m_entries << SEntry{action, std::move(isOn)};
    connect(action, &QAction::triggered, this, [this, set = std::move(set)](bool on) {
        const CStatus status = set(on);
        updateActions(); // restores the marks after a failed command
        if (!status)
            CMessageBox::warning(parentWidget(), tr("The processor does not change its state."),
                                 status.error());
    });
}

void CWorkModeMenu::setProcessor(const QUuid &processor)
{
    m_processor = processor;
    updateActions();
}

void CWorkModeMenu::updateActions()
{
    const std::optional<SDevice> device = m_table.device(m_processor);
    const bool reachable = device && !device->project && device->node.online;
    const QString hint =
        reachable ? QString()
                  : tr("Select a single processor that is online, not a project, in the device tree.");
    for (const SEntry &entry : qAsConst(m_entries)) {
        entry.action->setEnabled(reachable);
        entry.action->setChecked(device && !device->project && entry.isOn(device->settings));
        entry.action->setToolTip(hint);
    }
}
