// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

/// A thin horizontal line that separates sections of a column.
class CSeparator final : public QWidget
{
    Q_OBJECT

public:
    explicit CSeparator(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
