// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class QToolButton;
class QVBoxLayout;

/// A titled block of a side panel. A click on its title, or Space or Enter, collapses and expands it.
class CUnitLabel : public QWidget
{
    Q_OBJECT

public:
    explicit CUnitLabel(QWidget *parent = nullptr);

    void SetTitle(const QString &title);
    QString title() const;

    /// Hides or shows everything below the title. A new unit is expanded.
    void setCollapsed(bool collapsed);
    bool isCollapsed() const;

    /// The layout for the unit's content.
    QVBoxLayout *contentLayout() const { return m_contentLayout; }

Q_SIGNALS:
    void notifyCollapsed(bool collapsed); ///< by the user or by the program

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildUi();
    void connectSignals();

    QToolButton *m_header = nullptr;
    QWidget *m_content = nullptr;
    QVBoxLayout *m_contentLayout = nullptr;
};
