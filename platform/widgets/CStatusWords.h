// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QWidget>

class QString;

/// Shows short messages about the last action in the status bar of a widget's main window, and removes them
/// with the next action of any kind: a button or a key pressed anywhere in the program. GUI thread.
class CStatusWords final : public QObject
{
public:
    /// @p widget becomes the parent.
    explicit CStatusWords(QWidget &widget);

    /// An action that is still being handled does not remove them.
    void tell(const QString &words);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QWidget> m_widget;
    QPointer<QWidget> m_bar; // in whose window the status bar is
    bool m_told = false;     // and not removed yet
    bool m_fresh = false;    // the action that they are about may still be on its way through the widgets
};
