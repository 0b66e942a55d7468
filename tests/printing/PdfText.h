// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QStringList>

/// Reads back what QPdfWriter has written.
namespace PdfText {

/// The text of each page, in the order in which it was drawn, without anything between the texts.
QStringList pages(const QByteArray &pdf);

} // namespace PdfText
