// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/help/CReportDialog.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

CReportDialog::CReportDialog(const QString &title, const QString &intro, const QString &text, QWidget *parent)
    : CDialog(title, QDialogButtonBox::Close, parent)
{
    auto *label = new QLabel(intro);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    contentLayout()->addWidget(label);
    m_text = new QPlainTextEdit(text);
    m_text->setObjectName(QStringLiteral("Report"));
    m_text->setAccessibleName(title);
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    contentLayout()->addWidget(m_text);
    const QPushButton *copy = buttonBox()->addButton(tr("Co&py"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_text->toPlainText()); });
    setDefaultButton(QDialogButtonBox::Close);
    resize(840, 520);
}

void CReportDialog::scrollToEnd()
{
    m_text->verticalScrollBar()->setValue(m_text->verticalScrollBar()->maximum());
}
