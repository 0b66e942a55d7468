// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/BearerLoad.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/PortPairs.h"
#include "layout/data/PortLoads.h"

std::optional<SPortLoad> BearerLoad::elsewhere(const QUuid &processor, const CabinetLayout::CabinetPort &port)
{
    using Host = ILayoutInterfaceHandler;
    const QUuid other = PortPairs::partnerKey({processor, {}}, port).processor;
    if (port.redundancy != CabinetLayout::CabinetPort::Redundant || other == processor)
        return std::nullopt;
    const auto layoutOf = [](const QUuid &of) {
        return CHostAccess::callUnflushed<&Host::layoutData>(of).layout;
    };
    const auto primary = PortPairs::partner({processor, {}}, port, layoutOf);
    if (!primary)
        return std::nullopt;
    return CHostAccess::callUnflushed<&Host::portLoadDetails>(other, *primary, primary->index);
}

SPortLoad BearerLoad::of(const CabinetLayout &layout, int port)
{
    const CabinetLayout::CabinetPort *bearer = PortLoads::loadBearer(layout, port);
    if (!bearer)
        return {};
    const auto other = elsewhere(layout.processor, *bearer);
    return other ? *other
                 : CHostAccess::call<&ILayoutInterfaceHandler::portLoadDetails>(layout.processor, *bearer,
                                                                                bearer->index);
}
