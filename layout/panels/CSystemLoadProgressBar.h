// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProgressBar>

/// Shows the load of the current processor: green up to 100 percent, a full red bar above.
class CSystemLoadProgressBar final : public QProgressBar
{
    Q_OBJECT

public:
    explicit CSystemLoadProgressBar(QWidget *parent = nullptr);

    int rawLoad() const { return m_rawLoad; } ///< percent; above 100: overloaded
    /// Empty with a dash if not.
    void setKnown(bool known);

public Q_SLOTS:
    /// @p load is in percent of the processor's capacity.
    void onNotifyProcessorPayloadChanged(int load);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_rawLoad = 0;
    bool m_known = true;
};
