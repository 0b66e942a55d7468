// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QVector>

/// Files of about a megabyte each that begin as good ones do and would like to have as much memory and time
/// as they can get.
namespace HostileFiles {

constexpr int Bytes = 1000 * 1000;

/// JSON that is like @p sample, with one thing that is as long, as deep or as large as can be. A header line
/// before the JSON stays as it is.
QVector<QByteArray> likeJson(const QByteArray &sample);
/// Settings, of which each is as long as can be.
QVector<QByteArray> likeSettings(const QByteArray &sample);
QVector<QByteArray> journals();

} // namespace HostileFiles
