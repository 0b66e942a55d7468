// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/PrintConfig.h"

#include <tuple>

PrintConfig PrintConfig::kept() const
{
    PrintConfig config = *this;
    config.processor = QUuid();
    config.date = QDate();
    config.own = false;
    PrintConfig settings = config;
    settings.address.clear(); // is kept alone, too
    config.own = settings == PrintConfig();
    return config;
}

bool operator==(const PrintConfig &a, const PrintConfig &b)
{
    const auto texts = [](const PrintConfig &c) {
        return std::tie(c.processor, c.own, c.address, c.project, c.venue, c.designer, c.auditor, c.date,
                        c.notes, c.watermark, c.farEnd);
    };
    const auto paper = [](const PrintConfig &c) {
        return std::tie(c.paper, c.customPaper, c.landscape, c.binding, c.bindingMargin, c.margin, c.views,
                        c.scale, c.grey, c.sheets);
    };
    const auto site = [](const PrintConfig &c) { return std::tie(c.pixelPitch, c.rack, c.cables, c.supply); };
    return texts(a) == texts(b) && paper(a) == paper(b) && site(a) == site(b);
}
