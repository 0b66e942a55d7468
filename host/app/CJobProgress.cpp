// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CJobProgress.h"

#include "host/devices/jobs/CDeviceJob.h"
#include "platform/widgets/CElidedLabel.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace {
constexpr int LineHeight = 18; // pixels: the status bar has 24 with its frame
}

CJobProgress::CJobProgress(QWidget *parent)
    : QWidget(parent)
{
    buildUi();
    connect(m_cancel, &QPushButton::clicked, this, &CJobProgress::cancel);
}

void CJobProgress::buildUi()
{
    setObjectName(QStringLiteral("JobProgress"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    m_text = new CElidedLabel;
    row->addWidget(m_text);
    m_bar = new QProgressBar;
    m_bar->setRange(0, 100);
    m_bar->setFixedWidth(180);
    row->addWidget(m_bar);
    m_cancel = new QPushButton(tr("Cancel"));
    m_cancel->setObjectName(QStringLiteral("CancelJob"));
    for (QWidget *part :
         {static_cast<QWidget *>(m_text), static_cast<QWidget *>(m_bar), static_cast<QWidget *>(m_cancel)})
        part->setFixedHeight(LineHeight);
    row->addWidget(m_cancel);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setVisible(false);
}

void CJobProgress::follow(CDeviceJob &job)
{
    m_job = &job;
    m_cancel->setEnabled(true);
    m_cancel->setToolTip(tr("Cancel \"%1\"").arg(job.title()));
    onProgress(job.progress(), job.progressText());
    connect(&job, &CDeviceJob::notifyProgress, this, &CJobProgress::onProgress);
    connect(&job, &CDeviceJob::notifyFinished, this, [this] { setVisible(false); });
    setVisible(true);
}

void CJobProgress::cancel()
{
    if (!m_job)
        return;
    m_cancel->setEnabled(false);
    m_job->cancel();
}

void CJobProgress::onProgress(int percent, const QString &text)
{
    m_bar->setValue(percent);
    m_text->setFullText(text.isEmpty() && m_job ? m_job->title() : text);
}
