// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>

class CLayoutGraphicsView;

/// Tells in the status bar, while there is no message, what the mouse does with the tool in use. Takes only
/// what the other figures leave free, and is empty where that is too little. GUI thread.
class CToolHint final : public QLabel
{
    Q_OBJECT

public:
    /// @p view must outlive it.
    explicit CToolHint(CLayoutGraphicsView &view);

    /// Sets whether it shows hints, at first none.
    void setTelling(bool telling);

    QSize sizeHint() const override { return {0, QLabel::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showHint();

    const CLayoutGraphicsView &m_view;
    bool m_telling = false;
};
