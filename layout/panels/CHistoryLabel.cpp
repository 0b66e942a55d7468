// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CHistoryLabel.h"

#include <QListView>
#include <QVBoxLayout>

namespace {
constexpr int ShownRows = 8;
}

CHistoryLabel::CHistoryLabel(const SUnitServices &)
    : m_list(new QListView)
{
    buildUi();
    connect(m_list, &QListView::clicked, this, &CHistoryLabel::choose);
    connect(m_list, &QListView::activated, this, &CHistoryLabel::choose);
    connect(&m_model, &CHistoryModel::notifyCurrentRowChanged, this, &CHistoryLabel::markCurrent);
    connect(this, &CUnitLabel::notifyCollapsed, this, &CHistoryLabel::markCurrent);
}

void CHistoryLabel::buildUi()
{
    SetTitle(tr("History"));
    m_list->setModel(&m_model);
    m_list->setAccessibleName(tr("Steps of the history"));
    m_list->setUniformItemSizes(true);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setFixedHeight(ShownRows * (fontMetrics().height() + 6));
    contentLayout()->addWidget(m_list);
}

void CHistoryLabel::choose(const QModelIndex &row)
{
    if (row.isValid() && row.row() != m_model.currentRow())
        Q_EMIT notifyStepChosen(row.row());
    markCurrent(); // it may have been refused
}

void CHistoryLabel::markCurrent()
{
    const QModelIndex current = m_model.index(m_model.currentRow());
    m_list->setCurrentIndex(current);
    if (!current.isValid() || isCollapsed())
        return;
    m_list->scrollTo(current);
    const QRect row = m_list->visualRect(current);
    Q_EMIT notifyCurrentMoved({m_list->viewport()->mapTo(this, row.topLeft()), row.size()});
}

void CHistoryLabel::setLayoutShown(bool shown)
{
    m_list->setEnabled(shown);
    m_list->setToolTip(shown ? QString() : tr("No layout is shown."));
}
