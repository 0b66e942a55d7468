// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QImage>

/// Encodes drawings as PNG in a quarter of the time that QImageWriter takes: it does not try for each row
/// which filter is best, because in drawings most rows are like the one above. Any thread.
class CPngEncoder final
{
public:
    /// The content of a file; empty if there is not enough memory. @p image is of Format_RGB32, not null, and
    /// has at most 500 million pixels. Needs little memory beside the picture's own, unless it has other
    /// copies.
    static QByteArray encode(QImage image);
};
