// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStatusTipEvent>
#include <QStringList>
#include <QWidget>

/// Notes what the status bar of a window is told.
class CNotedWords final : public QObject
{
public:
    explicit CNotedWords(QWidget &window) { window.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::StatusTip)
            words << static_cast<QStatusTipEvent *>(event)->tip();
        return QObject::eventFilter(watched, event);
    }
    QStringList words;
};
