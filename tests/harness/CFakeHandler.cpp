// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CFakeHandler.h"

#include <QPoint>

#include <algorithm>

namespace {

using FakeNode = ProcessorTree::ProcessorNode;

FakeNode nodeOf(const QList<FakeNode> &nodes, const QUuid &processor)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(),
                                    [&processor](const FakeNode &node) { return node.uuid == processor; });
    return found == nodes.end() ? FakeNode() : *found;
}

QString text(const QUuid &uuid)
{
    return uuid.toString(QUuid::WithoutBraces);
}

QString text(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString text(int value)
{
    return QString::number(value);
}

} // namespace

QStringList CFakeHandler::calls() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls;
}

int CFakeHandler::count(const QString &name) const
{
    const QStringList all = calls();
    return static_cast<int>(std::count_if(all.begin(), all.end(), [&name](const QString &call) {
        return call == name || call.startsWith(name + QLatin1Char('('));
    }));
}

std::thread::id CFakeHandler::threadOf(const QString &name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_threads.value(name);
}

void CFakeHandler::forgetCalls()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.clear();
    m_threads.clear();
}

void CFakeHandler::note(const char *name, const QStringList &arguments) const
{
    QString call = QString::fromLatin1(name);
    const QString operation = call;
    if (!arguments.isEmpty())
        call += QLatin1Char('(') + arguments.join(QLatin1Char(',')) + QLatin1Char(')');
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls << call;
        m_threads[operation] = std::this_thread::get_id();
    }
    if (onCalled)
        onCalled(call);
}

bool CFakeHandler::answer(const char *name, const QStringList &arguments) const
{
    note(name, arguments);
    return !refused.contains(QString::fromLatin1(name));
}

void CFakeHandler::end(Done done)
{
    if (answerLater)
        waiting.push_back(std::move(done));
    else
        done(outcome);
}

QSize CFakeHandler::getCanvasSize() const
{
    note("getCanvasSize");
    return layoutData(current).canvas;
}

void CFakeHandler::showScreen(bool shown)
{
    note("showScreen", {text(shown)});
}

void CFakeHandler::applyLayoutFollowUp(bool full)
{
    note("applyLayoutFollowUp", {text(full)});
}

ProcessorTree::ProcessorNode CFakeHandler::getProcessorNode(const QUuid &processor) const
{
    note("getProcessorNode");
    return nodeOf(nodes, processor);
}

void CFakeHandler::commitLayoutData(const LayoutData &data)
{
    note("commitLayoutData", {text(data.processor)});
    const std::lock_guard<std::mutex> lock(m_mutex);
    layouts[data.processor] = data;
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

void CFakeHandler::performPreparatoryStep(const QUuid &processor)
{
    note("performPreparatoryStep", {text(processor)});
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

bool CFakeHandler::copyProcessorMapping(const QUuid &from, const QUuid &to, bool overwriteLocked)
{
    return answer("copyProcessorMapping", {text(from), text(to), text(overwriteLocked)});
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

bool CFakeHandler::setWorkMode(const QUuid &processor, ProcessorWorkMode mode)
{
    return answer("setWorkMode", {text(processor), text(static_cast<int>(mode))});
}

QVector<SSettings::TypeLibrary::STreeNode> CFakeHandler::typeLibrary() const
{
    note("typeLibrary");
    return library;
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

bool CFakeHandler::setPortRedundancy(int primary, int backup)
{
    return answer("setPortRedundancy", {text(primary), text(backup)});
}

bool CFakeHandler::cancelPortRedundancy(int port)
{
    return answer("cancelPortRedundancy", {text(port)});
}

bool CFakeHandler::exportPortMapping(const QUuid &processor, int port, const QString &file)
{
    return answer("exportPortMapping", {text(processor), text(port), file});
}

bool CFakeHandler::importPortMapping(const QUuid &processor, int port, const QString &file,
                                     bool overwriteLocked)
{
    return answer("importPortMapping", {text(processor), text(port), file, text(overwriteLocked)});
}

int CFakeHandler::portLoad(const Port &port, int index) const
{
    note("portLoad", {text(port.index), text(index)});
    return loads.value(index);
}

void CFakeHandler::readMapping(ReadSaveMappingRole wanted, const SMappingOptions &options, Done done)
{
    role = wanted;
    readOptions = options;
    note("readMapping");
    end(std::move(done));
}

void CFakeHandler::saveMapping(ReadSaveMappingRole wanted, const LayoutData &data, Done done)
{
    role = wanted;
    saved = data;
    note("saveMapping");
    end(std::move(done));
}

QList<SPortArea> CFakeHandler::portAreas() const
{
    note("portAreas");
    return areas;
}

bool CFakeHandler::setPortAreas(const QList<SPortArea> &changed)
{
    if (!answer("setPortAreas"))
        return false;
    areas = changed;
    return true;
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

bool CFakeHandler::applyProcessorRedundancy(const QList<QUuid> &, const QList<QPair<QUuid, QUuid>> &pairs)
{
    if (!answer("applyProcessorRedundancy"))
        return false;
    redundancies = pairs;
    return true;
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

void CFakeHandler::showTypeLibrary(QWidget *)
{
    note("showTypeLibrary");
}

bool CFakeHandler::areOnPrimaryPorts(const Cabinets &) const
{
    note("areOnPrimaryPorts");
    return primaryPorts;
}

bool CFakeHandler::sendCabinetParameters(const Cabinets &cabinets, const SMD5 &type, double gamma)
{
    return answer("sendCabinetParameters",
                  {text(cabinets.size()), QString::fromLatin1(type.toText()), QString::number(gamma)});
}

QList<SCurrentGain> CFakeHandler::currentGains() const
{
    note("currentGains");
    return gains;
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
    if (!answer("sendCurrentGains"))
        return false;
    gains = sent;
    return true;
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

bool CFakeHandler::setCanvasSize(const QSize &size)
{
    return answer("setCanvasSize", {text(size.width()), text(size.height())});
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

bool CFakeHandler::setFrameRateAndColorDepth(int rate, int depth)
{
    return answer("setFrameRateAndColorDepth", {text(rate), text(depth)});
}

SBackgroundInfo CFakeHandler::background(const QUuid &processor) const
{
    note("background");
    return backgrounds.value(processor);
}

bool CFakeHandler::setBackground(const SBackgroundInfo &info)
{
    return answer("setBackground", {text(info.processor), info.file});
}

ProcessorBoundingRects CFakeHandler::processorBoundingRects(const QList<QUuid> &) const
{
    note("processorBoundingRects");
    return rects;
}

bool CFakeHandler::setProcessorOffset(const QUuid &processor, const QPoint &offset)
{
    return answer("setProcessorOffset", {text(processor), text(offset.x()), text(offset.y())});
}
