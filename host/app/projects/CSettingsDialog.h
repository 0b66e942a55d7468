// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CDialog.h"

class CAppSettings;
class QCheckBox;
class QSpinBox;
class QVBoxLayout;

/// Shows the settings that hold for all projects, and stores them when it is accepted.
class CSettingsDialog final : public CDialog
{
    Q_OBJECT

public:
    /// @p settings must outlive the dialog.
    CSettingsDialog(CAppSettings &settings, QWidget *parent);

    void accept() override;

private:
    void buildUi();
    void buildVersions();
    void buildHistory();
    void showValues();

    CAppSettings &m_settings;
    QSpinBox *m_versions = nullptr;
    QCheckBox *m_keepHistory = nullptr;
    QSpinBox *m_megabytes = nullptr;
};
