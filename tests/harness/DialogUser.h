// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CDialog.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

/// Calls @p act with the next dialog once it is on screen.
template <typename Dialog>
void inNext(const std::function<void(Dialog &)> &act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        act(*dialog);
    });
}

inline QPushButton *okOf(const CDialog &dialog)
{
    return dialog.buttonBox()->button(QDialogButtonBox::Ok);
}

/// A text as shown, without the mark of its mnemonic.
inline QString withoutMnemonic(QString text)
{
    return text.remove(QLatin1Char('&'));
}

/// The button, label or such with that text; null: none.
template <typename Control>
Control *found(const QWidget &dialog, const QString &text)
{
    for (Control *control : dialog.findChildren<Control *>()) {
        if (withoutMnemonic(control->text()) == text)
            return control;
    }
    return nullptr;
}

inline QPushButton *buttonOf(const QWidget &dialog, const QString &text)
{
    return found<QPushButton>(dialog, text);
}

/// The control with the accessible name @p name; null: none.
template <typename Control>
Control *named(const QWidget &dialog, const char *name)
{
    for (Control *control : dialog.findChildren<Control *>()) {
        if (control->accessibleName() == QLatin1String(name))
            return control;
    }
    return nullptr;
}

/// The buddy of the label with that text; null: none.
template <typename Control>
Control *labelled(const QWidget &dialog, const char *text)
{
    for (const QLabel *label : dialog.findChildren<QLabel *>()) {
        if (withoutMnemonic(label->text()) == QLatin1String(text))
            return qobject_cast<Control *>(label->buddy());
    }
    return nullptr;
}

/// The entry of a menu or of its submenus, by texts that are separated by ">", without what follows a tab;
/// null: none.
inline QAction *entryOf(const QMenu &menu, const QString &path)
{
    const QString first = path.section(QLatin1Char('>'), 0, 0);
    for (QAction *action : menu.actions()) {
        if (action->text().section(QLatin1Char('\t'), 0, 0) == first)
            return first == path ? action : entryOf(*action->menu(), path.mid(first.size() + 1));
    }
    return nullptr;
}
