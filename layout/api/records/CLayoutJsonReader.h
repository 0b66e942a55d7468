// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SPrjPort.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>

class CStrictObject;
class QJsonArray;
class QJsonValue;
struct SJsonPlace;

/// Reads a layout, or a part of one, strictly from JSON; remembers the first error and the identities that it
/// has met. Used through CRecordJson.
class CLayoutJsonReader final
{
    Q_DECLARE_TR_FUNCTIONS(CLayoutJsonReader)

public:
    using Port = CabinetLayout::CabinetPort;
    using Group = Port::CabinetGroup;
    using Cabinet = Port::Cabinet;

    /// What holds a cabinet: the values of its members that are left out.
    struct SHolder
    {
        int port = -1;
        QUuid group;
    };

    CabinetLayout layout(const QJsonValue &json, const SJsonPlace &place);
    Port port(const QJsonValue &json, const SJsonPlace &place);
    /// @p depth counts the groups around it and itself.
    Group group(const QJsonValue &json, const SJsonPlace &place, int port, int depth);
    Cabinet cabinet(const QJsonValue &json, const SJsonPlace &place, const SHolder &holder);
    SPrjPort projectPort(const QJsonValue &json, const SJsonPlace &place);

    /// Empty as long as everything that was read is right; begins with the place.
    const QString &error() const { return m_error; }

    /// The type key in a member that may be left out.
    static SMD5 typeKey(CStrictObject &object, const char *key);

private:
    /// The members of an array in a group; none when the output port then has more than @p most of them.
    QJsonArray counted(CStrictObject &object, const char *key, int &count, int most);
    std::shared_ptr<const Port::SOriginalAreas> originalAreas(const Cabinet &cabinet, const QJsonValue &json,
                                                              const SJsonPlace &place);
    QVector<Cabinet> mirrored(const QJsonValue &json, const SJsonPlace &place, int primary);

    QString m_error;
    QSet<QUuid> m_cabinets;
    QSet<QUuid> m_groups;
    int m_portCabinets = 0; ///< of the output port that is being read
    int m_portGroups = 0;   ///< of it
};
