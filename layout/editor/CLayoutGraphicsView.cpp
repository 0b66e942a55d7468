// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CLayoutGraphicsView.h"

#include "layout/editor/CCabinetGraphicsScene.h"

CLayoutGraphicsView::CLayoutGraphicsView(const IPortStates &ports, QWidget *parent)
    : CGraphicsView(parent)
    , m_scene(new CCabinetGraphicsScene(ports, this))
{
    setScene(m_scene);
    setDragMode(ScrollHandDrag);
    setInteractive(false); // a press takes hold of the canvas, not of a cabinet
    setAccessibleName(tr("Layout canvas"));
}

CLayoutGraphicsView::~CLayoutGraphicsView()
{
    delete m_scene; // while the view can still be told of what goes
}

void CLayoutGraphicsView::showLayout(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout)
{
    m_scene->setLayoutData(processor, layout);
    if (processor.uuid == m_processor)
        return;
    m_processor = processor.uuid;
    fitContent();
}

void CLayoutGraphicsView::clearLayout()
{
    m_processor = QUuid();
    m_scene->clearLayout();
}
