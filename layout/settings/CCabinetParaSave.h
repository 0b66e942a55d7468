// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SSettings.h"
#include "platform/widgets/CDialog.h"

class QComboBox;
class QDoubleSpinBox;
class QLabel;

/// Sends a cabinet type's parameters and a gamma value to cabinets, and shows the outcome. GUI thread.
class CCabinetParaSave final : public CDialog
{
    Q_OBJECT

public:
    using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;
    using Nodes = QVector<SSettings::TypeLibrary::STreeNode>;
    using RcvTypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    /// Starts with the type of @p cabinets if all have the same one and @p library contains it.
    CCabinetParaSave(const Cabinets &cabinets, const Nodes &library, QWidget *parent);

    /// Saves. The dialog stays open if that fails.
    void accept() override;

private:
    void buildUi(const Nodes &library);
    void connectSignals();
    void addTypes(const Nodes &nodes);
    void chooseCommonType();
    void onTypeChanged();

    Cabinets m_cabinets;
    QComboBox *m_type = nullptr;
    QDoubleSpinBox *m_gamma = nullptr;
    QLabel *m_note = nullptr;
};
