// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CPrintCommand.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/data/BearerLoad.h"
#include "layout/printing/dialog/CPrintDialog.h"
#include "platform/widgets/CMessageBox.h"

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;
using Node = ProcessorTree::ProcessorNode;
using Port = CabinetLayout::CabinetPort;

bool hasCabinets(const CabinetLayout &layout)
{
    return std::any_of(layout.ports.begin(), layout.ports.end(),
                       [](const Port &port) { return !port.groups.isEmpty(); });
}

SPrintedProcessor printed(const Node &node, const LayoutData &data)
{
    SPrintedProcessor processor;
    processor.node = node;
    processor.layout = data.layout;
    processor.canvas = data.canvas;
    processor.kind = node.model;
    processor.colorDepth = node.colorDepth;
    processor.portCount = CHostAccess::call<&Host::outputPortCount>(node.uuid);
    for (const Port &port : data.layout.ports)
        processor.loads.insert(port.index, BearerLoad::of(data.layout, port.index));
    if (!data.layout.ports.isEmpty()) {
        // Not of the loads: the primary of a port may be on another processor.
        const Port &any = data.layout.ports.first();
        const SPortLoad own = CHostAccess::call<&Host::portLoadDetails>(node.uuid, any, any.index);
        processor.frameRate = own.frameRate;
        processor.pixelLimit = own.pixelLimit;
        processor.bitsPerPixel = own.bitsPerPixel;
        processor.bitsPerSecond = own.bitsPerSecond;
    }
    return processor;
}

} // namespace

SPrintInput CPrintCommand::input()
{
    SPrintInput input;
    const QList<Node> nodes = CHostAccess::call<&Host::processors>();
    for (const Node &node : nodes) {
        input.others.insert(node.uuid, node);
        const LayoutData data = CHostAccess::call<&Host::layoutData>(node.uuid);
        if (hasCabinets(data.layout))
            input.processors << printed(node, data);
        else if (data.layout.ports.isEmpty() && !node.online) // online it has answered that it has no layout
            input.unread.insert(node.uuid);
    }
    const QList<QPair<QUuid, QUuid>> pairs = CHostAccess::call<&Host::processorRedundancies>();
    for (SPrintedProcessor &processor : input.processors) {
        for (const auto &pair : pairs) {
            if (pair.first == processor.node.uuid)
                processor.redundancy = pair.second;
            if (pair.second == processor.node.uuid)
                processor.primary = pair.first;
        }
    }
    input.library = CHostAccess::call<&Host::typeLibrary>();
    return input;
}

QString CPrintCommand::notRead(const SPrintInput &input)
{
    QStringList names;
    for (const QUuid &key : input.unread)
        names << input.others.value(key).displayText();
    names.sort(Qt::CaseInsensitive);
    if (names.isEmpty())
        return {};
    const QString text = names.size() == 1
                             ? tr("Not read yet: %1. Print again when this processor is online.")
                             : tr("Not read yet: %1. Print again when these processors are online.");
    return text.arg(names.join(QStringLiteral(", ")));
}

void CPrintCommand::run(QWidget *parent)
{
    const SPrintInput all = input();
    if (all.processors.isEmpty()) {
        const QString unread = notRead(all);
        CMessageBox::information(parent,
                                 unread.isEmpty() ? tr("There are no cabinets to print.")
                                                  : tr("There are no cabinets to print yet."),
                                 unread);
        return;
    }
    QList<QUuid> chosen;
    const QList<Node> selected = CHostAccess::call<&Host::selectedProcessors>();
    for (const Node &node : selected)
        chosen << node.uuid;
    QMap<QUuid, PrintConfig> kept;
    for (const SPrintedProcessor &processor : all.processors) {
        const PrintConfig settings = CHostAccess::call<&Host::printSettings>(processor.node.uuid);
        if (settings != PrintConfig())
            kept.insert(processor.node.uuid, settings);
    }
    CPrintDialog(all, chosen, kept, parent).exec();
}
