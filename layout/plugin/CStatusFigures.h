// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>

class CLayoutGraphicsView;
class CToolHint;
class QLabel;

/// What the status bar tells of the editor: faulty cabinets, the cursor on the canvas, the selection or else
/// the wall, the canvas, and, left of all, what the tool in use does. If there is little room, the hint goes
/// first, then the canvas, then the cursor. GUI thread.
class CStatusFigures final : public QWidget
{
    Q_OBJECT

public:
    /// @p view must outlive it. Becomes the parent of @p faults.
    CStatusFigures(CLayoutGraphicsView &view, QWidget *faults);
    ~CStatusFigures() override;

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
    void setText(QLabel &label, const QString &text);
    void fit();
    /// The width of all that is told if @p labels are.
    int widthOf(const QVector<QLabel *> &labels) const;

    CLayoutGraphicsView &m_view;
    QWidget *m_faults;
    QLabel *m_cursor;
    QLabel *m_extent; // of the selection or the wall
    QLabel *m_canvas;
    QPointer<CToolHint> m_hint; // owned by the status bar once placed there
    int m_selected = 0;         // cabinets
    QRect m_selection;
};
