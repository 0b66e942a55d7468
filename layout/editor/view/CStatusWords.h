// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

class QString;
class QWidget;

/// Brings short words about the last action into the status bar of the window around a widget, and takes them
/// back with the next press of a button or a key. GUI thread.
class CStatusWords final : public QObject
{
public:
    /// Watches @p keys, which becomes the parent, and @p mouse.
    CStatusWords(QWidget &keys, QWidget &mouse);

    void tell(const QString &words);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_widget;
    bool m_told = false; // and not taken back
};
