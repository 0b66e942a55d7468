// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/CSummaryLabel.h"

#include "layout/api/records/LayoutLimits.h"
#include "platform/widgets/input/CRecoveryFocusSpinBox.h"

#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

#include <limits>

namespace {

constexpr int LabelWidth = 200;
constexpr int FieldWidth = 100;
constexpr int CaptionWidth = 52;
constexpr int LargestFigure = std::numeric_limits<int>::max();

} // namespace

CSummaryLabel::CSummaryLabel(QWidget *parent)
    : QWidget(parent)
{
    buildUi();
    connectSignals();
    setSubject({}, {});
    setEditable(false);
}

void CSummaryLabel::setSubject(const QString &title, const QString &note)
{
    m_title->setText(title.isEmpty() ? tr("No processor selected") : title);
    m_title->setToolTip(title);
    m_title->setEnabled(!title.isEmpty());
    m_note->setText(note);
    if (!title.isEmpty())
        return;
    onItemGeometryChanged({});
    onItemOffsetChanged({});
}

void CSummaryLabel::setEditable(bool editable)
{
    m_x->setEnabled(editable);
    m_y->setEnabled(editable);
}

void CSummaryLabel::setFocusHeir(QWidget *heir)
{
    m_x->setFocusHeir(heir);
    m_y->setFocusHeir(heir);
}

void CSummaryLabel::onItemGeometryChanged(const QRectF &geometry)
{
    const QSize area = geometry.size().toSize();
    m_width->showFigure(area.width());
    m_height->showFigure(area.height());
}

void CSummaryLabel::onItemOffsetChanged(const QPoint &offset)
{
    m_offset = offset;
    showOffset();
}

void CSummaryLabel::showOffset()
{
    m_x->showFigure(m_offset.x());
    m_y->showFigure(m_offset.y());
}

void CSummaryLabel::buildUi()
{
    setFixedWidth(LabelWidth);
    m_title = new QLabel;
    m_title->setObjectName(QStringLiteral("Subject"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_note = new QLabel;
    m_note->setObjectName(QStringLiteral("Hint"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 8);
    column->setSpacing(8);
    column->addWidget(m_title);
    const QString area = tr("Processor area");
    QFormLayout *areaForm = addSection(*column, area);
    m_width = addField(*areaForm, area, tr("Width"));
    m_height = addField(*areaForm, area, tr("Height"));
    for (CRecoveryFocusSpinBox *field : {m_width, m_height}) {
        field->setRange(0, LargestFigure);
        field->setReadOnly(true);
        field->setFocusPolicy(Qt::NoFocus);
        field->setButtonSymbols(QAbstractSpinBox::NoButtons);
        field->setStyleSheet(QStringLiteral("QSpinBox{border:none;background:transparent;}")); // as text
        field->setToolTip(tr("Follows the cabinets and the canvas of the processor"));
    }
    const QString offset = tr("Offset");
    QFormLayout *offsetForm = addSection(*column, offset);
    m_x = addField(*offsetForm, offset, tr("X"));
    m_y = addField(*offsetForm, offset, tr("Y"));
    for (CRecoveryFocusSpinBox *field : {m_x, m_y})
        field->setRange(-LargestFigure, LargestFigure);
    column->addWidget(m_note);
    column->addStretch(1);
}

QFormLayout *CSummaryLabel::addSection(QVBoxLayout &column, const QString &heading)
{
    column.addWidget(new QLabel(heading));
    auto *form = new QFormLayout;
    form->setHorizontalSpacing(8);
    form->setVerticalSpacing(4);
    column.addLayout(form);
    return form;
}

CRecoveryFocusSpinBox *CSummaryLabel::addField(QFormLayout &form, const QString &heading, const QString &name)
{
    auto *field = new CRecoveryFocusSpinBox;
    field->setFixedWidth(FieldWidth);
    field->setAccessibleName(QStringLiteral("%1, %2").arg(heading, name));
    auto *caption = new QLabel(name);
    caption->setMinimumWidth(CaptionWidth); // aligns the fields of all sections
    form.addRow(caption, field);
    return field;
}

void CSummaryLabel::connectSignals()
{
    const auto announce = [this](int entered) {
        Q_EMIT notifyItemOffsetChanged({m_x->value(), m_y->value()});
        showOffset(); // what was refused or limited is not shown
        constexpr int Limit = LayoutLimits::LargestOffset;
        if (entered < -Limit || entered > Limit)
            m_x->tell(
                tr("Offsets go from %1 to %2.").arg(QLocale().toString(-Limit), QLocale().toString(Limit)));
    };
    connect(m_x, &CRecoveryFocusSpinBox::notifyFigureEntered, this, announce);
    connect(m_y, &CRecoveryFocusSpinBox::notifyFigureEntered, this, announce);
}
