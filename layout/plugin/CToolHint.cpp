// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CToolHint.h"

#include "layout/editor/view/CLayoutGraphicsView.h"

namespace {
constexpr int MessageIndent = 5; // pixels; with the status bar's own margin as far as messages
}

CToolHint::CToolHint(CLayoutGraphicsView &view)
    : m_view(view)
{
    setObjectName(QStringLiteral("ToolHint"));
    setTextFormat(Qt::PlainText);
    setIndent(MessageIndent);
    connect(&view, &CLayoutGraphicsView::notifyHintChanged, this, &CToolHint::showHint);
    showHint();
}

void CToolHint::setTelling(bool telling)
{
    m_telling = telling;
    showHint();
}

void CToolHint::showHint()
{
    setText(m_telling ? m_view.hint() : QString());
}

void CToolHint::paintEvent(QPaintEvent *event)
{
    if (QLabel::sizeHint().width() <= width())
        QLabel::paintEvent(event);
}
