// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CMappingLabel.h"

#include "layout/api/records/EditRefusal.h"
#include "layout/panels/IMappingCommands.h"
#include "layout/panels/MappingRefusal.h"
#include "platform/widgets/CMenuToolButton.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPointer>

namespace {

constexpr int OptionWidth = 284;
constexpr QSize MappingButtonSize(96, 26);

} // namespace

CMappingLabel::CMappingLabel(const SUnitServices &services)
    : m_commands(services.mapping)
    , m_read(new CMenuToolButton(tr("Read")))
    , m_save(new CMenuToolButton(tr("Save")))
{
    buildUi();
    connectSignals();
    onCurrentProcessorChanged({});
}

void CMappingLabel::setBusy(bool busy)
{
    if (busy && !m_busy)
        m_focus.hold({m_read, m_save});
    m_busy = busy;
    updateEnabled();
    if (busy)
        m_focus.noteMeanwhile();
    else
        m_focus.giveBack();
}

void CMappingLabel::setEditingBlocked(bool locked, bool redundancy)
{
    m_readBlock = locked ? EditRefusal::of(true, redundancy) : QString();
    m_currentBlock = EditRefusal::of(false, redundancy);
    updateEnabled();
}

void CMappingLabel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor)
{
    m_refusal = MappingRefusal::of(processor);
    updateEnabled();
}

void CMappingLabel::onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor)
{
    onCurrentProcessorChanged(processor);
}

void CMappingLabel::onReadTriggered(QAction *action)
{
    SMappingOptions options;
    options.numberMapping = m_numberMapping->isChecked();
    options.realtime = m_realtime->isChecked();
    options.mappingFromProcessor = m_fromProcessor->isChecked();
    setBusy(true);
    m_commands.readMapping(action->data().value<ReadSaveMappingRole>(), options,
                           [self = QPointer<CMappingLabel>(this)](bool) {
                               if (self)
                                   self->setBusy(false);
                           });
}

void CMappingLabel::onSaveTriggered(QAction *action)
{
    setBusy(true);
    m_commands.saveMapping(action->data().value<ReadSaveMappingRole>(),
                           [self = QPointer<CMappingLabel>(this)](bool done) {
                               if (!self)
                                   return;
                               self->setBusy(false);
                               if (done)
                                   Q_EMIT self->notifySaveMappingSuccessed();
                           });
}

void CMappingLabel::buildUi()
{
    SetTitle(tr("Mapping"));
    addReadSection();
    addSaveSection();
}

void CMappingLabel::addReadSection()
{
    m_read->addAction(tr("Current processor cabinets"), QVariant::fromValue(ReadSaveMappingRole::Current));
    m_read->addAction(tr("All cabinets"), QVariant::fromValue(ReadSaveMappingRole::All));
    addSectionRow(tr("Read mapping"), m_read);

    const SMappingOptions initial;
    m_numberMapping =
        addOption(tr("OSD(Number mapping)"), tr("The cabinets show their numbers while they are read"),
                  initial.numberMapping);
    m_realtime = addOption(tr("Realtime mapping"), tr("Read again whenever the processor announces a change"),
                           initial.realtime);
    m_fromProcessor =
        addOption(tr("Mapping from processor"),
                  tr("Read the mapping saved in the processor, otherwise the one that the cabinets report"),
                  initial.mappingFromProcessor);
}

void CMappingLabel::addSaveSection()
{
    m_save->addAction(tr("Current processor and cabinets"),
                      QVariant::fromValue(ReadSaveMappingRole::Current));
    m_save->addAction(tr("All processors and cabinets"), QVariant::fromValue(ReadSaveMappingRole::All));
    addSectionRow(tr("Save mapping"), m_save);
}

void CMappingLabel::addSectionRow(const QString &caption, CMenuToolButton *button)
{
    button->setFixedSize(MappingButtonSize);
    auto *row = new QHBoxLayout;
    row->addWidget(new QLabel(caption));
    row->addStretch(1);
    row->addWidget(button);
    contentLayout()->addLayout(row);
}

QCheckBox *CMappingLabel::addOption(const QString &text, const QString &toolTip, bool checked)
{
    auto *option = new QCheckBox(text);
    option->setFixedWidth(OptionWidth);
    option->setToolTip(toolTip);
    option->setChecked(checked);
    contentLayout()->addWidget(option);
    return option;
}

void CMappingLabel::connectSignals()
{
    connect(m_read, &CMenuToolButton::notifyActionTriggered, this, &CMappingLabel::onReadTriggered);
    connect(m_save, &CMenuToolButton::notifyActionTriggered, this, &CMappingLabel::onSaveTriggered);
    for (CMenuToolButton *button : {m_read, m_save})
        connect(button->menu(), &QMenu::aboutToShow, this, [this, button] { updateEntries(*button); });
}

void CMappingLabel::updateEntries(CMenuToolButton &button)
{
    for (QAction *entry : button.menu()->actions()) {
        if (entry->data().value<ReadSaveMappingRole>() != ReadSaveMappingRole::All)
            continue;
        const QString refusal = m_commands.refusalForAll();
        entry->setEnabled(refusal.isEmpty());
        entry->setToolTip(refusal);
    }
}

/// An empty @p reason enables the button; any other says why it is disabled. @p currentReason is about its
/// entry for the processor in view alone.
void CMappingLabel::enable(CMenuToolButton &button, const QString &reason, const QString &currentReason)
{
    button.setDefaultBlocked(currentReason);
    button.setEnabled(reason.isEmpty());
    if (!reason.isEmpty())
        button.setToolTip(reason);
}

void CMappingLabel::updateEnabled()
{
    const QString reason = m_busy ? tr("The mapping is being read or saved.") : QString();
    enable(*m_read, reason.isEmpty() ? m_readBlock : reason,
           m_refusal.isEmpty() ? m_currentBlock : m_refusal);
    enable(*m_save, reason, m_refusal);
}
