// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CUnitLabel.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

CUnitLabel::CUnitLabel(QWidget *parent)
    : QWidget(parent)
    , m_header(new QToolButton(this))
    , m_content(new QWidget(this))
    , m_contentLayout(new QVBoxLayout(m_content))
{
    buildUi();
    connectSignals();
}

void CUnitLabel::SetTitle(const QString &title)
{
    m_header->setText(title);
}

QString CUnitLabel::title() const
{
    return m_header->text();
}

void CUnitLabel::setCollapsed(bool collapsed)
{
    m_header->setChecked(!collapsed);
}

bool CUnitLabel::isCollapsed() const
{
    return !m_header->isChecked();
}

bool CUnitLabel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_header && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            m_header->click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CUnitLabel::buildUi()
{
    m_header->setObjectName(QStringLiteral("UnitTitle"));
    m_header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_header->setIconSize(QSize(10, 10)); // of the arrow
    m_header->setArrowType(Qt::DownArrow);
    m_header->setCheckable(true);
    m_header->setChecked(true);
    m_header->setFocusPolicy(Qt::StrongFocus);
    m_header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_contentLayout->setContentsMargins(0, 4, 0, 4);
    m_contentLayout->setSpacing(4);

    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(m_header);
    outer->addWidget(m_content);
}

void CUnitLabel::connectSignals()
{
    m_header->installEventFilter(this);
    connect(m_header, &QToolButton::toggled, this, [this](bool unfolded) {
        m_content->setVisible(unfolded);
        m_header->setArrowType(unfolded ? Qt::DownArrow : Qt::RightArrow);
        Q_EMIT notifyCollapsed(!unfolded);
    });
}
