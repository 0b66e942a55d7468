// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasSizeSetting.h"

#include "layout/api/records/LayoutLimits.h"
#include "platform/widgets/input/CClampedSpinBox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int CanvasFieldWidth = 188;
constexpr int CanvasLabelWidth = 33;
constexpr int CanvasRowSpacing = 8;
constexpr QSize CanvasPresets[] = {{1920, 1080}, {3840, 2160}, {4096, 2160}};

} // namespace

CCanvasSizeSetting::CCanvasSizeSetting(const SCanvasLimits &limits, const QSize &size, QWidget *parent)
    : CDialog(tr("Canvas size settings"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_limits(limits)
    , m_presets(new QComboBox)
    , m_width(new CSpinBox)
    , m_height(new CSpinBox)
    , m_hint(new QLabel)
{
    buildUi();
    m_width->setValue(size.width());
    m_height->setValue(size.height());
    connectSignals();
    onSizeChanged();
}

QSize CCanvasSizeSetting::canvasSize() const
{
    return {m_width->value(), m_height->value()};
}

void CCanvasSizeSetting::buildUi()
{
    m_width->setRange(LayoutLimits::SmallestCanvasSide,
                      std::min(m_limits.maximumWidth, LayoutLimits::WidestCanvas));
    m_height->setRange(LayoutLimits::SmallestCanvasSide,
                       std::min(m_limits.maximumHeight, LayoutLimits::TallestCanvas));
    m_presets->setFixedWidth(CanvasFieldWidth);
    m_presets->setPlaceholderText(tr("Custom"));
    auto *model = qobject_cast<QStandardItemModel *>(m_presets->model());
    for (const QSize &preset : CanvasPresets) {
        m_presets->addItem(QStringLiteral("%1\u00D7%2").arg(preset.width()).arg(preset.height()), preset);
        const bool possible = preset.width() <= m_width->maximum() && preset.height() <= m_height->maximum();
        model->item(m_presets->count() - 1)->setEnabled(possible);
    }
    m_hint->setObjectName(QStringLiteral("Hint"));
    m_hint->setWordWrap(true);
    // Otherwise the dialog would change its size.
    m_hint->setMinimumHeight(2 * m_hint->fontMetrics().lineSpacing());
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(CanvasRowSpacing);
    grid->setVerticalSpacing(CanvasRowSpacing);
    addRow(*grid, tr("Size"), m_presets);
    addRow(*grid, tr("Width"), m_width);
    addRow(*grid, tr("Height"), m_height);
    contentLayout()->setSpacing(CanvasRowSpacing);
    contentLayout()->addLayout(grid);
    contentLayout()->addWidget(m_hint);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void CCanvasSizeSetting::addRow(QGridLayout &grid, const QString &text, QWidget *field)
{
    auto *label = new QLabel(text);
    label->setMinimumWidth(CanvasLabelWidth); // widened if its text would be cut off
    label->setBuddy(field);
    field->setAccessibleName(text);
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(field, row, 1);
}

void CCanvasSizeSetting::connectSignals()
{
    connect(m_presets, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CCanvasSizeSetting::onPresetChosen);
    for (QSpinBox *box : {m_width, m_height})
        connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &CCanvasSizeSetting::onSizeChanged);
}

void CCanvasSizeSetting::onPresetChosen()
{
    const QSize preset = m_presets->currentData().toSize();
    if (!preset.isValid())
        return; // a custom size
    {
        const QSignalBlocker blocker(m_width); // do not announce a half-set preset
        m_width->setValue(preset.width());
    }
    m_height->setValue(preset.height());
    onSizeChanged();
}

void CCanvasSizeSetting::onSizeChanged()
{
    const QSize size = canvasSize();
    m_presets->setCurrentIndex(m_presets->findData(size));
    const bool fits = qint64(size.width()) * size.height() <= m_limits.maximumArea;
    m_hint->setText(fits ? QString()
                         : QStringLiteral("%1 %2")
                               .arg(tr("The area of the canvas cannot be greater than"))
                               .arg(m_limits.maximumArea));
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(fits);
}
