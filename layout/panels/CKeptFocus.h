// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

/// Gives a button that is disabled while its work runs the focus back afterwards, unless the user has gone
/// elsewhere meanwhile. GUI thread.
class CKeptFocus final
{
public:
    /// Call before the buttons are disabled.
    void hold(const QVector<QWidget *> &buttons);
    /// Call once they are disabled: a disabled button loses the focus.
    void noteMeanwhile();
    /// Call once they are enabled again.
    void giveBack();

private:
    QPointer<QWidget> m_before;    // the button that had it
    QPointer<QWidget> m_meanwhile; // what had it afterwards
};
