// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/CBareSide.h"

#include "benchmarks/ShownView.h"

#include <QCoreApplication>

CBareSide::CBareSide(CBareScene::Ports ports, CBareScene::Outlines outlines)
    : m_scene(ports, outlines)
    , m_view(&m_scene)
{
    ShownView::show(m_view);
}

CBareSide::~CBareSide()
{
    QCoreApplication::processEvents(); // a scene that goes before it was painted takes a minute
}

void CBareSide::load(const CabinetLayout &layout)
{
    m_scene.build(layout);
    m_scene.items(QPointF());
}
