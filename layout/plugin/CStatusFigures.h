// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>

class CLayoutData;
class CLayoutGraphicsView;
class CToolHint;
class QLabel;

/// What the status bar tells of the editor: faulty cabinets, the cursor on the canvas, the selection or else
/// the wall, the current port with its load, the scale, the canvas, and, left of all, what the tool in use
/// does. If there is little room, the hint goes first, then canvas, cursor, scale and port, in this order.
/// GUI thread.
class CStatusFigures final : public QWidget
{
    Q_OBJECT

public:
    /// @p store and @p view must outlive it. Becomes the parent of @p faults.
    CStatusFigures(CLayoutData &store, CLayoutGraphicsView &view, QWidget *faults);
    ~CStatusFigures() override;

    /// Sets whether it tells of the editor, at first nothing, not even hints.
    void setTelling(bool telling);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QLabel *addLabel(const char *name);
    void placeHint();
    void connectSignals();
    void showCursor(const QPoint &viewportPos);
    void showExtent();
    void showCanvas();
    void showPort();
    void showScale();
    void setText(QLabel &label, const QString &text);
    void fit();
    /// The width of all that is told if @p labels are.
    int widthOf(const QVector<QLabel *> &labels) const;

    CLayoutData &m_store;
    CLayoutGraphicsView &m_view;
    QWidget *m_faults;
    QLabel *m_cursor;
    QLabel *m_extent; // of the selection or the wall
    QLabel *m_port;   // the current one
    QLabel *m_scale;
    QLabel *m_canvas;
    QPointer<CToolHint> m_hint; // owned by the status bar once placed there
    int m_selected = 0;         // cabinets
    qint64 m_pixels = 0;        // of the selected cabinets
    QRect m_selection;
    bool m_telling = false;
};
