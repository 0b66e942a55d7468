// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// What the module tells the host to do.
#include "tests/harness/CFakeHandler.h"

#include <QHash>
#include <QPoint>

/// Answers, and takes @p value over where it accepts.
template <typename Value>
bool CFakeHandler::take(const char *name, Value &member, const Value &value)
{
    if (!answer(name))
        return false;
    const Lock lock(m_mutex);
    member = value;
    return true;
}

void CFakeHandler::showScreen(bool shown)
{
    const auto lock = note("showScreen", {text(shown)});
}

void CFakeHandler::applyLayoutFollowUp(bool full)
{
    const auto lock = note("applyLayoutFollowUp", {text(full)});
}

void CFakeHandler::commitLayoutData(const LayoutData &data)
{
    const auto lock = note("commitLayoutData", {text(data.processor)});
    QHash<QUuid, int> places; // the host's own, see ILayoutInterfaceHandler
    for (const Port &port : layouts.value(data.processor).layout.ports) {
        for (const Port::Cabinet &cabinet : port.getAllCabinets())
            places.insert(cabinet.uuid, cabinet.mappingIndex);
    }
    LayoutData &kept = layouts[data.processor] = data;
    for (Port &port : kept.layout.ports) {
        for (Port::CabinetGroup &group : port.groups) {
            for (Port::Cabinet &cabinet : group.cabinets)
                cabinet.mappingIndex = places.value(cabinet.uuid, -1);
        }
    }
}

bool CFakeHandler::exportProcessorMapping(const QUuid &processor, const QString &file)
{
    return answer("exportProcessorMapping", {text(processor), file});
}

bool CFakeHandler::importProcessorMapping(const QUuid &processor, const QString &file, bool overwriteLocked)
{
    return answer("importProcessorMapping", {text(processor), file, text(overwriteLocked)});
}

bool CFakeHandler::setCabinetStatusLed(bool on)
{
    return answer("setCabinetStatusLed", {text(on)});
}

void CFakeHandler::performPreparatoryStep(const QUuid &processor)
{
    const auto lock = note("performPreparatoryStep", {text(processor)});
}

bool CFakeHandler::copyProcessorMapping(const QUuid &from, const QUuid &to, bool overwriteLocked)
{
    return answer("copyProcessorMapping", {text(from), text(to), text(overwriteLocked)});
}

bool CFakeHandler::setOutputPortCount(const QUuid &processor, int count)
{
    return answer("setOutputPortCount", {text(processor), text(count)});
}

bool CFakeHandler::setProcessorRedundancy(const QUuid &primary, const QUuid &redundancy)
{
    return answer("setProcessorRedundancy", {text(primary), text(redundancy)});
}

bool CFakeHandler::cancelProcessorRedundancy(const QUuid &processor)
{
    return answer("cancelProcessorRedundancy", {text(processor)});
}

bool CFakeHandler::setWorkMode(const QUuid &processor, ProcessorWorkMode mode)
{
    return answer("setWorkMode", {text(processor), text(static_cast<int>(mode))});
}

bool CFakeHandler::setCabinetHighlight(const Cabinets &cabinets, CabinetHighlight highlight)
{
    return answer("setCabinetHighlight", {text(cabinets.size()), text(static_cast<int>(highlight))});
}

bool CFakeHandler::exportCabinetConfig(const Port::Cabinet &cabinet, const QString &file)
{
    return answer("exportCabinetConfig", {text(cabinet.uuid), file});
}

bool CFakeHandler::readbackCabinetConfig(int port, const Port::Cabinet &cabinet, const QString &file,
                                         const QString &typeName)
{
    return answer("readbackCabinetConfig", {text(port), text(cabinet.uuid), file, typeName});
}

bool CFakeHandler::setPortRedundancy(int primary, int backup)
{
    return answer("setPortRedundancy", {text(primary), text(backup)});
}

void CFakeHandler::readMapping(ReadSaveMappingRole wanted, const SMappingOptions &options, Done done)
{
    auto lock = note("readMapping");
    role = wanted;
    readOptions = options;
    end(std::move(lock), std::move(done));
}

void CFakeHandler::saveMapping(ReadSaveMappingRole wanted, const LayoutData &data, Done done)
{
    auto lock = note("saveMapping");
    role = wanted;
    saved = data;
    end(std::move(lock), std::move(done));
}

void CFakeHandler::showTypeLibrary(QWidget *)
{
    const auto lock = note("showTypeLibrary");
}

bool CFakeHandler::sendCabinetParameters(const Cabinets &cabinets, const SMD5 &type, double gamma)
{
    return answer("sendCabinetParameters",
                  {text(cabinets.size()), QString::fromLatin1(type.toText()), QString::number(gamma)});
}

bool CFakeHandler::importCurrentGain(const QString &file)
{
    return answer("importCurrentGain", {file});
}

bool CFakeHandler::clearCurrentGains()
{
    return answer("clearCurrentGains");
}

bool CFakeHandler::sendCurrentGains(const QList<SCurrentGain> &sent)
{
    return take("sendCurrentGains", gains, sent);
}

bool CFakeHandler::setCanvasSize(const QSize &size)
{
    return answer("setCanvasSize", {text(size.width()), text(size.height())});
}

bool CFakeHandler::setFrameRateAndColorDepth(int rate, int depth)
{
    return answer("setFrameRateAndColorDepth", {text(rate), text(depth)});
}

bool CFakeHandler::setBackground(const SBackgroundInfo &info)
{
    return answer("setBackground", {text(info.processor), info.file});
}

bool CFakeHandler::setProcessorOffsets(const ProcessorOffsets &offsets)
{
    QStringList arguments;
    for (auto it = offsets.begin(); it != offsets.end(); ++it)
        arguments << text(it.key()) << text(it.value().x()) << text(it.value().y());
    const bool done = answer("setProcessorOffsets", arguments);
    const Lock lock(m_mutex);
    for (auto it = offsets.begin(); done && it != offsets.end(); ++it)
        rects[it.key()].moveTo(it.value());
    return done;
}
