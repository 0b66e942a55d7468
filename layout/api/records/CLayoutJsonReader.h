// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SPrjPort.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>

class CJsonValue;
class CStrictObject;
struct SJsonPlace;

/// Reads a layout, or a part of one, strictly from JSON; remembers the first error and the identities read so
/// far. Used through CRecordJson.
class CLayoutJsonReader final
{
    Q_DECLARE_TR_FUNCTIONS(CLayoutJsonReader)

public:
    using Port = CabinetLayout::CabinetPort;
    using Group = Port::CabinetGroup;
    using Cabinet = Port::Cabinet;

    /// The port and group that hold a cabinet; they are the defaults of the cabinet's members of these names.
    struct SHolder
    {
        int port = -1;
        QUuid group;
    };

    CabinetLayout layout(const CJsonValue &json, const SJsonPlace &place);
    Port port(const CJsonValue &json, const SJsonPlace &place);
    /// @p depth is the number of groups around it plus one.
    Group group(const CJsonValue &json, const SJsonPlace &place, int port, int depth);
    Cabinet cabinet(const CJsonValue &json, const SJsonPlace &place, const SHolder &holder);
    SPrjPort projectPort(const CJsonValue &json, const SJsonPlace &place);

    /// Empty as long as everything read was valid; otherwise begins with the place.
    const QString &error() const { return m_error; }

    /// Reads the type key from a member that may be missing.
    static SMD5 typeKey(CStrictObject &object, const char *key);

private:
    /// Returns an array member of a group, and adds its size to @p count; empty if the output port then has
    /// more than @p most.
    CJsonValue counted(CStrictObject &object, const char *key, int &count, int most);
    std::shared_ptr<const Port::SOriginalAreas> originalAreas(const Cabinet &cabinet, const CJsonValue &json,
                                                              const SJsonPlace &place);
    QVector<Cabinet> mirrored(const CJsonValue &json, const SJsonPlace &place, int primary);

    QString m_error;
    QSet<QUuid> m_cabinets;
    QSet<QUuid> m_groups;
    int m_portCabinets = 0; ///< of the output port being read
    int m_portGroups = 0;   ///< of the output port being read
};
