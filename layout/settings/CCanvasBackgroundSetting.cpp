// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasBackgroundSetting.h"

#include "layout/drawing/CCanvasFill.h"
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/input/CSliderSpinBox.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr int FillDialogWidth = 340;
constexpr int FillDialogHeight = 177;
constexpr int FileFieldWidth = 238;
constexpr int PercentSliderWidth = 184;
constexpr int PercentBoxWidth = 46;
constexpr int FillRowSpacing = 3;
constexpr int FileButtonSpacing = 6;

} // namespace

CCanvasBackgroundSetting::CCanvasBackgroundSetting(const SBackgroundInfo &info, QWidget *parent)
    : CDialog(tr("Canvas fill settings"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_info(info)
    , m_enabled(new QCheckBox(tr("Enable")))
    , m_file(new QLineEdit(info.file))
    , m_browse(new QPushButton(tr("Browse...")))
    , m_natural(new QRadioButton(tr("1:1")))
    , m_zoom(new QRadioButton(tr("Zoom to fit")))
    , m_controls(new QWidget)
{
    buildUi();
    connectSignals();
    updateEnabled();
}

void CCanvasBackgroundSetting::buildUi()
{
    m_enabled->setChecked(m_info.enabled);
    m_controls->setEnabled(m_info.enabled);
    auto *grid = new QGridLayout(m_controls);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(FillRowSpacing);
    buildImageRow(*grid);
    buildFitRow(*grid);
    m_scale = buildPercentRow(*grid, tr("Scale"), SmallestScale, LargestScale, m_info.scale);
    m_opacity = buildPercentRow(*grid, tr("Opacity"), 0, 100, m_info.opacity);
    contentLayout()->setSpacing(FillRowSpacing);
    contentLayout()->addWidget(m_enabled);
    contentLayout()->addWidget(m_controls);
    layout()->setContentsMargins(8, 4, 8, 6);
    layout()->setSpacing(FillRowSpacing);
    setFixedSize(FillDialogWidth, FillDialogHeight);
}

void CCanvasBackgroundSetting::buildImageRow(QGridLayout &grid)
{
    m_file->setReadOnly(true); // only files that could be read are accepted
    m_file->setPlaceholderText(tr("Please choose an image"));
    m_file->setFixedWidth(FileFieldWidth);
    m_file->setAccessibleName(tr("Image"));
    m_file->setToolTip(m_info.file);
    auto *row = new QHBoxLayout;
    row->setSpacing(FileButtonSpacing);
    row->addWidget(m_file);
    row->addWidget(m_browse, 1);
    grid.addLayout(row, grid.rowCount(), 0, 1, 2);
}

void CCanvasBackgroundSetting::buildFitRow(QGridLayout &grid)
{
    (m_info.fit == SBackgroundInfo::ZoomToFit ? m_zoom : m_natural)->setChecked(true);
    auto *row = new QHBoxLayout;
    row->addWidget(m_natural);
    row->addWidget(m_zoom);
    row->addStretch(1);
    grid.addLayout(row, grid.rowCount(), 0, 1, 2);
}

CSliderSpinBox *CCanvasBackgroundSetting::buildPercentRow(QGridLayout &grid, const QString &text,
                                                          int smallest, int largest, int value)
{
    auto *percent = new CSliderSpinBox(PercentSliderWidth, PercentBoxWidth);
    percent->setRange(smallest, largest);
    percent->setSuffix(QStringLiteral("%"));
    percent->setName(text);
    percent->setValue(value);
    const int row = grid.rowCount();
    grid.addWidget(new QLabel(text), row, 0);
    grid.addWidget(percent, row, 1, Qt::AlignRight);
    return percent;
}

void CCanvasBackgroundSetting::connectSignals()
{
    connect(m_enabled, &QCheckBox::toggled, m_controls, &QWidget::setEnabled);
    connect(m_enabled, &QCheckBox::toggled, this, &CCanvasBackgroundSetting::change);
    connect(m_browse, &QPushButton::clicked, this, &CCanvasBackgroundSetting::browse);
    connect(m_zoom, &QRadioButton::toggled, this, &CCanvasBackgroundSetting::change);
    connect(m_scale, &CSliderSpinBox::notifyValueChanged, this, &CCanvasBackgroundSetting::change);
    connect(m_opacity, &CSliderSpinBox::notifyValueChanged, this, &CCanvasBackgroundSetting::change);
}

/// A fill needs an image.
void CCanvasBackgroundSetting::updateEnabled()
{
    const bool sensible = !m_info.enabled || !m_info.file.isEmpty();
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(sensible);
}

void CCanvasBackgroundSetting::browse()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Browse..."), QFileInfo(m_info.file).absolutePath(), tr("Image File(*.png *.jpg *.jpeg)"));
    if (file.isEmpty())
        return;
    const CResult<QImage> image = CCanvasFill::load(file);
    if (!image) {
        CMessageBox::warning(this, image.error());
        return;
    }
    m_file->setText(file);
    m_file->setToolTip(file);
    change();
}

void CCanvasBackgroundSetting::change()
{
    m_info.enabled = m_enabled->isChecked();
    m_info.file = m_file->text();
    m_info.fit = m_zoom->isChecked() ? SBackgroundInfo::ZoomToFit : SBackgroundInfo::NaturalSize;
    m_info.scale = m_scale->value();
    m_info.opacity = m_opacity->value();
    updateEnabled();
    Q_EMIT notifyChanged(m_info);
}
