// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGradient>
#include <QSlider>

/// A horizontal slider over a strip of colours; a click picks a colour.
class CColorSlider final : public QSlider
{
    Q_OBJECT

public:
    explicit CColorSlider(QWidget *parent = nullptr);

    /// The colours from the smallest (0) to the largest value (1).
    void setStops(const QGradientStops &stops);
    /// The colours of all hues.
    static QGradientStops rainbow();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QRect handle() const;

    QGradientStops m_stops;
};
