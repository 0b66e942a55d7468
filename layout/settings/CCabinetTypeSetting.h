// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SSettings.h"
#include "platform/widgets/CDialog.h"

#include <functional>

class QAction;
class QLabel;
class QMenu;
class QPushButton;

/// Asks which type of the library the selected cabinets shall have, and whether they may be resized to it.
/// GUI thread.
class CCabinetTypeSetting final : public CDialog
{
    Q_OBJECT

public:
    using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;
    using RcvTypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;
    /// Returns the current type library; called each time the menu opens.
    using Library = std::function<QVector<SSettings::TypeLibrary::STreeNode>()>;

    CCabinetTypeSetting(const Cabinets &selected, Library library, QWidget *parent);

    /// The chosen type; an accepted dialog always has one, and the cabinets then get its size.
    const RcvTypeInfo &type() const { return m_type; }

    /// Asks first if a cabinet does not have the type's size; "No" leaves the dialog open.
    void accept() override;

private:
    void buildUi();
    void connectSignals();
    void fillMenu();
    void onActionTriggered(const QAction *action);
    void showCommonType(const QVector<SSettings::TypeLibrary::STreeNode> &nodes);
    void take(const RcvTypeInfo &type);
    void showTypeLibrary();
    bool fitsAllCabinets() const;

    Cabinets m_selected;
    Library m_library;
    RcvTypeInfo m_type;
    QMenu *m_menu = nullptr;
    QPushButton *m_typeButton = nullptr;
    QLabel *m_typeSize = nullptr;
};
