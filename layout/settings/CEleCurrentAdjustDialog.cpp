// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CEleCurrentAdjustDialog.h"

#include "layout/api/ILayoutInterfaceHandler.h"
#include "layout/settings/CEleCurrentAdjustTable.h"
#include "platform/widgets/CMessageBox.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {
constexpr QSize GainDialogSize(580, 411);
constexpr QSize GainButtonSize(72, 24);
} // namespace

CEleCurrentAdjustDialog::CEleCurrentAdjustDialog(const QUuid &processor, QWidget *parent)
    : CDialog(tr("Current gain parameter settings"), QDialogButtonBox::NoButton, parent)
    , m_processor(processor)
    , m_table(new CEleCurrentAdjustTable)
{
    buildUi();
    connectSignals();
    QTimer::singleShot(0, this, &CEleCurrentAdjustDialog::readGains);
}

void CEleCurrentAdjustDialog::buildUi()
{
    m_import = addButton(tr("Import..."));
    m_refresh = addButton(tr("Refresh"));
    m_clear = addButton(tr("Clear"));
    m_save = addButton(tr("Save"));
    m_save->setObjectName(QStringLiteral("BlueButton"));
    m_save->setDefault(true);
    m_clear->setEnabled(false);
    m_save->setEnabled(false);

    auto *above = new QHBoxLayout;
    above->addWidget(m_import);
    above->addWidget(m_refresh);
    above->addStretch();
    auto *below = new QHBoxLayout;
    below->addStretch();
    below->addWidget(m_clear);
    below->addWidget(m_save);
    contentLayout()->setSpacing(12);
    contentLayout()->addLayout(above);
    contentLayout()->addWidget(m_table);
    contentLayout()->addStretch();
    contentLayout()->addLayout(below);
    buttonBox()->hide();
    setFixedSize(GainDialogSize);
}

QPushButton *CEleCurrentAdjustDialog::addButton(const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setFixedSize(GainButtonSize);
    button->setStyleSheet(QStringLiteral("padding-left: 4px; padding-right: 4px;")); // or the text is cut off
    return button;
}

void CEleCurrentAdjustDialog::connectSignals()
{
    connect(m_table, &CEleCurrentAdjustTable::notifySwitched, this, &CEleCurrentAdjustDialog::updateButtons);
    connect(m_import, &QPushButton::clicked, this, &CEleCurrentAdjustDialog::importFile);
    connect(m_refresh, &QPushButton::clicked, this, &CEleCurrentAdjustDialog::refresh);
    connect(m_clear, &QPushButton::clicked, this, &CEleCurrentAdjustDialog::clear);
    connect(m_save, &QPushButton::clicked, this, &CEleCurrentAdjustDialog::accept);
}

void CEleCurrentAdjustDialog::readGains()
{
    carryOut(tr("Refresh failed."), [this](const ILayoutInterfaceHandler &host) {
        m_table->setGains(host.currentGains());
        return true;
    });
}

void CEleCurrentAdjustDialog::importFile()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Import..."), QString(), tr("CurrentAdjustParam File(*.acr)"));
    if (file.isEmpty())
        return;
    const auto import = [this, &file](ILayoutInterfaceHandler &host) {
        if (!host.importCurrentGain(file))
            return false;
        m_table->updateGains(host.currentGains());
        return true;
    };
    if (carryOut(tr("Import failed."), import))
        CMessageBox::information(this, tr("Import successful."));
}

void CEleCurrentAdjustDialog::refresh()
{
    if (mayLoseSwitches(tr("There are switches that were not saved. Read all again without them?")))
        readGains();
}

void CEleCurrentAdjustDialog::clear()
{
    if (!CMessageBox::confirm(this, tr("Remove all current gain parameters, also from the processor?")))
        return;
    const auto clear = [](ILayoutInterfaceHandler &host) { return host.clearCurrentGains(); };
    if (!carryOut(tr("Clear failed."), clear))
        return;
    readGains();
    CMessageBox::information(this, tr("Clear successful."));
}

void CEleCurrentAdjustDialog::accept()
{
    const auto send = [this](ILayoutInterfaceHandler &host) {
        return host.sendCurrentGains(m_table->gains());
    };
    if (!carryOut(tr("Save failed."), send))
        return;
    CMessageBox::information(this, tr("Save successful."));
    CDialog::accept();
}

void CEleCurrentAdjustDialog::reject()
{
    if (mayLoseSwitches(tr("There are switches that were not saved. Close without them?")))
        CDialog::reject();
}

void CEleCurrentAdjustDialog::updateButtons()
{
    m_clear->setEnabled(m_table->hasImported());
    m_save->setEnabled(m_table->isSwitched() || m_table->hasImported());
}

/// The Tab key follows the order of creation, and the rows are created after the buttons below them.
void CEleCurrentAdjustDialog::orderTabs()
{
    QWidget *last = m_refresh;
    for (QCheckBox *box : m_table->findChildren<QCheckBox *>()) {
        setTabOrder(last, box);
        last = box;
    }
    setTabOrder(last, m_clear);
    setTabOrder(m_clear, m_save);
}

/// Asks @p question if there are unsaved switches.
bool CEleCurrentAdjustDialog::mayLoseSwitches(const QString &question)
{
    return !m_table->isSwitched() || CMessageBox::confirm(this, question);
}

bool CEleCurrentAdjustDialog::carryOut(const QString &failure, const CProcessorInView::Operation &operation)
{
    const bool done = CProcessorInView::carryOut(m_processor, this, operation, failure);
    updateButtons();
    orderTabs();
    return done;
}
