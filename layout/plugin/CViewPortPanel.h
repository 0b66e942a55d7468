// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class CLayoutGraphicsView;
class CPortList;
class QSplitter;
class QToolButton;

/// The layout's view above the port list. A button folds the list away; how the space is shared is kept
/// between runs. GUI thread.
class CViewPortPanel final : public QWidget
{
    Q_OBJECT

public:
    /// Becomes the parent of both.
    CViewPortPanel(CLayoutGraphicsView &view, CPortList &ports, QWidget *parent = nullptr);

    /// Keeps for the next run how view and list share the space.
    void saveState() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildUi();
    void restoreState();
    void onCollapseToggled(bool collapsed);
    void placeOverlay();
    void showToolTip();

    CLayoutGraphicsView &m_view;
    CPortList &m_ports;
    QSplitter *m_splitter = nullptr;
    QWidget *m_overlay = nullptr;
    QToolButton *m_collapse = nullptr;
    bool m_restored = false;
};
