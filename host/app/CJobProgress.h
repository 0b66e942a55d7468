// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QWidget>

class CDeviceJob;
class CElidedLabel;
class QProgressBar;
class QPushButton;

/// Shows the running device job in the status bar: what it does, its progress, and a button to cancel it.
/// Hidden while no job runs. GUI thread.
class CJobProgress final : public QWidget
{
    Q_OBJECT

public:
    explicit CJobProgress(QWidget *parent = nullptr);

    /// Shows @p job until it ends.
    void follow(CDeviceJob &job);

private:
    void buildUi();
    void cancel();
    void onProgress(int percent, const QString &text);

    CElidedLabel *m_text = nullptr;
    QProgressBar *m_bar = nullptr;
    QPushButton *m_cancel = nullptr;
    QPointer<CDeviceJob> m_job;
};
