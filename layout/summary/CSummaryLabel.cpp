// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/CSummaryLabel.h"

#include "platform/widgets/input/CClampedSpinBox.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <limits>

namespace {

constexpr int LabelWidth = 200;
constexpr int FieldWidth = 100;
constexpr int CaptionWidth = 52;
constexpr int LargestFigure = std::numeric_limits<int>::max();

/// The text of a field in which nobody is typing.
QString textOf(const QSpinBox &field)
{
    QLocale locale = field.locale();
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale.toString(field.value());
}

bool isBeingTyped(const QSpinBox &field)
{
    return field.text() != textOf(field);
}

/// Keeps what is being typed, unless the value has changed.
void present(QSpinBox &field, int figure)
{
    const QSignalBlocker blocker(field);
    if (figure != field.value() || !isBeingTyped(field))
        field.setValue(figure);
}

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

void CSummaryLabel::onItemGeometryChanged(const QRectF &geometry)
{
    const QSize area = geometry.size().toSize();
    m_width->setValue(area.width());
    m_height->setValue(area.height());
}

void CSummaryLabel::onItemOffsetChanged(const QPoint &offset)
{
    present(*m_x, offset.x());
    present(*m_y, offset.y());
}

bool CSummaryLabel::eventFilter(QObject *watched, QEvent *event)
{
    auto *field = qobject_cast<QSpinBox *>(watched);
    if (!field)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::Wheel && !field->hasFocus()) {
        event->ignore(); // scrolling over a field must not change it
        return true;
    }
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_Escape && isBeingTyped(*field)) {
        auto *line = field->findChild<QLineEdit *>();
        line->setText(textOf(*field));
        line->selectAll();
        event->accept();
        return true;
    }
    if (event->type() != QEvent::ShortcutOverride || isBeingTyped(*field))
        return false;
    const bool step = key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo) ||
                      (key->key() == Qt::Key_Y && key->modifiers() == Qt::ControlModifier);
    if (step)
        event->ignore(); // the field has nothing to undo, but the page has
    return step;
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
    for (QSpinBox *field : {m_width, m_height}) {
        field->setRange(0, LargestFigure);
        field->setReadOnly(true); // set with the canvas of the processor
        field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    }
    const QString offset = tr("Offset");
    QFormLayout *offsetForm = addSection(*column, offset);
    m_x = addField(*offsetForm, offset, tr("X"));
    m_y = addField(*offsetForm, offset, tr("Y"));
    for (QSpinBox *field : {m_x, m_y}) {
        field->setRange(-LargestFigure, LargestFigure);
        field->setKeyboardTracking(false);
        field->setFocusPolicy(Qt::StrongFocus);
        field->installEventFilter(this);
    }
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

QSpinBox *CSummaryLabel::addField(QFormLayout &form, const QString &heading, const QString &name)
{
    auto *field = new CSpinBox;
    field->setFixedWidth(FieldWidth);
    field->setAccessibleName(QStringLiteral("%1, %2").arg(heading, name));
    auto *caption = new QLabel(name);
    caption->setMinimumWidth(CaptionWidth); // aligns the fields of all sections
    form.addRow(caption, field);
    return field;
}

void CSummaryLabel::connectSignals()
{
    const auto announce = [this] { Q_EMIT notifyItemOffsetChanged({m_x->value(), m_y->value()}); };
    connect(m_x, qOverload<int>(&QSpinBox::valueChanged), this, announce);
    connect(m_y, qOverload<int>(&QSpinBox::valueChanged), this, announce);
}
