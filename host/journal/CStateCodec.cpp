// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CStateCodec.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CPortCodec.h"
#include "layout/api/records/CPrintConfigJson.h"
#include "layout/api/records/LayoutLimits.h"
#include "platform/json/CStrictJson.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

using Port = CabinetLayout::CabinetPort;

constexpr int PortLimit = LayoutLimits::LargestPortIndex + 1;
constexpr int LargestValue = 1000000; // of frame rates, scales and the like

bool sameSettings(const SProcessorProject &a, const SProcessorProject &b)
{
    SProcessorProject like = a;
    like.layout = b.layout;
    return like == b && a.layout.processor == b.layout.processor;
}

void writeSettings(CByteWriter &out, const SProcessorProject &state)
{
    out.uuid(state.layout.processor);
    out.text(state.name);
    out.text(state.kind);
    out.count(state.portCount);
    out.extent(state.canvas);
    out.point(state.offset);
    out.number(state.frameRate);
    out.number(state.colorDepth);
    out.byte(state.background.enabled ? 1 : 0);
    out.text(state.background.file);
    out.number(state.background.scale);
    out.number(state.background.opacity);
    out.byte(state.background.fit);
    out.block(QJsonDocument(CPrintConfigJson::toJson(state.print)).toJson(QJsonDocument::Compact));
}

bool readSettings(CByteReader &in, SProcessorProject &state)
{
    state.layout.processor = in.uuid();
    state.name = in.name();
    state.kind = in.name();
    state.portCount = in.upTo(PortLimit);
    state.canvas = in.extent(LayoutLimits::LargestReadCanvasSide);
    state.offset = in.point(LayoutLimits::LargestOffset);
    state.frameRate = in.number(0, LargestValue);
    state.colorDepth = in.number(0, LargestValue);
    state.background.enabled = in.byte() != 0;
    state.background.file = in.text();
    state.background.scale = in.number(0, LargestValue);
    state.background.opacity = in.number(0, LargestValue);
    state.background.fit = in.byte() ? SBackgroundInfo::ZoomToFit : SBackgroundInfo::NaturalSize;
    const CResult<CJsonDocument> print = CStrictJson::parse(in.block());
    if (!in.isValid() || !print)
        return in.fail();
    const CResult<PrintConfig> config = CPrintConfigJson::config(print.value().root(), "print");
    if (!config)
        return in.fail();
    state.print = config.value();
    return true;
}

const Port &versionOf(const SProcessorProject &state, int index)
{
    static const Port none;
    const Port *port = state.layout.port(index);
    return port ? *port : none;
}

QVector<int> differentPorts(const SProcessorProject &before, const SProcessorProject &after)
{
    QVector<int> different;
    for (const Port &port : after.layout.ports) {
        const Port *old = before.layout.port(port.index);
        if (!old || !CPortCodec::samePort(*old, port))
            different << port.index;
    }
    return different;
}

QVector<int> indexesOf(const CabinetLayout &layout)
{
    QVector<int> indexes;
    for (const Port &port : layout.ports)
        indexes << port.index;
    return indexes;
}

/// Gives the layout exactly these ports, in ascending order.
bool readPorts(CByteReader &in, CabinetLayout &layout)
{
    const int count = in.count(1);
    CabinetLayout read;
    read.processor = layout.processor;
    int index = -1;
    for (int i = 0; i < count && in.isValid(); ++i) {
        index += in.number(1, PortLimit);
        if (index >= PortLimit)
            return in.fail();
        const Port *old = layout.port(index);
        read.ports << (old ? *old : Port());
        read.ports.last().index = index;
    }
    if (in.isValid())
        layout = read;
    return in.isValid();
}

} // namespace

void CStateCodec::write(CByteWriter &out, const SProcessorProject &before, const SProcessorProject &after)
{
    const bool settings = !sameSettings(before, after);
    const QVector<int> indexes = indexesOf(after.layout);
    const bool ports = indexes != indexesOf(before.layout);
    out.byte((settings ? 1 : 0) | (ports ? 2 : 0));
    if (settings)
        writeSettings(out, after);
    if (ports) {
        out.count(indexes.size());
        int previous = -1;
        for (const int index : indexes)
            out.number(index - std::exchange(previous, index));
    }
    const QVector<int> different = differentPorts(before, after);
    out.count(different.size());
    for (const int index : different) {
        out.count(index);
        CPortCodec::writePort(out, versionOf(before, index), versionOf(after, index));
    }
}

bool CStateCodec::apply(CByteReader &in, SProcessorProject &state)
{
    const int parts = in.byte();
    if ((parts & 1) && !readSettings(in, state))
        return false;
    if ((parts & 2) && !readPorts(in, state.layout))
        return false;
    const int count = in.count(2);
    for (int i = 0; i < count && in.isValid(); ++i) {
        const int index = in.upTo(PortLimit);
        const auto found = std::find_if(state.layout.ports.begin(), state.layout.ports.end(),
                                        [index](const Port &port) { return port.index == index; });
        if (found == state.layout.ports.end() || !CPortCodec::applyPort(in, *found))
            return in.fail();
    }
    return in.isValid();
}

bool CStateCodec::sameState(const SProcessorProject &a, const SProcessorProject &b)
{
    return sameSettings(a, b) && indexesOf(a.layout) == indexesOf(b.layout) && differentPorts(a, b).isEmpty();
}

int CStateCodec::cabinetsConcerned(const SProcessorProject &before, const SProcessorProject &after)
{
    int count = 0;
    for (const Port &port : after.layout.ports) {
        const Port *old = before.layout.port(port.index);
        if (!old || old->groups.constData() != port.groups.constData())
            count += port.cabinetCount();
    }
    return count;
}
