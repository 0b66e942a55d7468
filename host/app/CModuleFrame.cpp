// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CModuleFrame.h"

#include "host/app/CModuleTitleBar.h"
#include "layout/api/ILayoutInterface.h"

#include <QLabel>
#include <QVBoxLayout>

CModuleFrame::CModuleFrame(const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_titleBar(new CModuleTitleBar(title))
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_column->addWidget(m_titleBar);
}

void CModuleFrame::showModule(ILayoutInterface &module)
{
    auto *widget = qobject_cast<QWidget *>(module.object());
    if (!widget)
        return;
    m_column->addWidget(widget, 1);
    widget->show();
}

void CModuleFrame::showProblem(const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(QStringLiteral("ModuleProblem"));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setMargin(24);
    m_column->addWidget(label, 1);
}
