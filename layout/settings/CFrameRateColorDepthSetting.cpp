// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CFrameRateColorDepthSetting.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace {

constexpr int OfferedFrameRates[] = {50, 60, 120, 240}; // hertz
constexpr int OfferedColorDepths[] = {8, 10, 12};       // bits

/// Widths of a row's label and box, in pixels.
struct SSignalRowWidths
{
    int label;
    int box;
};

SSignalRowWidths signalRowWidths()
{
    return QLocale().language() == QLocale::Chinese ? SSignalRowWidths{48, 238} : SSignalRowWidths{70, 216};
}

} // namespace

CFrameRateColorDepthSetting::CFrameRateColorDepthSetting(const SSignalModes &possible, int hertz, int bits,
                                                         QWidget *parent)
    : CDialog(tr("Max frame rate and color depth settings"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel,
              parent)
    , m_frameRate(new QComboBox)
    , m_colorDepth(new QComboBox)
{
    buildUi(possible);
    m_frameRate->setCurrentIndex(m_frameRate->findData(hertz));
    m_colorDepth->setCurrentIndex(m_colorDepth->findData(bits));
    connectSignals();
    updateEnabled();
}

int CFrameRateColorDepthSetting::frameRate() const
{
    return m_frameRate->currentData().toInt();
}

int CFrameRateColorDepthSetting::colorDepth() const
{
    return m_colorDepth->currentData().toInt();
}

void CFrameRateColorDepthSetting::buildUi(const SSignalModes &possible)
{
    for (const int hertz : OfferedFrameRates)
        addEntry(*m_frameRate, QStringLiteral("%1Hz").arg(hertz), hertz, possible.frameRates.contains(hertz));
    for (const int bits : OfferedColorDepths)
        addEntry(*m_colorDepth, QStringLiteral("%1bit").arg(bits), bits, possible.colorDepths.contains(bits));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(2, 1); // the title may need more room than the boxes
    addRow(*grid, tr("Frame rate"), m_frameRate);
    addRow(*grid, tr("Color depth"), m_colorDepth);
    contentLayout()->addLayout(grid);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void CFrameRateColorDepthSetting::addEntry(QComboBox &box, const QString &text, int value,
                                           bool possible) const
{
    box.addItem(text, value);
    if (possible)
        return;
    auto *entry = qobject_cast<QStandardItemModel *>(box.model())->item(box.count() - 1);
    entry->setEnabled(false);
    entry->setToolTip(tr("The processor does not offer this."));
}

void CFrameRateColorDepthSetting::addRow(QGridLayout &grid, const QString &text, QComboBox *box)
{
    const SSignalRowWidths widths = signalRowWidths();
    auto *label = new QLabel(text);
    label->setFixedWidth(widths.label);
    label->setBuddy(box);
    box->setFixedWidth(widths.box);
    box->setAccessibleName(text);
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(box, row, 1);
}

void CFrameRateColorDepthSetting::connectSignals()
{
    for (QComboBox *box : {m_frameRate, m_colorDepth})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
                &CFrameRateColorDepthSetting::updateEnabled);
}

void CFrameRateColorDepthSetting::updateEnabled()
{
    const bool chosen = m_frameRate->currentIndex() >= 0 && m_colorDepth->currentIndex() >= 0;
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(chosen);
}
