// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class CScreenPicture;

/// The window that simulates the wall, for displays without OpenGL. GUI thread.
class CRasterScreen final : public QWidget
{
    Q_OBJECT

public:
    /// @p picture must outlive the window.
    explicit CRasterScreen(CScreenPicture &picture);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    CScreenPicture &m_picture;
};
