// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SBackgroundInfo.h"
#include "layout/settings/CProcessorInView.h"

#include <QObject>

class QWidget;

/// The commands that set what belongs to the canvas of the current processor: each runs its dialog, has the
/// host carry out what was chosen, and tells how that ended. Without a processor they do nothing. GUI
/// thread.
class CCanvasCommands final : public QObject
{
    Q_OBJECT

public:
    /// @p window is what the dialogs belong to; it must outlive the commands.
    explicit CCanvasCommands(QWidget &window, QObject *parent = nullptr);

    void setFrameRateAndColorDepth();
    void setCanvasSize();
    /// The canvas follows the dialog while it is open, see previewed(); what was before comes back unless the
    /// user says OK and the host agrees.
    void setCanvasFill();
    void adjustCurrentGain();

Q_SIGNALS:
    /// The canvas is to show this fill for now.
    void previewed(const SBackgroundInfo &info);

private:
    bool set(const QUuid &processor, const CProcessorInView::Operation &operation);

    QWidget &m_window;
};
