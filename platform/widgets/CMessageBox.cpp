// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CMessageBox.h"

#include "platform/widgets/CDialog.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>

namespace {

constexpr int MessageMinimumWidth = 340;
constexpr int MostCharacters = 4000; // more take long to lay out, and nobody reads them
constexpr int MostLines = 25;

/// The beginning of @p text that fits on a screen.
QString bounded(const QString &text)
{
    const QString kept = text.left(MostCharacters).section(QLatin1Char('\n'), 0, MostLines - 1);
    return kept.size() == text.size() ? text : kept + QStringLiteral("\n…");
}

// A message box adapts to its layout each time it is shown, so the layout must request the width.
void widen(QMessageBox &box)
{
    auto *grid = qobject_cast<QGridLayout *>(box.layout());
    Q_ASSERT(grid);
    grid->addItem(new QSpacerItem(MessageMinimumWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

/// Shows a box and returns the button pressed.
int show(QMessageBox &box, const QString &details)
{
    box.setWindowTitle(QStringLiteral("Orvo"));
    box.setTextFormat(Qt::PlainText); // a file name may look like markup
    box.setInformativeText(bounded(details));
    widen(box);
    const int pressed = box.exec();
    CDialog::activateBelow(box);
    return pressed;
}

void tell(QMessageBox::Icon icon, QWidget *parent, const QString &text, const QString &details)
{
    QMessageBox box(icon, {}, bounded(text), QMessageBox::Ok, parent);
    show(box, details);
}

bool isAnsweredWithYes(QMessageBox::StandardButton byDefault, QWidget *parent, const QString &text,
                       const QString &details)
{
    QMessageBox box(QMessageBox::Question, {}, bounded(text), QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(byDefault);
    return show(box, details) == QMessageBox::Yes;
}

} // namespace

void CMessageBox::information(QWidget *parent, const QString &text, const QString &details)
{
    tell(QMessageBox::Information, parent, text, details);
}

void CMessageBox::warning(QWidget *parent, const QString &text, const QString &details)
{
    tell(QMessageBox::Warning, parent, text, details);
}

int CMessageBox::question(QWidget *parent, const QString &text, const QString &details)
{
    return isAnsweredWithYes(QMessageBox::Yes, parent, text, details) ? 0 : 1;
}

CMessageBox::Choice CMessageBox::choose(QWidget *parent, const QString &text, const QString &details,
                                        const QString &keep, const QString &lose)
{
    QMessageBox box(QMessageBox::Question, {}, bounded(text), QMessageBox::NoButton, parent);
    QPushButton *keeping = box.addButton(keep, QMessageBox::AcceptRole);
    const QPushButton *losing = box.addButton(lose, QMessageBox::DestructiveRole);
    box.addButton(QCoreApplication::translate("CMessageBox", "&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(keeping);
    show(box, details);
    return box.clickedButton() == keeping  ? Choice::Keep
           : box.clickedButton() == losing ? Choice::Lose
                                           : Choice::Cancel;
}

bool CMessageBox::confirm(QWidget *parent, const QString &text, const QString &details)
{
    return isAnsweredWithYes(QMessageBox::No, parent, text, details);
}
