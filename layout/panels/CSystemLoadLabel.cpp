// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CSystemLoadLabel.h"

#include "layout/data/CLayoutData.h"
#include "layout/panels/CSystemLoadProgressBar.h"
#include "layout/panels/ports/COverloadLine.h"
#include "layout/panels/ports/LoadText.h"

#include <QHelpEvent>
#include <QLabel>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

CSystemLoadLabel::CSystemLoadLabel(const SUnitServices &services)
    : m_store(services.store)
    , m_bar(new CSystemLoadProgressBar)
    , m_overload(new COverloadLine(services.store))
    , m_worst(new QLabel)
{
    SetTitle(tr("System load"));
    m_worst->setObjectName(QStringLiteral("Hint"));
    QFont small = m_worst->font();
    small.setPixelSize(11); // as the other line
    m_worst->setFont(small);
    m_worst->setMinimumHeight(m_overload->sizeHint().height()); // one takes the other's place
    contentLayout()->addWidget(m_bar);
    contentLayout()->addWidget(m_overload); // the mean does not show which port is overloaded
    contentLayout()->addWidget(m_worst);
    m_bar->installEventFilter(this);
    connect(&services.store, &CLayoutData::notifyProcessorPayloadChanged, this,
            &CSystemLoadLabel::onNotifyProcessorPayloadChanged);
    connect(&services.store, &CLayoutData::notifyProcessorPortPayloadChanged, this,
            &CSystemLoadLabel::scheduleWorst);
    connect(m_overload, &COverloadLine::notifySelectPorts, this, &CSystemLoadLabel::notifySelectPorts);
    onNotifyProcessorPayloadChanged(m_store.processorLoad()); // only changes are announced
    showWorst();
}

void CSystemLoadLabel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &)
{
    m_overload->refresh();
    showWorst();
}

void CSystemLoadLabel::onNotifyProcessorPayloadChanged(int load)
{
    m_bar->onNotifyProcessorPayloadChanged(load);
    scheduleWorst();
}

void CSystemLoadLabel::setLayoutShown(bool shown)
{
    m_shown = shown;
    m_overload->setLayoutShown(shown);
    showWorst();
}

/// Many loads that change at once are looked at once.
void CSystemLoadLabel::scheduleWorst()
{
    if (m_scheduled)
        return;
    m_scheduled = true;
    QTimer::singleShot(0, this, &CSystemLoadLabel::showWorst);
}

void CSystemLoadLabel::showWorst()
{
    m_scheduled = false;
    const int worst = LoadText::worstPort(m_store);
    const qint64 load = worst < 0 ? 0 : m_store.port(worst).load;
    m_bar->setKnown(m_shown);
    m_worst->setText(!m_shown    ? QStringLiteral("\u2013")
                     : worst < 0 ? tr("No output port is in use")
                                 : tr("Highest load: port %1, %2%").arg(worst + 1).arg(load));
    m_worst->setVisible(!m_shown || load <= 100); // otherwise the other line tells
}

/// The sum behind the load is asked of the host, so only when somebody wants to read it.
bool CSystemLoadLabel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_bar || event->type() != QEvent::ToolTip)
        return CUnitLabel::eventFilter(watched, event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                       LoadText::ofProcessor(m_store, m_bar->rawLoad()), m_bar);
    return true;
}
