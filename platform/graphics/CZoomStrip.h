// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

/// The strip in the corner of a graphics view: the scale in percent and the buttons that change it.
class CZoomStrip final : public QFrame
{
    Q_OBJECT

public:
    explicit CZoomStrip(QWidget *parent);

    void showScale(qreal factor);

Q_SIGNALS:
    void notifyZoomOutClicked();
    void notifyZoomInClicked();
    void notifyFitClicked();
    void notifyActualSizeClicked();

private:
    QToolButton *addButton(const QString &iconName, const QString &toolTip, void (CZoomStrip::*clicked)());

    QLabel *m_scale;
};
