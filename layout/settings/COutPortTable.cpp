// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/COutPortTable.h"

#include "layout/settings/CSpinBoxDelegate.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>

namespace {

enum AreaColumn { AreaX, AreaY, AreaWidth, AreaHeight, AreaColumnCount };

constexpr int AreaColumnWidth = 71;
constexpr int PortColumnWidth = 87;
constexpr int AreaRowHeight = 28;
constexpr int MostRowsShown = 12;

} // namespace

COutPortTable::COutPortTable(const QList<SPortArea> &areas, QWidget *parent)
    : QTableWidget(parent)
    , m_delegate(new CSpinBoxDelegate(this))
    , m_heading(new QLabel(tr("Output port"), this))
{
    buildUi();
    fill(areas);
}

QList<SPortArea> COutPortTable::areas() const
{
    QList<SPortArea> areas;
    for (int row = 0; row < rowCount(); ++row) {
        const auto figure = [this, row](AreaColumn column) {
            return item(row, column)->text().toUShort(nullptr, 10);
        };
        areas << SPortArea{m_ports.at(row), figure(AreaX), figure(AreaY), figure(AreaWidth),
                           figure(AreaHeight)};
    }
    return areas;
}

void COutPortTable::commitOpenEditor()
{
    m_delegate->commitOpenEditor();
}

int COutPortTable::partnerOf(int column)
{
    return (column + 2) % AreaColumnCount;
}

void COutPortTable::resizeEvent(QResizeEvent *event)
{
    QTableWidget::resizeEvent(event);
    placeHeading();
}

void COutPortTable::buildUi()
{
    setObjectName(QStringLiteral("OutPortTable"));
    setColumnCount(AreaColumnCount);
    setHorizontalHeaderLabels({tr("X"), tr("Y"), tr("Width"), tr("Height")});
    for (int column = 0; column < AreaColumnCount; ++column)
        setColumnWidth(column, AreaColumnWidth);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFixedHeight(AreaRowHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(AreaRowHeight);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setFixedWidth(PortColumnWidth);
    setCornerButtonEnabled(false); // it would select all
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::AllEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // the width does not depend on the number of ports
    setItemDelegate(m_delegate);
    setFixedWidth(PortColumnWidth + AreaColumnCount * AreaColumnWidth +
                  verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
    m_heading->setStyleSheet(
        QStringLiteral(".QLabel{border:1px solid rgb(8,8,8); color: rgba(240, 240, 246, 1);"
                       "background:rgba(31,31,36,1);font-weight:bold}"));
    m_heading->setAlignment(Qt::AlignCenter);
}

void COutPortTable::fill(const QList<SPortArea> &areas)
{
    setRowCount(areas.size());
    QStringList names;
    for (int row = 0; row < areas.size(); ++row) {
        const SPortArea &area = areas.at(row);
        m_ports << area.port;
        names << tr("Port %1").arg(area.port + 1);
        const int figures[] = {area.x, area.y, area.width, area.height};
        for (int column = 0; column < AreaColumnCount; ++column)
            setItem(row, column, new QTableWidgetItem(QString::number(figures[column])));
    }
    setVerticalHeaderLabels(names);
    setMinimumHeight((qMin(areas.size(), MostRowsShown) + 1) * AreaRowHeight + 2 * frameWidth());
    placeHeading();
}

void COutPortTable::placeHeading()
{
    m_heading->setGeometry(frameWidth(), frameWidth(), PortColumnWidth, AreaRowHeight);
}
