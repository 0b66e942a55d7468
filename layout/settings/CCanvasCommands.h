// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SBackgroundInfo.h"
#include "layout/settings/CProcessorInView.h"

#include <QObject>

class QWidget;

/// The commands that change canvas settings of the current processor: each opens its dialog, lets the host
/// apply what was chosen, and shows the outcome. They do nothing if there is no current processor. GUI
/// thread.
class CCanvasCommands final : public QObject
{
    Q_OBJECT

public:
    /// @p window is the parent of the dialogs; it must outlive the commands.
    explicit CCanvasCommands(QWidget &window, QObject *parent = nullptr);

    void setFrameRateAndColorDepth();
    void setCanvasSize();
    /// The canvas follows the open dialog, see notifyFillPreviewed(). The previous fill is restored unless
    /// the user accepts and the host succeeds.
    void setCanvasFill();
    void adjustCurrentGain();

Q_SIGNALS:
    /// The canvas shall show this fill while the dialog is open.
    void notifyFillPreviewed(const SBackgroundInfo &info);

private:
    bool set(const QUuid &processor, const CProcessorInView::Operation &operation);

    QWidget &m_window;
};
