// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CDialog.h"

#include "platform/widgets/input/CMnemonics.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int DialogMargin = 12;
constexpr int RoomBesideTitle = 100; // pixels: what window managers put beside it

/// The width at which a window shows its whole @p title, which window managers may draw in bold.
int widthForTitle(const QString &title, QFont font)
{
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(title) + RoomBesideTitle;
}

} // namespace

CDialog::CDialog(const QString &title, QDialogButtonBox::StandardButtons buttons, QWidget *parent)
    : QDialog(parent)
    , m_content(new QVBoxLayout)
    , m_buttons(new QDialogButtonBox(buttons, this))
{
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    buildUi();
    connectSignals();
}

void CDialog::setDefaultButton(QDialogButtonBox::StandardButton button)
{
    QPushButton *pushButton = m_buttons->button(button);
    Q_ASSERT(pushButton);
    pushButton->setDefault(true);
}

void CDialog::done(int result)
{
    QDialog::done(result);
    activateBelow(*this);
}

void CDialog::activateBelow(const QWidget &closed)
{
    // While another program is active it stays so.
    if (closed.parentWidget() && QGuiApplication::applicationState() == Qt::ApplicationActive)
        closed.parentWidget()->window()->activateWindow();
}

void CDialog::buildUi()
{
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
    outer->setSpacing(12);
    outer->addLayout(m_content, 1);
    outer->addWidget(m_buttons);
    outer->addStrut(widthForTitle(windowTitle(), font()) - 2 * DialogMargin);
}

void CDialog::connectSignals()
{
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void CDialog::showEvent(QShowEvent *event)
{
    putButtonsLast();
    CMnemonics::assign(*this);
    QDialog::showEvent(event);
}

void CDialog::putButtonsLast()
{
    // The row of buttons is created before the content, and by default the Tab key follows the order of
    // creation.
    QWidget *last = nullptr;
    for (QWidget *widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy() && !m_buttons->isAncestorOf(widget))
            last = widget;
    }
    if (!last)
        return;
    m_buttons->setFocusProxy(nullptr);         // because setTabOrder() would use the focus proxy instead
    const QLayout &row = *m_buttons->layout(); // has them as they are seen, buttons() by their roles
    for (int i = row.count() - 1; i >= 0; --i) {
        if (QWidget *button = row.itemAt(i)->widget())
            setTabOrder(last, button);
    }
}
