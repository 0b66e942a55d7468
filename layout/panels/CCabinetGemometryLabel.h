// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

#include <QRect>

class CRecoveryFocusSpinBox;
class QCheckBox;
class QGridLayout;
class QLabel;

/// The unit "Cabinets information": place, size and arrangement of the selected cabinets as figures, and the
/// lock of their ports. GUI thread.
class CCabinetGemometryLabel final : public CUnitLabel, public ISidePanelUnit
{
    Q_OBJECT

public:
    explicit CCabinetGemometryLabel(const SUnitServices &services);

    void setEditingBlocked(bool locked, bool redundancy) override;
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor) override;
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor) override;
    void onSelectedPorts(const QList<int> &ports) override;
    void onSelectionFigures(const SSelectionFigures &figures) override;
    void onSelectedGeometry(const QRect &extent) override { onSelectedCabinetGeometryChanged(extent); }
    void onPortStatesChanged() override { updateEnabled(); }

Q_SIGNALS:
    void notifySelectedCabinetPositionChanged(const QPoint &corner); ///< of the selection's extent, pixels
    void notifySelectedCabinetSizeChanged(const QSize &size);        ///< of the selection's extent, pixels
    void notifySelectedCabinetRankChanged(const QSize &rank);        ///< columns and rows

public Q_SLOTS:
    /// @p extent is that of the selection, canvas pixels; empty without one.
    void onSelectedCabinetGeometryChanged(const QRect &extent);
    void onNotifySelectedCabinetInfos(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);

private:
    void buildUi();
    CRecoveryFocusSpinBox *addField(QGridLayout &grid, int row, int column, const QString &name, int minimum,
                                    int maximum);
    QLabel *addFigure(QGridLayout &grid, int column, const QString &name);
    void connectSignals();
    void lockPorts(bool locked);
    void showExtent();
    void showRank();
    void updateEnabled();

    CLayoutData &m_store;
    QCheckBox *m_lock = nullptr;
    QLabel *m_count = nullptr;
    CRecoveryFocusSpinBox *m_columns = nullptr;
    CRecoveryFocusSpinBox *m_rows = nullptr;
    CRecoveryFocusSpinBox *m_x = nullptr;
    CRecoveryFocusSpinBox *m_y = nullptr;
    bool m_resizable = true;
    CRecoveryFocusSpinBox *m_width = nullptr;
    CRecoveryFocusSpinBox *m_height = nullptr;
    QLabel *m_cabinetWidth = nullptr;
    QLabel *m_cabinetHeight = nullptr;

    QList<int> m_selectedPorts;
    QRect m_extent;
    int m_arranged = 0;       ///< items: groups, and cabinets without them
    QSize m_rank;             ///< columns and rows; empty: no regular arrangement
    bool m_allLocked = false; ///< of the ports that the lock is about
    ProcessorTree::ProcessorNode m_processor;
    QString m_block; ///< why nothing may be edited; empty: it may
};
