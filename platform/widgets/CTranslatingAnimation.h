// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>

/// Slides a widget out of its place over one edge, and back. Only a picture of it moves, so that the layouts
/// around it change once: the widget is hidden when the picture begins to leave, and shown below it when it
/// begins to come. GUI thread.
class CTranslatingAnimation final : public QObject
{
    Q_OBJECT

public:
    /// @p widget must outlive the animation.
    CTranslatingAnimation(QWidget &widget, Qt::Edge edge, QObject *parent = nullptr);
    ~CTranslatingAnimation() override;

    bool isRunning() const { return m_stage != nullptr; }

public Q_SLOTS:
    void moveOut(); ///< hides the widget
    void moveIn();  ///< shows the widget

Q_SIGNALS:
    void notifyFinished(); ///< nothing moves any more

private:
    void slide(const QPixmap &below, bool out);
    QPoint outside() const;
    void end();

    QWidget &m_widget;
    Qt::Edge m_edge;
    QPointer<QLabel> m_stage; ///< covers the widget's place while its picture moves
};
