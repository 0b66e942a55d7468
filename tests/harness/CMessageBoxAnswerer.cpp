// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CMessageBoxAnswerer.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace {

QString plainText(const QAbstractButton *button)
{
    return button ? button->text().remove(QLatin1Char('&')) : QString();
}

CMessageBoxAnswerer::SBox describe(const QMessageBox &box)
{
    CMessageBoxAnswerer::SBox seen;
    seen.icon = box.icon();
    seen.title = box.windowTitle();
    seen.text = box.text();
    seen.details = box.informativeText();
    for (const QAbstractButton *button : box.buttons()) {
        seen.buttons << plainText(button);
        const auto *pushButton = qobject_cast<const QPushButton *>(button);
        if (pushButton && pushButton->isDefault())
            seen.defaultButton = plainText(button);
    }
    return seen;
}

} // namespace

CMessageBoxAnswerer::CMessageBoxAnswerer(const QStringList &answers)
    : m_answers(answers)
{
    qApp->installEventFilter(this);
}

CMessageBoxAnswerer::~CMessageBoxAnswerer()
{
    qApp->removeEventFilter(this);
}

QStringList CMessageBoxAnswerer::texts() const
{
    QStringList texts;
    for (const SBox &box : m_boxes)
        texts << box.text;
    return texts;
}

bool CMessageBoxAnswerer::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QMessageBox *>(watched);
    // The box itself is answered from its own event loop, once it is ready for a click.
    if (box && event->type() == QEvent::Show)
        QTimer::singleShot(0, this, [this, shown = QPointer<QMessageBox>(box)] {
            if (shown)
                answer(*shown);
        });
    return QObject::eventFilter(watched, event);
}

void CMessageBoxAnswerer::answer(QMessageBox &box)
{
    const SBox seen = describe(box);
    m_boxes << seen;
    if (seen.text.endsWith(QLatin1String("failed.")) && seen.icon != QMessageBox::Warning)
        qWarning("a failure without a warning sign: \"%s\"", qUtf8Printable(seen.text));
    const QString wanted = m_answers.isEmpty() ? QString() : m_answers.takeFirst();
    for (QAbstractButton *button : box.buttons()) {
        if (!wanted.isEmpty() && plainText(button) == wanted) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    qWarning("no answer \"%s\" to the message box \"%s\"", qUtf8Printable(wanted), qUtf8Printable(seen.text));
    box.reject();
}
