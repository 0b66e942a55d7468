// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>

/// A line of plain text that never widens its window: text that does not fit is cut off at the end, and the
/// tool tip shows it in full. GUI thread.
class CElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit CElidedLabel(QWidget *parent = nullptr);

    /// Line breaks are removed; only the beginning of a very long text is kept.
    void setFullText(const QString &text);
    QString fullText() const { return m_fullText; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fit();

    QString m_fullText;
};
