// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"
#include "host/projects/CWallBuilder.h"
#include "platform/widgets/CDialog.h"

class CProcessorKinds;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;
struct SProcessorKind;

/// Asks for the dimensions of a wall of equal cabinets and makes a project of it. Tells the load that this
/// gives, and asks before it makes a wall that cannot be driven. GUI thread.
class CNewProjectDialog final : public CDialog
{
    Q_OBJECT

public:
    /// @p kinds must outlive the dialog.
    CNewProjectDialog(const CProcessorKinds &kinds, QWidget *parent);

    /// The project; valid after the dialog was accepted.
    const SProcessorProject &project() const { return m_project; }

    void accept() override;

private:
    void buildUi();
    void buildCabinetRows(QFormLayout &form);
    void buildWallRows(QFormLayout &form);
    void connectSignals();
    QSpinBox *addNumber(QFormLayout &form, const QString &label, const char *objectName, int minimum,
                        int maximum, int value);
    const SProcessorKind *kindFor(const SWallPlan &wall) const;
    QString problemOf(const SWallPlan &wall) const;
    void showSummary(const SWallPlan &wall, const QString &problem);
    bool mayExceed(const SWallPlan &wall, const CabinetLayout &layout);
    void onTypeChosen();
    void onSizeEdited();
    void updateSummary();
    SWallPlan plan() const;

    const CProcessorKinds &m_kinds;
    QLineEdit *m_name = nullptr;
    QComboBox *m_type = nullptr;
    QSpinBox *m_width = nullptr;
    QSpinBox *m_height = nullptr;
    QSpinBox *m_columns = nullptr;
    QSpinBox *m_rows = nullptr;
    QSpinBox *m_ports = nullptr;
    QCheckBox *m_redundancy = nullptr;
    QComboBox *m_pattern = nullptr;
    QLabel *m_summary = nullptr;
    SProcessorProject m_project;
};
