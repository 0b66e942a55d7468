// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QWidget>

class CRecoveryFocusSpinBox;
class QFormLayout;
class QLabel;
class QVBoxLayout;

/// Shows the area and the offset of what is selected in the summary; the offset can be entered. It is applied
/// by Return or when its field loses the focus, and restored by Escape. GUI thread.
class CSummaryLabel final : public QWidget
{
    Q_OBJECT

public:
    explicit CSummaryLabel(QWidget *parent = nullptr);

    /// Sets what the figures belong to, with a note about it. Empty @p title: nothing is selected; then the
    /// figures are 0.
    void setSubject(const QString &title, const QString &note);
    /// Sets whether offsets can be entered.
    void setEditable(bool editable);
    /// Sets what gets the focus once an offset was entered.
    void setFocusHeir(QWidget *heir);

Q_SIGNALS:
    void notifyItemOffsetChanged(const QPoint &offset);

public Q_SLOTS:
    void onItemGeometryChanged(const QRectF &geometry);
    void onItemOffsetChanged(const QPoint &offset);

private:
    void buildUi();
    void connectSignals();
    void showOffset();
    QFormLayout *addSection(QVBoxLayout &column, const QString &heading);
    CRecoveryFocusSpinBox *addField(QFormLayout &form, const QString &heading, const QString &name);

    QPoint m_offset; // of what is selected
    QLabel *m_title = nullptr;
    QLabel *m_note = nullptr;
    CRecoveryFocusSpinBox *m_width = nullptr;
    CRecoveryFocusSpinBox *m_height = nullptr;
    CRecoveryFocusSpinBox *m_x = nullptr;
    CRecoveryFocusSpinBox *m_y = nullptr;
};
