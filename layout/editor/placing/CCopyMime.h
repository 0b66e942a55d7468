// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PasteCache.h"

#include <QMimeData>

class IPortStates;

/// What other programs get from copied cabinets: a picture of them, and a table as text. Both are made on
/// request.
class CCopyMime final : public QMimeData
{
    Q_OBJECT

public:
    /// The picture uses the colours that the ports have in @p states now.
    CCopyMime(const PasteCache &cache, const IPortStates &states);

    QStringList formats() const override;
    bool hasFormat(const QString &format) const override { return formats().contains(format); }

protected:
    QVariant retrieveData(const QString &format, QVariant::Type type) const override;

private:
    QString table() const;
    QImage picture() const;

    CabinetLayout m_layout; // one port record for each port that cabinets were copied from
};
