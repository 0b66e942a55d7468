// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CEleCurrentAdjustTable.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>

#include <algorithm>
#include <tuple>

namespace {

enum GainColumn { FrameRateColumn, GainLevelColumn, StatusColumn, SwitchColumn };

constexpr int GainColumnWidths[] = {110, 110, 110, 220};
constexpr QSize GainTableSize(556, 282);
constexpr int GainRowHeight = 28; // nine rows need no scroll bar
constexpr int GainCellMargin = 3; // of the texts of the other cells
constexpr int CheckBoxFrame = 2;  // around its indicator

QString frameRateText(int code)
{
    const QStringList texts{QStringLiteral("60Hz"), QStringLiteral("50Hz"), QStringLiteral("30Hz")};
    return texts.value(code);
}

QString gainLevelText(int code)
{
    const QStringList texts{CEleCurrentAdjustTable::tr("Low"), CEleCurrentAdjustTable::tr("Medium"),
                            CEleCurrentAdjustTable::tr("High")};
    return texts.value(code);
}

bool isSameSet(const SCurrentGain &a, const SCurrentGain &b)
{
    return a.frameRateCode == b.frameRateCode && a.gainLevel == b.gainLevel;
}

void sortGains(QList<SCurrentGain> &gains)
{
    std::stable_sort(gains.begin(), gains.end(), [](const SCurrentGain &a, const SCurrentGain &b) {
        return std::tie(a.frameRateCode, a.gainLevel) < std::tie(b.frameRateCode, b.gainLevel);
    });
}

} // namespace

CEleCurrentAdjustTable::CEleCurrentAdjustTable(QWidget *parent)
    : QTableWidget(parent)
{
    buildUi();
}

void CEleCurrentAdjustTable::buildUi()
{
    setObjectName(QStringLiteral("VideoInputMonitorTable"));
    setColumnCount(4);
    setHorizontalHeaderLabels({tr("Frame rate"), tr("Gain level"), tr("Parameter status"), tr("Switch")});
    for (int column = FrameRateColumn; column <= SwitchColumn; ++column)
        setColumnWidth(column, GainColumnWidths[column]);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    // As far in as the cells; with more, the third text would be cut off.
    horizontalHeader()->setStyleSheet(
        QStringLiteral("QHeaderView::section { padding-left: %1px; padding-right: 0px; }")
            .arg(GainCellMargin));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(GainRowHeight);
    verticalHeader()->hide();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // a vertical one only covers what is empty
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setFocusPolicy(Qt::NoFocus); // its switches have it
    setFixedSize(GainTableSize);
}

void CEleCurrentAdjustTable::setGains(const QList<SCurrentGain> &gains)
{
    fill(gains, gains);
}

void CEleCurrentAdjustTable::updateGains(QList<SCurrentGain> gains)
{
    const QList<SCurrentGain> given = gains;
    for (SCurrentGain &gain : gains) {
        for (int row = 0; row < m_shown.size(); ++row) {
            if (isSameSet(gain, m_shown[row]) && m_shown[row].on != m_given[row].on)
                gain.on = m_shown[row].on;
        }
    }
    fill(given, gains);
}

bool CEleCurrentAdjustTable::hasImported() const
{
    return std::any_of(m_shown.begin(), m_shown.end(),
                       [](const SCurrentGain &gain) { return gain.imported; });
}

void CEleCurrentAdjustTable::fill(QList<SCurrentGain> given, QList<SCurrentGain> shown)
{
    sortGains(given);
    sortGains(shown);
    m_given = given;
    m_shown = shown;
    setRowCount(0); // with the switches of the rows before
    setRowCount(m_shown.size());
    for (int row = 0; row < m_shown.size(); ++row)
        fillRow(row);
}

void CEleCurrentAdjustTable::fillRow(int row)
{
    const SCurrentGain &gain = m_shown[row];
    setText(row, FrameRateColumn, frameRateText(gain.frameRateCode));
    setText(row, GainLevelColumn, gainLevelText(gain.gainLevel));
    setCellWidget(row, StatusColumn, statusLabel(gain.imported));
    setCellWidget(row, SwitchColumn, switchBox(row));
}

void CEleCurrentAdjustTable::setText(int row, int column, const QString &text)
{
    auto *cell = new QTableWidgetItem(text);
    cell->setFlags(Qt::ItemIsEnabled);
    setItem(row, column, cell);
}

QWidget *CEleCurrentAdjustTable::statusLabel(bool imported) const
{
    auto *label = new QLabel(imported ? tr("Imported") : tr("Not imported"));
    label->setStyleSheet(imported ? QStringLiteral("color: #B5B5C1") : QStringLiteral("color: #737380"));
    label->setContentsMargins(GainCellMargin, 0, GainCellMargin, 0);
    return label;
}

QWidget *CEleCurrentAdjustTable::switchBox(int row)
{
    const SCurrentGain &gain = m_shown[row];
    auto *box = new QCheckBox(tr("On"));
    box->setAccessibleName(
        QStringLiteral("%1 %2").arg(frameRateText(gain.frameRateCode), gainLevelText(gain.gainLevel)));
    box->setChecked(gain.on);
    box->setEnabled(gain.imported || gain.on);
    if (!box->isEnabled())
        box->setToolTip(tr("Import the parameters first."));
    connect(box, &QCheckBox::toggled, this, [this, row](bool on) {
        m_shown[row].on = on;
        Q_EMIT notifySwitched();
    });
    auto *cell = new QWidget; // otherwise the check box would fill the cell
    auto *line = new QHBoxLayout(cell);
    line->setContentsMargins(GainCellMargin - CheckBoxFrame, 0, 0, 0);
    line->addWidget(box);
    line->addStretch();
    return cell;
}
