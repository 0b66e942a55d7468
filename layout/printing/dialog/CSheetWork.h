// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintInput.h"
#include "layout/printing/figures/SPrintJob.h"
#include "layout/printing/output/SheetFiles.h"
#include "platform/common/CResult.h"
#include "platform/common/CWorkThread.h"

#include <QObject>
#include <QUuid>

#include <atomic>

/// Lays out sheets and writes them on a thread of its own. GUI thread.
class CSheetWork final : public QObject
{
    Q_OBJECT

public:
    /// Writes something; returns what was written, or why that failed.
    using Output = std::function<CResult<QStringList>(const SheetFiles::Progress &progress)>;

    explicit CSheetWork(QObject *parent = nullptr);
    /// Waits for what is running, which stops after the sheet that it is at.
    ~CSheetWork() override;

    /// Lays out the sheets of a job; what was asked for before is not told any more.
    void layOut(const SPrintInput &input, const SPrintJob &job);
    /// What was asked for is not told any more.
    void forget();
    /// Runs @p output.
    void run(const Output &output);
    void cancel() { m_cancelled = true; }

Q_SIGNALS:
    /// With @p problem there are no sheets; @p warning names cables that are too long. @p unfit: the
    /// processors whose drawings fail to fit, see CSheetSet.
    void notifyLaidOut(const QVector<SSheet> &sheets, const QString &problem, const QString &warning,
                       const QVector<QUuid> &unfit);
    void notifyProgress(int done);
    /// No names and no problem: cancelled.
    void notifyWritten(const QStringList &names, const QString &problem);

private:
    /// Calls @p tell on the GUI thread.
    template <typename Tell>
    void post(const Tell &tell)
    {
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    }

    std::atomic<int> m_latest{0}; // what was asked for last; older layouts stop
    std::atomic<bool> m_cancelled{false};
    CWorkThread m_thread; // ends before what its work uses
};
