// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

#include <QWidget>

class CElidedLabel;
class CPureImageBtn;
class QAbstractButton;

/// The row above the editor: whose wiring is shown, how it compares with the processor's, and the button of
/// the simulated screen. GUI thread.
class CWiringLayoutWidget final : public QWidget
{
    Q_OBJECT

public:
    explicit CWiringLayoutWidget(QWidget *parent = nullptr);

    QAbstractButton &showScreenButton() const;

    /// Shows whether the mapping just read equals the layout shown before, until the result is dropped.
    void setReadResult(bool same);
    void dropReadResult();
    /// Tells why the canvas has no fill, unless a result is shown; empty: nothing to tell. A new problem
    /// replaces the result.
    void setFillProblem(const QString &problem);

public Q_SLOTS:
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processorInfo);

private:
    void showNote();

    CElidedLabel *m_title = nullptr;
    CElidedLabel *m_note = nullptr;
    CPureImageBtn *m_showScreen = nullptr;
    QString m_readResult;
    QString m_fillProblem;
};
