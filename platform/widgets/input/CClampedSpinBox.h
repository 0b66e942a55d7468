// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CStatusWords.h"

#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLocale>
#include <QPointer>
#include <QSpinBox>

#include <limits>

/// A spin box that treats a typed number beyond its range as the nearest limit, and shows that limit when the
/// input ends. Qt's own spin boxes drop the digit that exceeds the maximum, so that 4000 becomes 400, and
/// restore the previous value if the number is too small. The status bar of the main window tells the limit.
template <typename SpinBox>
class CClampedSpinBox final : public SpinBox
{
public:
    using SpinBox::SpinBox;

protected:
    using Number = decltype(std::declval<SpinBox>().value());

    QValidator::State validate(QString &text, int &position) const override
    {
        const QValidator::State state = SpinBox::validate(text, position);
        return state == QValidator::Invalid && isAboveRange(text) ? QValidator::Acceptable : state;
    }

    Number valueFromText(const QString &text) const override
    {
        if (!isAboveRange(text))
            return SpinBox::valueFromText(text);
        tell(QCoreApplication::translate("CClampedSpinBox", "The largest figure here is %1.")
                 .arg(QLocale().toString(this->maximum())));
        return this->maximum();
    }

    /// More digits may follow a number that is too small, so it is corrected only when the input ends.
    void fixup(QString &text) const override
    {
        SpinBox::fixup(text);
        if (!(numberIn(text) < this->minimum()))
            return;
        tell(QCoreApplication::translate("CClampedSpinBox", "The least figure here is %1.")
                 .arg(QLocale().toString(this->minimum())));
        text = this->prefix() + this->textFromValue(this->minimum()) + this->suffix();
    }

    /// Return accepts a dialog only if the text already shows the value that is used.
    void keyPressEvent(QKeyEvent *event) override
    {
        const QString typed = this->text();
        SpinBox::keyPressEvent(event);
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && this->text() != typed)
            event->accept();
        if (this->text() == typed && isForeign(event->text()))
            tell(QCoreApplication::translate("CClampedSpinBox", "Only numbers can be typed here."));
    }

private:
    void tell(const QString &words) const
    {
        if (m_words)
            m_words->tell(words);
    }
    /// Digits are refused for other reasons, and whoever types the unit, too, sees what was typed.
    bool isForeign(const QString &key) const
    {
        return !key.isEmpty() && key.at(0).isPrint() && !key.at(0).isDigit() && !this->suffix().contains(key);
    }
    bool isAboveRange(const QString &text) const { return numberIn(text) > this->maximum(); }

    /// NaN, which is neither above nor below anything, if @p text is not a number.
    double numberIn(QString text) const
    {
        if (text.startsWith(this->prefix()))
            text.remove(0, this->prefix().size());
        if (text.endsWith(this->suffix()))
            text.chop(this->suffix().size());
        bool isNumber = false;
        const double number = this->locale().toDouble(text.trimmed(), &isNumber);
        return isNumber ? number : std::numeric_limits<double>::quiet_NaN();
    }

    QPointer<CStatusWords> m_words = new CStatusWords(*this);
};

using CSpinBox = CClampedSpinBox<QSpinBox>;
using CDoubleSpinBox = CClampedSpinBox<QDoubleSpinBox>;
