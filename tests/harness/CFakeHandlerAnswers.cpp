// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// The answers to what the module asks.
#include "tests/harness/CFakeHandler.h"

#include <algorithm>

namespace {

using FakeNode = ProcessorTree::ProcessorNode;

FakeNode nodeOf(const QList<FakeNode> &nodes, const QUuid &processor)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(),
                                    [&processor](const FakeNode &node) { return node.uuid == processor; });
    return found == nodes.end() ? FakeNode() : *found;
}

} // namespace

QSize CFakeHandler::getCanvasSize() const
{
    note("getCanvasSize");
    return layoutData(current).canvas;
}

ProcessorTree::ProcessorNode CFakeHandler::getProcessorNode(const QUuid &processor) const
{
    note("getProcessorNode");
    return nodeOf(nodes, processor);
}

int CFakeHandler::getDetectedProcessorCount() const
{
    note("getDetectedProcessorCount");
    return detected;
}

bool CFakeHandler::layoutFollowUpNeeded() const
{
    note("layoutFollowUpNeeded");
    return followUpNeeded;
}

bool CFakeHandler::isFiberTransceiverMode(const QUuid &processor) const
{
    note("isFiberTransceiverMode");
    return fiber.contains(processor);
}

ProcessorTree::ProcessorNode CFakeHandler::currentProcessorNode() const
{
    note("currentProcessorNode");
    return nodeOf(nodes, current);
}

QVector<CFakeHandler::Port> CFakeHandler::currentProcessorPorts() const
{
    note("currentProcessorPorts");
    const std::lock_guard<std::mutex> lock(m_mutex);
    return layouts.value(current).layout.ports;
}

LayoutData CFakeHandler::layoutData(const QUuid &processor) const
{
    note("layoutData");
    const std::lock_guard<std::mutex> lock(m_mutex);
    return layouts.value(processor);
}

int CFakeHandler::preparatoryStep(const QUuid &processor) const
{
    note("preparatoryStep", {text(processor)});
    return preparation;
}

QList<ProcessorTree::ProcessorNode> CFakeHandler::selectedProcessors() const
{
    note("selectedProcessors");
    QList<FakeNode> chosen;
    for (const QUuid &processor : selected)
        chosen << nodeOf(nodes, processor);
    return chosen;
}

QString CFakeHandler::lastError() const
{
    note("lastError");
    return error;
}

QList<ProcessorTree::ProcessorNode> CFakeHandler::processors() const
{
    note("processors");
    return nodes;
}

int CFakeHandler::outputPortCount(const QUuid &processor) const
{
    note("outputPortCount");
    return layoutData(processor).layout.ports.size();
}

int CFakeHandler::maximumPortCount(const QUuid &) const
{
    note("maximumPortCount");
    return maximumPorts;
}

QList<QPair<QUuid, QUuid>> CFakeHandler::processorRedundancies() const
{
    note("processorRedundancies");
    return redundancies;
}

ProcessorTree::ProcessorNode CFakeHandler::processorOfCabinet(const QUuid &cabinet) const
{
    note("processorOfCabinet");
    for (const LayoutData &data : layouts) {
        for (const Port &port : data.layout.ports) {
            const QVector<Port::Cabinet> cabinets = port.getAllCabinets();
            for (const Port::Cabinet &one : cabinets) {
                if (one.uuid == cabinet)
                    return nodeOf(nodes, data.processor);
            }
        }
    }
    return {};
}

QVector<SSettings::TypeLibrary::STreeNode> CFakeHandler::typeLibrary() const
{
    note("typeLibrary");
    return library;
}

bool CFakeHandler::isPortRedundancyBlocked() const
{
    note("isPortRedundancyBlocked");
    return portRedundancyBlocked;
}

bool CFakeHandler::isPortRedundancySupported() const
{
    note("isPortRedundancySupported");
    return portRedundancySupported;
}

int CFakeHandler::portLoad(const Port &port, int index) const
{
    note("portLoad", {text(port.index), text(index)});
    return loads.value(index);
}

QList<SPortArea> CFakeHandler::portAreas() const
{
    note("portAreas");
    return areas;
}

int CFakeHandler::lowLatencyWidthLimit() const
{
    note("lowLatencyWidthLimit");
    return latencyWidth;
}

bool CFakeHandler::isThreeDEnabled() const
{
    note("isThreeDEnabled");
    return threeD;
}

bool CFakeHandler::areProcessorsOnline(const QList<QUuid> &processors) const
{
    note("areProcessorsOnline");
    return std::all_of(processors.begin(), processors.end(),
                       [this](const QUuid &processor) { return nodeOf(nodes, processor).online; });
}

bool CFakeHandler::areProcessorsBusy(const QList<QUuid> &) const
{
    note("areProcessorsBusy");
    return busy;
}

bool CFakeHandler::areOnPrimaryPorts(const Cabinets &) const
{
    note("areOnPrimaryPorts");
    return primaryPorts;
}

QList<SCurrentGain> CFakeHandler::currentGains() const
{
    note("currentGains");
    return gains;
}

SCanvasLimits CFakeHandler::canvasLimits() const
{
    note("canvasLimits");
    return limits;
}

CanvasBlock CFakeHandler::canvasBlock() const
{
    note("canvasBlock");
    return block;
}

int CFakeHandler::frameRate() const
{
    note("frameRate");
    return hertz;
}

int CFakeHandler::colorDepth() const
{
    note("colorDepth");
    return bits;
}

SBackgroundInfo CFakeHandler::background(const QUuid &processor) const
{
    note("background");
    return backgrounds.value(processor);
}

ProcessorBoundingRects CFakeHandler::processorBoundingRects(const QList<QUuid> &) const
{
    note("processorBoundingRects");
    return rects;
}
