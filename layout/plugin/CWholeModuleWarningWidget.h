// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QSvgWidget;

/// What prevents the module from showing a layout.
enum class WarningState : int {
    Refresh = 1, ///< not a state: shows the current state again
    NoProcessorOnline = 2,
    NoneSelected = 3,
    SeveralSelected = 4,
    Offline = 5,
    FiberTransceiver = 6,
    FiberTransceiverInGroup = 7,
    Nothing = 8 ///< an empty page
};

/// The page that covers the module when there is nothing to edit. All instances share one state; each adopts
/// it when it is created, changed or refreshed. GUI thread.
class CWholeModuleWarningWidget final : public QWidget
{
    Q_OBJECT

public:
    explicit CWholeModuleWarningWidget(QWidget *parent = nullptr);

    /// Sets the shared state and shows it here; does nothing if it is set already.
    void setState(WarningState state);
    /// Tells of edits that were not saved to @p processor; an empty name: there are none. Shown while the
    /// current processor is offline.
    void setUnsaved(const QString &processor);
    /// Shows or hides the hints to press "Detect devices"; shown by default.
    void setDetectHintEnabled(bool enabled);

Q_SIGNALS:
    void NotifyByPassClicked();
    void NotifyVideoProcessorClicked();
    void NotifySetPrcBypassModeEnable(); ///< sent directly after NotifyByPassClicked()

private:
    void buildUi();
    void connectSignals();
    void applyState();
    void fill(WarningState state);

    bool m_detectHint = true;
    QString m_picturePath; // the file that m_picture shows
    QSvgWidget *m_picture = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_hint = nullptr;
    QLabel *m_unsaved = nullptr;
    QPushButton *m_videoMode = nullptr;
    QPushButton *m_bypassMode = nullptr;
};
