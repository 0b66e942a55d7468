// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CParameterCheck.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/access/ITypeLookup.h"

namespace {
using Host = ILayoutInterfaceHandler;
}

CParameterCheck::CParameterCheck(const ITypeLookup &types)
    : m_types(types)
{
}

CResult<QList<CParameterCheck::Cabinet>> CParameterCheck::run() const
{
    using Result = CResult<QList<Cabinet>>;
    if (CHostAccess::call<&Host::getDetectedProcessorCount>() == 0)
        return Result::failure(tr("No processor is detected."));
    const QList<Cabinet> cabinets = detectedCabinets();
    if (cabinets.isEmpty())
        return Result::failure(tr("There is no cabinet detected."));
    for (const Cabinet &cabinet : cabinets) {
        const QString fault = faultOf(cabinet);
        if (!fault.isEmpty())
            return Result::failure(fault);
    }
    return cabinets;
}

QList<CParameterCheck::Cabinet> CParameterCheck::detectedCabinets()
{
    QList<Cabinet> cabinets;
    const QList<ProcessorTree::ProcessorNode> processors = CHostAccess::call<&Host::processors>();
    for (const ProcessorTree::ProcessorNode &processor : processors) {
        if (processor.index < 0)
            continue;
        const QVector<CabinetLayout::CabinetPort> ports =
            CHostAccess::call<&Host::layoutData>(processor.uuid).layout.ports;
        for (const CabinetLayout::CabinetPort &port : ports) {
            for (const Cabinet &cabinet : port.getAllCabinets())
                cabinets << cabinet;
        }
    }
    return cabinets;
}

QString CParameterCheck::processorOf(const Cabinet &cabinet)
{
    return CHostAccess::call<&Host::processorOfCabinet>(cabinet.uuid).displayText();
}

QString CParameterCheck::faultOf(const Cabinet &cabinet) const
{
    if (cabinet.type.isNull())
        return tr("Unable to save processor %1's cabinet, please use cabinet type from type library or "
                  "associate custom cabinet with a type.")
            .arg(processorOf(cabinet));
    if (cabinet.mappingIndex == -1)
        return tr("Please setup processor %1's mapping first.").arg(processorOf(cabinet));
    const auto info = m_types.getTypeInfo(cabinet.type);
    if (info.isValid())
        return {};
    // A type that is not in the library has no name; then its key identifies it.
    const QString name = info.name.isEmpty() ? QString::fromLatin1(cabinet.type.toText()) : info.name;
    return tr("Type file %1 is damaged.").arg(name);
}
