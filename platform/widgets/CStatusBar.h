// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStatusBar>

/// A status bar whose messages begin in the grid of all other widgets, and end in dots where there is not
/// enough room. GUI thread.
class CStatusBar final : public QStatusBar
{
public:
    using QStatusBar::QStatusBar;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// Where a message may stand: up to the first widget that stays beside it.
    QRect messageRect() const;
};
