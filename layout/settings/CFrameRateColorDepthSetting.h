// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CDialog.h"

class QComboBox;
class QGridLayout;

/// Asks for the frame rate and the color depth of a processor. GUI thread.
class CFrameRateColorDepthSetting final : public CDialog
{
    Q_OBJECT

public:
    /// @p hertz and @p bits are preselected; a value that is not offered leaves the choice open.
    CFrameRateColorDepthSetting(int hertz, int bits, QWidget *parent = nullptr);

    int frameRate() const;  ///< hertz
    int colorDepth() const; ///< bits

private:
    void buildUi();
    void addRow(QGridLayout &grid, const QString &text, QComboBox *box);
    void connectSignals();
    void updateEnabled();

    QComboBox *m_frameRate;
    QComboBox *m_colorDepth;
};
