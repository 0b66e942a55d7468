// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/recording/ItemFactories.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"

namespace {

CUndoCommandBase::Factory firstGiving(CGraphicsItemBase *existing, const CUndoCommandBase::Factory &later)
{
    return [existing, later]() mutable {
        CGraphicsItemBase *item = existing ? existing : later();
        existing = nullptr;
        return item;
    };
}

} // namespace

CUndoCommandBase::Factory ItemFactories::anew(const CGraphicsCabinetItem &cabinet)
{
    return [record = cabinet.cabinet(), name = cabinet.name(),
            ordinal = cabinet.ordinal()]() -> CGraphicsItemBase * {
        auto *item = new CGraphicsCabinetItem(record, nullptr);
        item->setName(name);
        item->setOrdinal(ordinal);
        return item;
    };
}

CUndoCommandBase::Factory ItemFactories::anew(const CGraphicsGroupItem &group)
{
    return [uuid = group.uuid(), name = group.name(), ordinal = group.ordinal()]() -> CGraphicsItemBase * {
        auto *item = new CGraphicsGroupItem(uuid, QRectF(), nullptr);
        item->setName(name);
        item->setOrdinal(ordinal);
        return item;
    };
}

CUndoCommandBase::Factory ItemFactories::existingFirst(CGraphicsCabinetItem &cabinet)
{
    return firstGiving(&cabinet, anew(cabinet));
}

CUndoCommandBase::Factory ItemFactories::existingFirst(CGraphicsGroupItem &group)
{
    return firstGiving(&group, anew(group));
}
