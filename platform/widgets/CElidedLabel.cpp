// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CElidedLabel.h"

#include <QEvent>
#include <QResizeEvent>

#include <algorithm>

namespace {

constexpr int LongestText = 1000;  // characters: longer ones take long to measure
constexpr int WidestHint = 480;    // pixels; more where the layout has room to give
constexpr int NarrowestWidth = 40; // pixels

} // namespace

CElidedLabel::CElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void CElidedLabel::setFullText(const QString &text)
{
    const QString kept = text.left(LongestText).simplified();
    if (kept == m_fullText)
        return;
    m_fullText = kept;
    updateGeometry();
    fit();
}

QSize CElidedLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    const int width = fontMetrics().horizontalAdvance(m_fullText) + 1 + margins.left() + margins.right();
    return {std::min(width, WidestHint), QLabel::sizeHint().height()};
}

QSize CElidedLabel::minimumSizeHint() const
{
    return {std::min(sizeHint().width(), NarrowestWidth), QLabel::minimumSizeHint().height()};
}

void CElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    fit();
}

void CElidedLabel::showEvent(QShowEvent *event)
{
    fit();
    QLabel::showEvent(event);
}

void CElidedLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fit();
}

void CElidedLabel::fit()
{
    QString shown = m_fullText;
    if (isVisible()) // nobody has laid it out before
        shown = fontMetrics().elidedText(m_fullText, Qt::ElideRight, contentsRect().width());
    if (shown != text())
        setText(shown);
    // Without the tags a tip is as wide as its text, and a name that looks like markup is taken as such.
    setToolTip(shown == m_fullText ? QString()
                                   : QStringLiteral("<qt>%1</qt>").arg(m_fullText.toHtmlEscaped()));
}
