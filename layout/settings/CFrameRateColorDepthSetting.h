// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"
#include "platform/widgets/CDialog.h"

class QComboBox;
class QGridLayout;

/// Asks for the frame rate and the color depth of a processor. GUI thread.
class CFrameRateColorDepthSetting final : public CDialog
{
    Q_OBJECT

public:
    /// @p hertz and @p bits are preselected; for a value that is not listed, nothing is. Values that are not
    /// among @p possible are listed but disabled.
    CFrameRateColorDepthSetting(const SSignalModes &possible, int hertz, int bits, QWidget *parent = nullptr);

    int frameRate() const;  ///< hertz
    int colorDepth() const; ///< bits

private:
    void buildUi(const SSignalModes &possible);
    void addEntry(QComboBox &box, const QString &text, int value, bool possible) const;
    void addRow(QGridLayout &grid, const QString &text, QComboBox *box);
    void connectSignals();
    void updateEnabled();

    QComboBox *m_frameRate;
    QComboBox *m_colorDepth;
};
