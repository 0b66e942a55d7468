// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CPrintChoice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QVBoxLayout>

namespace {
constexpr int ListHeight = 84;
}

CPrintChoice::CPrintChoice(const SPrintInput &input, const QList<QUuid> &chosen)
    : m_input(input)
    , m_processors(new QListWidget)
    , m_scope(new QComboBox)
    , m_own(new QCheckBox(tr("Other settings than those of the job")))
{
    m_processors->setFixedHeight(ListHeight);
    m_processors->setAccessibleName(tr("Processors"));
    m_scope->setAccessibleName(tr("Settings of"));
    m_scope->addItem(tr("Settings of the whole job"), QUuid());
    addProcessors(chosen);
    addEmpty();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_processors);
    column->addWidget(m_scope);
    column->addWidget(m_own);
    connect(m_processors, &QListWidget::itemChanged, this, &CPrintChoice::notifyChosenChanged);
    connect(m_scope, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CPrintChoice::notifyScopeChanged);
    connect(m_own, &QCheckBox::clicked, this, &CPrintChoice::notifyOwnToggled);
}

void CPrintChoice::addProcessors(const QList<QUuid> &chosen)
{
    for (const SPrintedProcessor &processor : m_input.processors) {
        const QUuid key = processor.node.uuid;
        auto *item = new QListWidgetItem(processor.node.displayText(), m_processors);
        item->setData(Qt::UserRole, key);
        item->setToolTip(item->text());
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(chosen.contains(key) ? Qt::Checked : Qt::Unchecked);
        if (key == chosen.value(0))
            m_processors->setCurrentItem(item); // comes into view with the dialog
        m_scope->addItem(tr("Settings of %1").arg(processor.node.name), key);
    }
}

void CPrintChoice::addEmpty()
{
    QMap<QUuid, ProcessorTree::ProcessorNode> empty = m_input.others;
    for (const SPrintedProcessor &processor : m_input.processors)
        empty.remove(processor.node.uuid);
    QStringList names;
    for (const ProcessorTree::ProcessorNode &node : qAsConst(empty))
        names << (m_input.unread.contains(node.uuid) ? tr("%1: not read yet") : tr("%1: no cabinets"))
                     .arg(node.displayText());
    names.sort(Qt::CaseInsensitive);
    for (const QString &name : qAsConst(names)) {
        auto *item = new QListWidgetItem(name, m_processors);
        item->setToolTip(name);
        item->setFlags(Qt::NoItemFlags);
    }
}

SPrintInput CPrintChoice::chosenInput() const
{
    SPrintInput input = m_input;
    input.processors.clear();
    for (int i = 0; i < m_input.processors.size(); ++i) {
        if (m_processors->item(i)->checkState() == Qt::Checked)
            input.processors << m_input.processors.at(i);
    }
    return input;
}

QUuid CPrintChoice::scope() const
{
    return m_scope->currentData().toUuid();
}

bool CPrintChoice::hasOwn() const
{
    return m_own->isChecked();
}

void CPrintChoice::setOwn(bool own)
{
    m_own->setVisible(!scope().isNull());
    m_own->setChecked(own);
}
