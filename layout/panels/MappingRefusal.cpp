// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/MappingRefusal.h"

#include "layout/api/records/EditRefusal.h"

#include <QCoreApplication>

QString MappingRefusal::of(const ProcessorTree::ProcessorNode &processor)
{
    const auto text = [](const char *source) {
        return QCoreApplication::translate("MappingRefusal", source);
    };
    if (processor.uuid.isNull() || processor.fiberTransceiver)
        return text("Please select a single processor that is online.");
    if (processor.address == 0)
        return text("A project has no processor to read from or save to; the File menu saves it.");
    return processor.online ? QString() : EditRefusal::offline();
}
