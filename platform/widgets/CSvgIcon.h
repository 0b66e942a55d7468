// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QVector>

/// Makes an icon of SVG files that are read when it is first drawn; QIcon's own engine parses each file when
/// it is added, and again when it is drawn. Otherwise such an icon looks like one of QIcon. GUI thread.
class CSvgIcon final
{
public:
    CSvgIcon &add(const QString &file, QIcon::Mode mode = QIcon::Normal, QIcon::State state = QIcon::Off);
    /// The icon of the files so far; null if there are none.
    QIcon icon() const;
    /// An icon of one file.
    static QIcon of(const QString &file) { return CSvgIcon().add(file).icon(); }

private:
    class CEngine;
    struct SPicture
    {
        QString file;
        QIcon::Mode mode;
        QIcon::State state;
    };

    QVector<SPicture> m_pictures;
};
