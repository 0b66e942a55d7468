// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CBackupDialog.h"

#include "layout/redundancy/BackupMatch.h"
#include "layout/redundancy/CBackupList.h"
#include "layout/redundancy/CBackupTable.h"
#include "layout/redundancy/CBackupTableView.h"
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/CPureImageBtn.h"

#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {
constexpr QSize DialogSize(962, 566);
constexpr QSize ToolSize(16, 16);
constexpr int TitleHeight = 28;
constexpr int ListWidth = 296;
} // namespace

CBackupDialog::CBackupDialog(const QString &title, const QString &listTitle, CBackupTable *table,
                             QWidget *parent)
    : CDialog(title, QDialogButtonBox::Apply | QDialogButtonBox::Cancel, parent)
    , m_list(new CBackupList)
    , m_table(table)
{
    buildUi(listTitle);
    connectSignals();
}

void CBackupDialog::buildUi(const QString &listTitle)
{
    auto *listLabel = new QLabel(listTitle);
    listLabel->setFixedHeight(TitleHeight);
    listLabel->setBuddy(m_list);
    m_list->setAccessibleName(listTitle);
    m_list->setFixedWidth(ListWidth);
    auto *left = new QVBoxLayout;
    left->setSpacing(4);
    left->addWidget(listLabel);
    left->addWidget(m_list, 1);

    auto *tableLabel = new QLabel(tr("Primary and redundancy"));
    tableLabel->setFixedHeight(TitleHeight);
    tableLabel->setBuddy(&m_table->view());
    m_table->view().setAccessibleName(tr("Primary and redundancy"));
    auto *tools = new QHBoxLayout;
    tools->setSpacing(12);
    tools->addWidget(tableLabel, 1);
    m_auto = addTool(*tools, QStringLiteral(":/Image/Layout/Backup/auto"), tr("Auto match"));
    m_clear = addTool(*tools, QStringLiteral(":/Image/OperateButton/clear"), tr("Clear"));
    m_reset = addTool(*tools, QStringLiteral(":/Image/Layout/Backup/reset"), tr("Reset"));
    auto *right = new QVBoxLayout;
    right->setSpacing(4);
    right->addLayout(tools);
    right->addWidget(m_table, 1);

    auto *sides = new QHBoxLayout;
    sides->setSpacing(16);
    sides->addLayout(left);
    sides->addLayout(right, 1);
    auto *hint = new QLabel(tr("Drag an entry into a cell, or press Enter on it. Delete empties a cell, "
                               "F6 changes between list and table."));
    hint->setEnabled(false); // in the dimmed colour of the theme
    contentLayout()->setSpacing(8);
    contentLayout()->addLayout(sides, 1);
    contentLayout()->addWidget(hint);
    setDefaultButton(QDialogButtonBox::Apply);
    setFixedSize(DialogSize);
}

CPureImageBtn *CBackupDialog::addTool(QLayout &row, const QString &family, const QString &text)
{
    auto *tool = new CPureImageBtn(family);
    tool->setObjectName(QStringLiteral("BGTransparent"));
    tool->setIconSize(ToolSize);
    tool->setFixedSize(ToolSize);
    tool->setText(text); // for its mnemonic; only the picture is shown
    tool->setToolTip(text);
    row.addWidget(tool);
    return tool;
}

void CBackupDialog::connectSignals()
{
    connect(m_list, &CBackupList::notifyChosen, m_table, &CBackupTable::putIntoCurrent);
    connect(m_table, &CBackupTable::notifyFillAsked, this,
            [this] { m_table->putIntoCurrent(m_list->currentKey()); });
    connect(m_table, &CBackupTable::notifyRowsChanged, this, &CBackupDialog::updateTools);
    connect(m_auto, &QAbstractButton::clicked, m_table, &CBackupTable::autoMatch);
    connect(m_clear, &QAbstractButton::clicked, m_table, &CBackupTable::clearRows);
    connect(m_reset, &QAbstractButton::clicked, this, [this] { m_table->setRows(m_atOpening); });
    connect(buttonBox()->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &CBackupDialog::onApply);
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this, &CBackupDialog::switchSides);
}

void CBackupDialog::refill()
{
    const QList<SBackupEntry> entries = readEntries();
    const QList<SBackupPair> pairs = readPairs();
    m_list->setEntries(entries);
    m_table->setEntries(entries);
    m_table->setRows(pairs);
    if (!m_filled)
        m_atOpening = pairs;
    m_filled = true;
    updateTools();
}

void CBackupDialog::onApply()
{
    QPushButton *button = buttonBox()->button(QDialogButtonBox::Apply);
    button->setEnabled(false);
    applyRows();
    button->setEnabled(true);
    button->setFocus(); // a disabled button has lost it
}

void CBackupDialog::applyRows()
{
    QList<SBackupPair> pairs;
    if (!BackupMatch::take(m_table->rows(), pairs)) {
        CMessageBox::information(this, tr("Invalid primary-redundancy settings."));
        return;
    }
    if (!confirm(pairs))
        return;
    const QString refusal = apply(pairs);
    refill();
    Q_EMIT notifyApplied(refusal);
}

void CBackupDialog::updateTools()
{
    const QList<SBackupPair> rows = m_table->rows();
    m_clear->setEnabled(!rows.isEmpty());
    m_reset->setEnabled(rows != m_atOpening);
    m_auto->setEnabled(m_list->count() > 1);
}

void CBackupDialog::switchSides()
{
    if (m_list->hasFocus())
        m_table->view().setFocus(Qt::ShortcutFocusReason);
    else
        m_list->setFocus(Qt::ShortcutFocusReason);
}
