// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSplitter>

class CAppSettings;
class CModuleHost;

/// The window's columns: device tree, module, side panel. The module takes what the others leave; in narrow
/// windows these give way, until the user decides. GUI thread.
class CWindowColumns final : public QSplitter
{
    Q_OBJECT

public:
    /// Becomes the parent of @p devices and of the module's widgets. @p module must outlive the columns.
    CWindowColumns(QWidget &devices, CModuleHost &module);

    /// Shares the width as it was left, else as it is usual. The window must have its size.
    void restore(const CAppSettings &settings);
    /// Folds the side panel if it was left folded, or if the window is too narrow for it. Call once the
    /// module is loaded.
    void foldPanel(const CAppSettings &settings);
    void save(CAppSettings &settings) const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void share();
    void showTree();
    void onPanelToggled(bool folded);

    QWidget &m_devices;
    CModuleHost &m_module;
    bool m_usual = true;          ///< the user has not moved an edge
    bool m_foldedByWidth = false; ///< not by the user
};
