// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/ProcessorTree.h"

#include <QList>
#include <QPair>
#include <QWidget>

class CLayoutGraphicsView;
class CLayoutSidePanel;
class CPortList;
class CTranslatingAnimation;
class CWiringLayoutWidget;
class QSplitter;
class QToolButton;

/// The layout's view above the port list. A button folds the list away; how the space is shared is kept
/// between runs. Passes on what view, port list and side panel tell each other. GUI thread.
class CViewPortPanel final : public QWidget
{
    Q_OBJECT

public:
    /// Becomes the parent of @p view and @p ports. @p wiring, the row above the panel, must outlive it.
    CViewPortPanel(CLayoutGraphicsView &view, CPortList &ports, CWiringLayoutWidget &wiring,
                   QWidget *parent = nullptr);

    /// With @p blocked, the user cannot edit.
    void setEditingBlocked(bool blocked);
    /// Lets @p panel show the selection and edit it. The panel may go before this one.
    void connectSidePanel(CLayoutSidePanel &panel);
    /// Keeps for the next run how view and list share the space.
    void saveState() const;

Q_SIGNALS:
    // From the side panel to the view.
    void notifyTopologybuttonClicked(int pattern);
    void notifySelectedCabinetPositionChanged(const QPoint &corner);
    void notifySelectedCabinetSizeChanged(const QSize &size);
    void notifySelectedCabinetRankChanged(const QSize &rank);
    // From the view: what is selected.
    void notifySelectedCabinetGeometryChanged(const QRect &extent);
    /// The area of each port that holds the selection, canvas pixels.
    void notifySelectedPortGeometryChanged(const QList<QPair<int, QRect>> &areas);
    // From the port list.
    void notifyPortClicked(int port, bool selected);
    void notifyPortToggled(int port, bool current);
    // From the view: what is selected.
    void notifySelectedPort(const QList<int> &ports);
    void notifySelectedCabinetInfos(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);

public Q_SLOTS:
    void onNotifyCancelCalibrate(); ///< ends the highlight on the wall
    /// The processor in view, or its state, has changed.
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processorInfo);
    /// A redundancy processor follows its primary; its layout cannot be edited.
    void onCurrentProcessorBackupChanged(bool isBackup);
    void onReadbackMappingFinished(bool same);
    void onNotifySaveMappingSuccessed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildUi();
    void buildOverlay();
    void connectSignals();
    void block();
    void keepListHeight();
    void tellPortAreas();
    void tellRecords();
    void showArea(const QRect &area);
    void restoreState();
    void fitList();
    void onCollapseToggled(bool collapsed);
    void placeOverlay();
    void showToolTip();

    CLayoutGraphicsView &m_view;
    CPortList &m_ports;
    CWiringLayoutWidget &m_wiring;
    QSplitter *m_splitter = nullptr;
    QWidget *m_overlay = nullptr;
    QToolButton *m_collapse = nullptr;
    CTranslatingAnimation *m_slide = nullptr;
    int m_listHeight = 0; ///< that the list gets back when the window is high enough again
    bool m_low = false;   ///< the window is too low for more than one row of ports
    bool m_restored = false;
    bool m_passingKey = false; ///< to the view
    bool m_blocked = false;    ///< by the user
    bool m_backup = false;     ///< the processor in view follows another one
};
