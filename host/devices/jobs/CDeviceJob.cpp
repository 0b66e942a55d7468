// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CDeviceJob.h"

CDeviceJob::CDeviceJob(Kind kind, QString title, QList<QUuid> processors, QObject *parent)
    : QObject(parent)
    , m_kind(kind)
    , m_title(std::move(title))
    , m_processors(std::move(processors))
{
}

void CDeviceJob::cancel()
{
    m_token->cancel();
}

void CDeviceJob::setProgress(int percent, const QString &text)
{
    if (percent == m_progress && text == m_text)
        return;
    m_progress = percent;
    m_text = text;
    Q_EMIT notifyProgress(percent, text);
}

void CDeviceJob::finish(const SDeviceOutcome &outcome)
{
    Q_EMIT notifyFinished(outcome);
}
