// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"

#include <QTableWidget>

/// Lists current-gain parameter sets, one per row, ordered by frame rate and gain level, each with a switch.
/// GUI thread.
class CEleCurrentAdjustTable final : public QTableWidget
{
    Q_OBJECT

public:
    explicit CEleCurrentAdjustTable(QWidget *parent = nullptr);

    /// Shows @p gains and discards unsaved switches.
    void setGains(const QList<SCurrentGain> &gains);
    /// Shows @p gains, but keeps the switches that the user has changed.
    void updateGains(QList<SCurrentGain> gains);

    /// The sets shown, with the switches as set by the user.
    const QList<SCurrentGain> &gains() const { return m_shown; }
    /// Returns whether a switch differs from what was last set or updated.
    bool isSwitched() const { return m_shown != m_given; }
    bool hasImported() const; ///< whether any row has imported parameters

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
    QList<SCurrentGain> m_shown; // the same except for the switches
};
