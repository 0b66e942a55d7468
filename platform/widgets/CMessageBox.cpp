// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CMessageBox.h"

#include <QGridLayout>
#include <QMessageBox>

namespace {

constexpr int MessageMinimumWidth = 340;

// A message box fits itself to its layout each time it is shown, so the layout has to ask for the width.
void widen(QMessageBox &box)
{
    auto *grid = qobject_cast<QGridLayout *>(box.layout());
    Q_ASSERT(grid);
    grid->addItem(new QSpacerItem(MessageMinimumWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

int show(QMessageBox::Icon icon, QMessageBox::StandardButtons buttons, QWidget *parent, const QString &text,
         const QString &details)
{
    QMessageBox box(icon, QStringLiteral("Orvo"), text, buttons, parent);
    box.setTextFormat(Qt::PlainText); // a file name may look like markup
    box.setInformativeText(details);
    if (buttons & QMessageBox::Yes)
        box.setDefaultButton(QMessageBox::Yes);
    widen(box);
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
