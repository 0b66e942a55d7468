// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/content/ILayoutEntry.h"

/// Puts new items directly into their port, without commands, as when a layout is loaded.
class CDirectEntry final : public ILayoutEntry
{
public:
    void enterCabinet(CGraphicsCabinetItem &) override {}
    QGraphicsItem &membersParent(CGraphicsGroupItem &group, CGraphicsPortItem &port) override;
    void enterGroup(CGraphicsGroupItem &, const QVector<CGraphicsItemBase *> &) override {}
    void wire(CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets) override;
};
