// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ports/SOverload.h"

#include <QAbstractButton>

/// One line that names the overloaded ports of the processor in view, hidden while there are none. A click,
/// or Space, asks for their selection. GUI thread.
class COverloadLine final : public QAbstractButton
{
    Q_OBJECT

public:
    /// @p store must outlive the line.
    explicit COverloadLine(CLayoutData &store, QWidget *parent = nullptr);

    const SOverload &overload() const { return m_overload; }
    /// Whether there is a layout in view; without, nothing is told.
    void setLayoutShown(bool shown);
    /// Shows what the store knows now.
    void refresh();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void notifySelectPorts(const QVector<int> &ports);
    void notifyOverloadChanged(const SOverload &overload);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void scheduleRefresh();
    QString shown() const;

    CLayoutData &m_store;
    SOverload m_overload;
    bool m_scheduled = false;
    bool m_layoutShown = true;
};
