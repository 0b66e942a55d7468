// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/CCancelToken.h"
#include "layout/api/records/SHostRecords.h"

#include <QList>
#include <QObject>
#include <QUuid>

#include <memory>

/// Device work that runs in the background, as the user sees it: progress, cancel, one outcome. Lives on the
/// GUI thread until its outcome has been reported; owned by the CJobRunner.
class CDeviceJob final : public QObject
{
    Q_OBJECT

public:
    enum Kind { Detect, ReadMapping, SaveMapping };

    CDeviceJob(Kind kind, QString title, QList<QUuid> processors, QObject *parent = nullptr);

    Kind kind() const { return m_kind; }
    QString title() const { return m_title; }                ///< what is done, e.g. "Save mapping"
    QList<QUuid> processors() const { return m_processors; } ///< the processors that it works on
    int progress() const { return m_progress; }              ///< percent
    QString progressText() const { return m_text; }          ///< the current step
    /// Asks the work to end. Its outcome follows; Cancelled unless the work was done before. Any thread.
    void cancel();
    std::shared_ptr<CCancelToken> token() const { return m_token; }

    void setProgress(int percent, const QString &text);
    void finish(const SDeviceOutcome &outcome);

Q_SIGNALS:
    void notifyProgress(int percent, const QString &text);
    void notifyFinished(const SDeviceOutcome &outcome);

private:
    const Kind m_kind;
    const QString m_title;
    const QList<QUuid> m_processors;
    const std::shared_ptr<CCancelToken> m_token = std::make_shared<CCancelToken>();
    int m_progress = 0;
    QString m_text;
};
