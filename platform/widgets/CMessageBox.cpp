// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CMessageBox.h"

#include <QMessageBox>

namespace {

int show(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons, QWidget *parent, const QString &text,
         const QString &details)
{
    QMessageBox box(icon, QStringLiteral("Orvo"), text, buttons, parent);
    box.setTextFormat(Qt::PlainText); // a file name may look like markup
    box.setInformativeText(details);
    if (buttons & QMessageBox::Yes)
        box.setDefaultButton(QMessageBox::Yes);
    return box.exec();
}

} // namespace

void CMessageBox::information(QWidget *parent, const QString &text, const QString &details)
{
    show(QMessageBox::Information, QMessageBox::Ok, parent, text, details);
}

int CMessageBox::question(QWidget *parent, const QString &text, const QString &details)
{
    const int answer = show(QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, parent, text, details);
    return answer == QMessageBox::Yes ? 0 : 1;
}
