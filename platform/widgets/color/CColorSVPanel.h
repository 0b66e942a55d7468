// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/color/CHsvColor.h"

#include <QWidget>

/// A square with all colours of one hue; saturation grows to the right, value upwards. The user picks a
/// colour with the mouse or the arrow keys (in larger steps with Shift).
class CColorSVPanel final : public QWidget
{
    Q_OBJECT

public:
    explicit CColorSVPanel(QWidget *parent = nullptr);

    /// Shows @p color without announcing it.
    void setColor(const CHsvColor &color);
    /// The position of the shown colour in the panel.
    QPoint marker() const;

Q_SIGNALS:
    /// The user picked another colour; both are 0 to 255.
    void notifySaturationValueChanged(int saturation, int value);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void pickAt(const QPoint &position);
    void pick(int saturation, int value);

    CHsvColor m_color;
};
