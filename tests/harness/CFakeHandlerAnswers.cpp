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
    const auto lock = note("getCanvasSize");
    return layouts.value(current).canvas;
}

ProcessorTree::ProcessorNode CFakeHandler::getProcessorNode(const QUuid &processor) const
{
    const auto lock = note("getProcessorNode");
    return nodeOf(nodes, processor);
}

int CFakeHandler::getDetectedProcessorCount() const
{
    const auto lock = note("getDetectedProcessorCount");
    return detected;
}

bool CFakeHandler::layoutFollowUpNeeded() const
{
    const auto lock = note("layoutFollowUpNeeded");
    return followUpNeeded;
}

bool CFakeHandler::isFiberTransceiverMode(const QUuid &processor) const
{
    const auto lock = note("isFiberTransceiverMode");
    return fiber.contains(processor);
}

ProcessorTree::ProcessorNode CFakeHandler::currentProcessorNode() const
{
    const auto lock = note("currentProcessorNode");
    return nodeOf(nodes, current);
}

LayoutData CFakeHandler::layoutData(const QUuid &processor) const
{
    const auto lock = note("layoutData");
    return layouts.value(processor);
}

int CFakeHandler::preparatoryStep(const QUuid &processor) const
{
    const auto lock = note("preparatoryStep", {text(processor)});
    return preparation;
}

QList<ProcessorTree::ProcessorNode> CFakeHandler::selectedProcessors() const
{
    const auto lock = note("selectedProcessors");
    QList<FakeNode> chosen;
    for (const QUuid &processor : selected)
        chosen << nodeOf(nodes, processor);
    return chosen;
}

QString CFakeHandler::lastError() const
{
    const auto lock = note("lastError");
    return error;
}

QList<ProcessorTree::ProcessorNode> CFakeHandler::processors() const
{
    const auto lock = note("processors");
    return nodes;
}

int CFakeHandler::outputPortCount(const QUuid &processor) const
{
    const auto lock = note("outputPortCount");
    return layouts.value(processor).layout.ports.size();
}

int CFakeHandler::maximumPortCount(const QUuid &) const
{
    const auto lock = note("maximumPortCount");
    return maximumPorts;
}

QList<QPair<QUuid, QUuid>> CFakeHandler::processorRedundancies() const
{
    const auto lock = note("processorRedundancies");
    return redundancies;
}

ProcessorTree::ProcessorNode CFakeHandler::processorOfCabinet(const QUuid &cabinet) const
{
    const auto lock = note("processorOfCabinet");
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
    const auto lock = note("typeLibrary");
    return library;
}

int CFakeHandler::portLoad(const Port &port, int index) const
{
    const auto lock = note("portLoad", {text(port.index), text(index)});
    return loads.value(index);
}

bool CFakeHandler::areOnPrimaryPorts(const Cabinets &) const
{
    const auto lock = note("areOnPrimaryPorts");
    return primaryPorts;
}

QList<SCurrentGain> CFakeHandler::currentGains() const
{
    const auto lock = note("currentGains");
    return gains;
}

SCanvasLimits CFakeHandler::canvasLimits() const
{
    const auto lock = note("canvasLimits");
    return limits;
}

CanvasBlock CFakeHandler::canvasBlock() const
{
    const auto lock = note("canvasBlock");
    return block;
}

int CFakeHandler::frameRate() const
{
    const auto lock = note("frameRate");
    return hertz;
}

int CFakeHandler::colorDepth() const
{
    const auto lock = note("colorDepth");
    return bits;
}

SSignalModes CFakeHandler::signalModes() const
{
    const auto lock = note("signalModes");
    return modes;
}

SBackgroundInfo CFakeHandler::background(const QUuid &processor) const
{
    const auto lock = note("background");
    return backgrounds.value(processor);
}

ProcessorBoundingRects CFakeHandler::processorBoundingRects(const QList<QUuid> &) const
{
    const auto lock = note("processorBoundingRects");
    return rects;
}
