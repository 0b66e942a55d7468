// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CToolHint.h"

#include "layout/editor/view/CLayoutGraphicsView.h"

namespace {
constexpr int MessageIndent = 3; // pixels, as of messages
}

CToolHint::CToolHint(CLayoutGraphicsView &view)
{
    setObjectName(QStringLiteral("ToolHint"));
    setTextFormat(Qt::PlainText);
    setIndent(MessageIndent);
    connect(&view, &CLayoutGraphicsView::notifyHintChanged, this, [this, &view] { setText(view.hint()); });
    setText(view.hint());
}

void CToolHint::paintEvent(QPaintEvent *event)
{
    if (QLabel::sizeHint().width() <= width())
        QLabel::paintEvent(event);
}
