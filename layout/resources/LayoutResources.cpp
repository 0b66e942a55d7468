// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"

#include <QResource>

void initLayoutResources()
{
    Q_INIT_RESOURCE(LayoutResources);
}
