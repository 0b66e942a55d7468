// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

#include <memory>

class ILayoutInterfaceHandler;
class QUuid;
class QWidget;

/// The commands that set what belongs to the canvas of the current processor: each runs its dialog, has the
/// host carry out what was chosen, and tells when that failed. Without a processor they do nothing. GUI
/// thread.
class CCanvasCommands final : public QObject
{
    Q_OBJECT

public:
    /// @p window is what the dialogs belong to; it must outlive the commands.
    explicit CCanvasCommands(QWidget &window, QObject *parent = nullptr);

    void setFrameRateAndColorDepth();
    void setCanvasSize();

private:
    void report(const ILayoutInterfaceHandler &handler, bool done);
    std::shared_ptr<ILayoutInterfaceHandler> handlerOf(const QUuid &processor);

    QWidget &m_window;
};
