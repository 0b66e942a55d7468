// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QRect>
#include <QWidget>

class CLayoutData;
class CLayoutGraphicsView;
class QLabel;

/// What the status bar tells of the editor: faulty cabinets, the cursor on the canvas, the selection, the
/// current output port with its load, and the scale. If there is little room, what is told elsewhere too goes
/// first. GUI thread.
class CStatusFigures final : public QWidget
{
    Q_OBJECT

public:
    /// @p store and @p view must outlive it. Becomes the parent of @p faults.
    CStatusFigures(CLayoutData &store, CLayoutGraphicsView &view, QWidget *faults);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QLabel *addLabel(const char *name);
    void connectSignals();
    void showCursor(const QPoint &viewportPos);
    void showSelection();
    void showPort();
    void showScale();
    void setText(QLabel &label, const QString &text);
    void fit();

    CLayoutData &m_store;
    CLayoutGraphicsView &m_view;
    QWidget *m_faults;
    QLabel *m_cursor;
    QLabel *m_selection;
    QLabel *m_port;
    QLabel *m_scale;
    int m_selected = 0;  // cabinets
    qint64 m_pixels = 0; // of them
    QRect m_extent;
};
