// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/input/CMnemonics.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QSet>
#include <QVector>

#include <functional>

namespace {

const QLatin1Char Mark('&');

/// The index of the letter of @p text that becomes the mnemonic; -1 if none is free.
int placeOfLetter(const QString &text, const QSet<QChar> &taken)
{
    int anywhere = -1;
    for (int i = 0; i < text.size(); ++i) {
        const QChar letter = text.at(i).toLower();
        if (!letter.isLetter() || letter.unicode() > 'z' || taken.contains(letter))
            continue;
        if (i == 0 || text.at(i - 1).isSpace())
            return i;
        if (anywhere < 0)
            anywhere = i;
    }
    return anywhere;
}

/// Whether @p widget is one of many in a table or a list, or a standard button.
bool isLeftOut(QWidget &widget)
{
    auto *button = qobject_cast<QAbstractButton *>(&widget);
    for (const QWidget *parent = widget.parentWidget(); parent && !parent->isWindow();
         parent = parent->parentWidget()) {
        const auto *box = qobject_cast<const QDialogButtonBox *>(parent);
        if (qobject_cast<const QAbstractItemView *>(parent) ||
            (box && (!button || box->standardButton(button) != QDialogButtonBox::NoButton)))
            return true;
    }
    return false;
}

/// The texts that can have a mnemonic, in the order of their creation.
QVector<QPair<QString, std::function<void(const QString &)>>> textsOf(const QDialog &dialog)
{
    QVector<QPair<QString, std::function<void(const QString &)>>> texts;
    const QList<QWidget *> children = dialog.findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (isLeftOut(*child))
            continue;
        auto *label = qobject_cast<QLabel *>(child);
        auto *button = qobject_cast<QAbstractButton *>(child);
        if (label && label->buddy())
            texts.append({label->text(), [label](const QString &text) { label->setText(text); }});
        else if (button)
            texts.append({button->text(), [button](const QString &text) { button->setText(text); }});
    }
    return texts;
}

} // namespace

void CMnemonics::assign(QDialog &dialog)
{
    const auto texts = textsOf(dialog);
    QSet<QChar> taken;
    for (const auto &entry : texts) {
        const int mark = entry.first.indexOf(Mark);
        if (mark >= 0 && mark + 1 < entry.first.size())
            taken.insert(entry.first.at(mark + 1).toLower());
    }
    for (const auto &entry : texts) {
        const QString &text = entry.first;
        const int place = text.contains(Mark) ? -1 : placeOfLetter(text, taken);
        if (place < 0)
            continue;
        taken.insert(text.at(place).toLower());
        entry.second(text.left(place) + Mark + text.mid(place));
    }
}
