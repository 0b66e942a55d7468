// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CSimulatedPark.h"

#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/simulated/DevicesLog.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CWallBuilder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

QString textOf(const QJsonObject &entry, const char *key)
{
    return entry.value(QLatin1String(key)).toString();
}

QPoint pairOf(const QJsonObject &entry, const char *key)
{
    const QJsonArray pair = entry.value(QLatin1String(key)).toArray();
    return {pair.at(0).toInt(), pair.at(1).toInt()};
}

quint32 addressOf(const QString &dotted)
{
    quint32 address = 0;
    for (const QString &part : dotted.split(QLatin1Char('.')))
        address = (address << 8) | part.toUInt();
    return address;
}

SWallPlan factoryPlan(const QJsonObject &wall, const QString &name)
{
    const QPoint cabinet = pairOf(wall, "cabinet");
    SWallPlan plan;
    plan.name = name;
    plan.cabinet = {cabinet.x(), cabinet.y()};
    plan.columns = wall.value(QLatin1String("columns")).toInt();
    plan.rows = wall.value(QLatin1String("rows")).toInt();
    plan.ports = wall.value(QLatin1String("ports")).toInt();
    plan.pattern = wall.value(QLatin1String("pattern")).toInt();
    if (const auto *type = CTypeLibrary::builtIn().findBySize(plan.cabinet)) {
        plan.type = type->key;
        plan.rects = type->receivers;
    }
    return plan;
}

SProcessorSettings factorySettings(const QJsonObject &entry)
{
    const QPoint canvas = pairOf(entry, "canvas");
    SProcessorSettings settings;
    settings.portCount = entry.value(QLatin1String("ports")).toInt();
    settings.canvas = {canvas.x(), canvas.y()};
    settings.offset = pairOf(entry, "offset");
    settings.threeD = entry.value(QLatin1String("threeD")).toBool();
    if (textOf(entry, "workMode") == QLatin1String("fiberTransceiver"))
        settings.workMode = ProcessorWorkMode::FiberTransceiver;
    return settings;
}

SProcessorState factoryState(const QJsonObject &entry)
{
    SProcessorState state;
    state.settings = factorySettings(entry);
    const QJsonObject wall = entry.value(QLatin1String("wall")).toObject();
    if (wall.isEmpty())
        return state;
    const CResult<CabinetLayout> layout = CWallBuilder::build(factoryPlan(wall, textOf(entry, "name")));
    if (layout)
        state.mapping = {CWorkingLayout::numbered(layout.value()), 1};
    else
        qCCritical(devicesLog, "%s", qPrintable(layout.error()));
    return state;
}

} // namespace

CSimulatedPark::CSimulatedPark(const QString &stateFolder, double delayScale)
    : m_folder(CStateFolder::at(stateFolder))
{
    Q_INIT_RESOURCE(devices);
    QFile file(QStringLiteral(":/devices/park.json"));
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    const QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    for (const QJsonValue &group : root.value(QLatin1String("groups")).toArray())
        m_groups << CDeviceTable::SGroup{QUuid(textOf(group.toObject(), "uuid")),
                                         textOf(group.toObject(), "name")};
    for (const QJsonValue &entry : root.value(QLatin1String("processors")).toArray())
        m_processors.push_back(make(entry.toObject(), stateFolder, delayScale));
}

CSimulatedPark::Processor CSimulatedPark::make(const QJsonObject &entry, const QString &stateFolder,
                                               double delayScale) const
{
    CSimulatedProcessor::SIdentity identity;
    identity.uuid = QUuid(textOf(entry, "uuid"));
    identity.group = QUuid(textOf(entry, "group"));
    identity.name = textOf(entry, "name");
    identity.kind = textOf(entry, "kind");
    identity.serialNumber = textOf(entry, "serialNumber");
    identity.address = addressOf(textOf(entry, "address"));
    const auto processor = std::make_shared<CSimulatedProcessor>(
        identity, [entry] { return factoryState(entry); }, stateFolder, delayScale);
    processor->setFault(SimulationFault::Offline, entry.value(QLatin1String("offline")).toBool());
    return processor;
}

CSimulatedPark::Processor CSimulatedPark::find(const QUuid &uuid) const
{
    const auto found =
        std::find_if(m_processors.begin(), m_processors.end(),
                     [&uuid](const Processor &processor) { return processor->identity().uuid == uuid; });
    return found == m_processors.end() ? nullptr : *found;
}

QStringList CSimulatedPark::names() const
{
    QStringList names;
    for (const Processor &processor : m_processors)
        names << processor->identity().name;
    return names;
}
