// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaType>
#include <QString>
#include <QUuid>

/// The fill image behind a processor's cabinets.
struct SBackgroundInfo
{
    /// How the image is fitted to the canvas.
    enum FitType { NaturalSize = 0, ZoomToFit = 1 };

    bool enabled = false;
    QString file;      ///< path of the image
    int scale = 100;   ///< percent
    int opacity = 100; ///< percent
    QUuid processor;
    FitType fit = NaturalSize;

    friend bool operator==(const SBackgroundInfo &a, const SBackgroundInfo &b)
    {
        return a.enabled == b.enabled && a.file == b.file && a.scale == b.scale && a.opacity == b.opacity &&
               a.processor == b.processor && a.fit == b.fit;
    }
    friend bool operator!=(const SBackgroundInfo &a, const SBackgroundInfo &b) { return !(a == b); }
};
Q_DECLARE_METATYPE(SBackgroundInfo)
Q_DECLARE_METATYPE(SBackgroundInfo::FitType)
