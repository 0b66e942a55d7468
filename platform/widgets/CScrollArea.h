// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QScrollArea>

/// A frameless area that scrolls a column of widgets vertically; its content has the area's width.
class CScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit CScrollArea(QWidget *parent = nullptr);
};
