// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

class QString;
class QWidget;

/// Shows short messages about the last action in the status bar of a widget's window, and removes them when
/// the next button or key is pressed. GUI thread.
class CStatusWords final : public QObject
{
public:
    /// Watches @p keys, which becomes the parent, and @p mouse.
    CStatusWords(QWidget &keys, QWidget &mouse);

    void tell(const QString &words);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_widget;
    bool m_told = false; // and not removed yet
};
