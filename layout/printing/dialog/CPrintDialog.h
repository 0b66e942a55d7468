// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/dialog/CSheetWork.h"
#include "layout/printing/figures/SPrintInput.h"
#include "layout/printing/figures/SPrintJob.h"
#include "platform/widgets/CDialog.h"

#include <QTimer>

class CElidedLabel;
class CPrintChoice;
class CPrintSettings;
class CSheetPreview;
class QProgressBar;
class QPushButton;

/// Chooses what is printed of which processors, shows the sheets, and prints or saves them. Shows the layouts
/// as they were when it was opened. GUI thread.
class CPrintDialog final : public CDialog
{
    Q_OBJECT

public:
    /// @p chosen are the processors that are printed at first. @p kept are the settings that their projects
    /// keep; those of the first one that is chosen hold for the whole job. What the user changes is kept in
    /// the projects again, and remembered for processors without one.
    CPrintDialog(const SPrintInput &input, const QList<QUuid> &chosen, const QMap<QUuid, PrintConfig> &kept,
                 QWidget *parent);
    ~CPrintDialog() override;

    void done(int result) override;

private Q_SLOTS:
    void onLaidOut(const QVector<SSheet> &sheets, const QString &problem, const QString &warning = {},
                   const QVector<QUuid> &unfit = {});
    void onWritten(const QStringList &names, const QString &problem);
    void onScopeChanged();
    void onOwnToggled(bool own);
    void onSettingsChanged();
    void onPrintClicked();
    void onSaveClicked();
    void onUsualPaperWished();

private:
    void buildUi(const QList<QUuid> &chosen);
    QWidget *buildProgress();
    void connectSignals();
    void layOut();
    void keepSettings();
    /// The processor whose address can be set; null: none.
    QUuid addressed() const;
    /// With @p singly, what was written before the user cancels remains.
    void begin(const QString &title, const CSheetWork::Output &output, bool singly = false);
    void updateEnabled();
    SPrintJob job() const; ///< with dates

    const SPrintInput m_input;
    SPrintJob m_job;
    const SPrintJob m_opened; ///< as it was at first
    QVector<SSheet> m_sheets;
    bool m_stale = true;    ///< the sheets are not those of the settings
    QVector<QUuid> m_unfit; ///< the processors that did not fit on the sheets laid out last
    bool m_writing = false;
    QString m_ifCancelled; ///< what is told then
    QTimer m_delay;
    CPrintChoice *m_choice = nullptr;
    CPrintSettings *m_settings = nullptr;
    CSheetPreview *m_preview = nullptr;
    QWidget *m_progressRow = nullptr;
    QProgressBar *m_progress = nullptr;
    QPushButton *m_cancel = nullptr;
    CElidedLabel *m_told = nullptr;
    QPushButton *m_print = nullptr;
    QPushButton *m_save = nullptr;
    CSheetWork m_work;
};
