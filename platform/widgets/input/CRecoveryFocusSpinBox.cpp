// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/input/CRecoveryFocusSpinBox.h"

#include "platform/widgets/CStatusWords.h"
#include "platform/widgets/input/SumExpression.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>

#include <cmath>
#include <utility>

namespace {

/// Whether the key types something that no sum contains.
bool isForeign(const QKeyEvent &event)
{
    const QString text = event.text();
    QString sum = QStringLiteral("1") + text;
    return !text.isEmpty() && text.at(0).isPrint() && !SumExpression::mayBecomeSum(sum);
}

} // namespace

CRecoveryFocusSpinBox::CRecoveryFocusSpinBox(QWidget *parent)
    : QSpinBox(parent)
    , m_words(new CStatusWords(*this))
{
    setKeyboardTracking(false);
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
    lineEdit()->setPlaceholderText(QStringLiteral("\u2013"));
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        m_typed = true;
        update(); // of the arrow buttons
    });
    connect(this, &QSpinBox::editingFinished, this, [this] {
        if (m_typed)
            commit();
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *before, QWidget *now) {
        if (now != this || !m_clicked)
            return;
        const auto *other = qobject_cast<CRecoveryFocusSpinBox *>(before);
        m_before = other ? other->m_before.data() : before;
    });
    showMixed();
}

void CRecoveryFocusSpinBox::showFigure(int figure)
{
    if (m_shown == figure && m_typed)
        return;
    m_shown = figure;
    restore();
}

void CRecoveryFocusSpinBox::showMixed()
{
    if (isMixed() && m_typed)
        return;
    m_shown.reset();
    restore();
}

bool CRecoveryFocusSpinBox::event(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return QSpinBox::event(event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    const bool step = key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo) ||
                      (key->key() == Qt::Key_Y && key->modifiers() == Qt::ControlModifier);
    if (step && !m_typed) {
        event->ignore(); // the field has nothing to undo, but the window has
        return true;
    }
    const bool taken = QSpinBox::event(event);
    const bool mayAsk = (key->modifiers() & Qt::ControlModifier) && key->key() != Qt::Key_Control;
    if (m_typed && mayAsk && !event->isAccepted()) {
        interpretText(); // what the window is asked for, such as saving, includes what was typed
        commit();
    }
    return taken;
}

void CRecoveryFocusSpinBox::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        restore();
        selectAll();
        recoverFocus();
        event->accept();
        return;
    }
    if (isForeign(*event))
        tell(tr("Only numbers and sums such as 1920/2 can be typed here."));
    QSpinBox::keyPressEvent(event);
    if (enter) {
        recoverFocus();
        event->accept();
    }
}

void CRecoveryFocusSpinBox::focusInEvent(QFocusEvent *event)
{
    // Who came by keyboard goes on by keyboard.
    m_clicked = event->reason() == Qt::MouseFocusReason;
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
        event->reason() == Qt::ShortcutFocusReason)
        m_before = nullptr;
    QSpinBox::focusInEvent(event);
}

void CRecoveryFocusSpinBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore(); // who scrolls by does not mean the figure
}

void CRecoveryFocusSpinBox::stepBy(int steps)
{
    QSpinBox::stepBy(steps); // from what is typed, if something is
    m_typed = !text().isEmpty();
}

QAbstractSpinBox::StepEnabled CRecoveryFocusSpinBox::stepEnabled() const
{
    return isMixed() && !m_typed ? StepEnabled(StepNone) : QSpinBox::stepEnabled();
}

QValidator::State CRecoveryFocusSpinBox::validate(QString &text, int &) const
{
    if (!SumExpression::mayBecomeSum(text))
        return QValidator::Invalid;
    return SumExpression::evaluate(text) ? QValidator::Acceptable : QValidator::Intermediate;
}

int CRecoveryFocusSpinBox::valueFromText(const QString &text) const
{
    const double figure = SumExpression::evaluate(text).value_or(value());
    m_limit = figure > maximum()   ? tr("The largest figure here is %1.").arg(QLocale().toString(maximum()))
              : figure < minimum() ? tr("The least figure here is %1.").arg(QLocale().toString(minimum()))
                                   : QString();
    return int(std::lround(qBound(double(minimum()), figure, double(maximum()))));
}

QString CRecoveryFocusSpinBox::textFromValue(int value) const
{
    return isMixed() && !m_typed ? QString() : QString::number(value);
}

/// What cannot be read counts as not typed.
void CRecoveryFocusSpinBox::fixup(QString &text) const
{
    if (!text.isEmpty() && m_typed)
        tell(tr("\"%1\" gives no figure, so the one before stays.").arg(text));
    m_typed = false;
}

void CRecoveryFocusSpinBox::commit()
{
    m_typed = false;
    if (!m_limit.isEmpty())
        tell(std::exchange(m_limit, {}));
    if (m_shown == value())
        return;
    m_shown = value();
    restore();
    Q_EMIT notifyFigureEntered(value());
}

/// The figure that was shown last.
void CRecoveryFocusSpinBox::restore()
{
    const QSignalBlocker blocker(this);
    m_typed = false;
    if (m_shown)
        setValue(*m_shown);
    else
        lineEdit()->clear();
    update();
}

void CRecoveryFocusSpinBox::recoverFocus()
{
    if (m_before)
        (m_heir ? m_heir : m_before)->setFocus(Qt::OtherFocusReason);
    m_before = nullptr;
}

void CRecoveryFocusSpinBox::tell(const QString &words) const
{
    if (m_words)
        m_words->tell(words);
}
