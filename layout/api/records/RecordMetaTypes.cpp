// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/RecordMetaTypes.h"

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/PrintConfig.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/ReadSaveMappingRole.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "layout/api/records/SPrjPort.h"
#include "layout/api/records/SSettings.h"
#include "platform/control/UiOrvo.h"

#include <QPair>

#define ORVO_REGISTER(...) qRegisterMetaType<__VA_ARGS__>(#__VA_ARGS__)

void registerRecordMetaTypes()
{
    using ProcessorLayouts = QList<QPair<ProcessorTree::ProcessorNode, CabinetLayout>>;

    ORVO_REGISTER(ProcessorTree::ProcessorNode);
    ORVO_REGISTER(ProcessorTree::ProcessorGroupNode);
    ORVO_REGISTER(ProcessorBoundingRects);
    ORVO_REGISTER(PrcTreeNodeType);
    ORVO_REGISTER(CabinetLayout);
    ORVO_REGISTER(CabinetLayout::CabinetPort);
    ORVO_REGISTER(CabinetLayout::CabinetPort::Cabinet);
    ORVO_REGISTER(CabinetLayout::CabinetPort::CabinetGroup);
    ORVO_REGISTER(LayoutData);
    ORVO_REGISTER(QList<CabinetLayout::CabinetPort::Cabinet>);
    qRegisterMetaType<ProcessorLayouts>("QList<QPair<ProcessorTree::ProcessorNode,CabinetLayout> >");
    ORVO_REGISTER(SSettings::TypeLibrary::STreeNode);
    ORVO_REGISTER(SSettings::TypeLibrary::STreeNode::RcvTypeInfo);
    ORVO_REGISTER(SMD5);
    ORVO_REGISTER(SBackgroundInfo);
    ORVO_REGISTER(SBackgroundInfo::FitType);
    ORVO_REGISTER(SPrjPort);
    ORVO_REGISTER(PrintConfig);
    ORVO_REGISTER(ReadSaveMappingRole);
    ORVO_REGISTER(UiOrvo::EnModule);
    ORVO_REGISTER(QUuid);
    ORVO_REGISTER(QList<int>);
}
