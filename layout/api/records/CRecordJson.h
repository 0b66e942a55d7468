// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "layout/api/records/SPrjPort.h"
#include "layout/api/records/SSettings.h"
#include "platform/common/CResult.h"
#include "platform/json/CJsonValue.h"

#include <QCoreApplication>
#include <QJsonObject>

/// The one place that converts layout records to JSON and back. What is read back equals what was written
/// (colours: 8 bits per channel). Members with their default value are left out. Reading is strict: an
/// unknown or missing member, a wrong type, a number out of range, or a repeated identity gives an error text
/// that begins with the place ("ports[3].groups[0].cabinets[12].rect: …"). Any thread.
class CRecordJson final
{
    Q_DECLARE_TR_FUNCTIONS(CRecordJson)

public:
    using Port = CabinetLayout::CabinetPort;
    using Group = Port::CabinetGroup;
    using Cabinet = Port::Cabinet;
    using RcvTypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    static constexpr int MaximumNumber = 1 << 24; ///< of ranks, indices, counts, loads
    static constexpr int MaximumTextLength = 1024;

    static QJsonObject toJson(const CabinetLayout &layout);
    static QJsonObject toJson(const Port &port);
    static QJsonObject toJson(const Group &group);
    static QJsonObject toJson(const Cabinet &cabinet);
    static QJsonObject toJson(const SBackgroundInfo &info);
    static QJsonObject toJson(const RcvTypeInfo &info);
    static QJsonObject toJson(const SPrjPort &port);

    /// @p place is the value's place in its document, with which each error text begins; empty: the document
    /// itself.
    static CResult<CabinetLayout> layout(const CJsonValue &json, const char *place = nullptr);
    static CResult<Port> port(const CJsonValue &json, const char *place = nullptr);
    static CResult<Group> group(const CJsonValue &json, const char *place = nullptr);
    static CResult<Cabinet> cabinet(const CJsonValue &json, const char *place = nullptr);
    static CResult<SBackgroundInfo> background(const CJsonValue &json, const char *place = nullptr);
    static CResult<RcvTypeInfo> typeInfo(const CJsonValue &json, const char *place = nullptr);
    static CResult<SPrjPort> projectPort(const CJsonValue &json, const char *place = nullptr);
};
