// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/CEditorSide.h"

#include "benchmarks/ShownView.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QCoreApplication>

CEditorSide::CEditorSide()
{
    ShownView::show(m_view);
}

CEditorSide::~CEditorSide()
{
    QCoreApplication::processEvents(); // a scene that goes before it was painted takes a minute
}

void CEditorSide::load(const LayoutData &data)
{
    scene().setLayoutData(Wall::processor(data), data);
    scene().items(QPointF());
}
