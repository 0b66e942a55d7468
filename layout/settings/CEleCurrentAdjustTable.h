// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"

#include <QTableWidget>

/// Lists current-gain parameter sets, one in each row, ordered by frame rate and gain level, each with a
/// switch. GUI thread.
class CEleCurrentAdjustTable final : public QTableWidget
{
    Q_OBJECT

public:
    explicit CEleCurrentAdjustTable(QWidget *parent = nullptr);

    /// Shows @p gains and forgets what was switched before.
    void setGains(const QList<SCurrentGain> &gains);
    /// Shows @p gains, but leaves the switches that the user has changed as they are.
    void updateGains(QList<SCurrentGain> gains);

    /// What is shown, with the switches as the user left them.
    const QList<SCurrentGain> &gains() const { return m_shown; }
    /// Returns whether a switch differs from what was last set or updated.
    bool isSwitched() const { return m_shown != m_given; }
    bool hasImported() const; ///< whether parameters of any row are imported

Q_SIGNALS:
    void notifySwitched(); ///< the user has changed a switch

private:
    void buildUi();
    void fill(QList<SCurrentGain> given, QList<SCurrentGain> shown);
    void fillRow(int row);
    void setText(int row, int column, const QString &text);
    QWidget *statusLabel(bool imported) const;
    QWidget *switchBox(int row);

    QList<SCurrentGain> m_given;
    QList<SCurrentGain> m_shown; // the same but for the switches
};
