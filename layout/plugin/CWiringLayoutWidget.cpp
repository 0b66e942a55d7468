// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CWiringLayoutWidget.h"

#include "platform/widgets/CElidedLabel.h"
#include "platform/widgets/CPureImageBtn.h"

#include <QHBoxLayout>
#include <QVariant>

namespace {
constexpr int TitleRowLocation = 3; // of a tool widget
constexpr QSize PictureSize(18, 18);
} // namespace

CWiringLayoutWidget::CWiringLayoutWidget(QWidget *parent)
    : QWidget(parent)
    , m_title(new CElidedLabel)
    , m_note(new CElidedLabel)
    , m_showScreen(new CPureImageBtn(QStringLiteral(":/Image/ViewTitle/show-screen")))
{
    m_note->setEnabled(false); // in the dimmed colour of the theme
    m_showScreen->setCheckable(true);
    m_showScreen->setFixedSize(PictureSize);
    m_showScreen->setIconSize(PictureSize);
    m_showScreen->setToolTip(tr("Show screen"));
    m_showScreen->setAccessibleName(tr("Show screen"));
    m_showScreen->setProperty("ToolLocation", TitleRowLocation);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 4, 12, 4);
    row->setSpacing(16);
    row->addWidget(m_title);
    row->addWidget(m_note, 1);
    row->addWidget(m_showScreen);
}

QAbstractButton &CWiringLayoutWidget::showScreenButton() const
{
    return *m_showScreen;
}

void CWiringLayoutWidget::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processorInfo)
{
    m_title->setFullText(processorInfo.uuid.isNull() ? QString() : processorInfo.displayText());
}

void CWiringLayoutWidget::setReadResult(bool same)
{
    m_readResult = same ? tr("The processor's mapping equals the layout.")
                        : tr("The processor's mapping differed from the layout.");
    showNote();
}

void CWiringLayoutWidget::dropReadResult()
{
    m_readResult.clear();
    showNote();
}

void CWiringLayoutWidget::setFillProblem(const QString &problem)
{
    if (!problem.isEmpty())
        m_readResult.clear(); // is older
    m_fillProblem = problem;
    showNote();
}

void CWiringLayoutWidget::showNote()
{
    m_note->setFullText(m_readResult.isEmpty() ? m_fillProblem : m_readResult);
}
