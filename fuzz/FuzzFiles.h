// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

/// Files for fuzz targets, in memory where the system has a file system for that.
namespace FuzzFiles {

/// A file of that name in a folder of this process.
QString path(const char *name);
/// Replaces the content of a file.
void write(const QString &file, const QByteArray &content);
/// The same bytes with the length and the digest that a header line must tell; without header as they are.
QByteArray withRightHeader(const QByteArray &bytes);

} // namespace FuzzFiles
