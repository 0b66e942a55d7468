// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QSize>

struct LayoutData;
struct PrintConfig;
struct SPrintInput;
struct SPrintJob;

/// Writes a layout to a file, as a picture or as a table of its cabinets. Any thread.
class CLayoutExport final
{
    Q_DECLARE_TR_FUNCTIONS(CLayoutExport)

public:
    enum Kind { Unknown, Picture, Drawing, Table };
    static constexpr int LargestPictureSide = 16384;
    static constexpr qint64 LargestPicture = 100000000; ///< pixels

    /// Told by the ending of the file's name.
    static Kind kindOf(const QString &file);
    /// Writes the file, whole or not at all; a table without the processor's name. @p size is that of a
    /// picture, in pixels; an empty one stands for the usual width and the height that goes with it.
    static CStatus write(const LayoutData &data, const QString &file, QSize size = {});
    /// Writes the table of the cabinets of a processor, or of several. Where no type tells their size, the
    /// pixel pitch of the settings counts.
    static CStatus writeTable(const LayoutData &data, const QString &processor, const PrintConfig &print,
                              const QString &file);
    static CStatus writeTable(const SPrintInput &input, const SPrintJob &job, const QString &file);
};
