// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CDialog.h"

class QPlainTextEdit;

/// Shows a long text that the program has written, such as its log, to be read and copied.
class CReportDialog final : public CDialog
{
    Q_OBJECT

public:
    /// @p intro says what the text is, and where it comes from.
    CReportDialog(const QString &title, const QString &intro, const QString &text, QWidget *parent);

    void scrollToEnd();

private:
    QPlainTextEdit *m_text = nullptr;
};
