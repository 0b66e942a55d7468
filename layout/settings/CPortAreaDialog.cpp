// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CPortAreaDialog.h"

#include "layout/api/ILayoutInterfaceHandler.h"
#include "layout/api/access/CHostAccess.h"
#include "layout/settings/COutPortTable.h"
#include "layout/settings/CProcessorInView.h"
#include "platform/widgets/CMessageBox.h"

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

using Host = ILayoutInterfaceHandler;

/// An area for each port of @p processor; zeros where the host has none.
QList<SPortArea> areasOfAllPorts(const QUuid &processor)
{
    const QList<SPortArea> set = CHostAccess::call<&Host::portAreas>();
    const int count = CHostAccess::call<&Host::outputPortCount>(processor);
    QList<SPortArea> areas;
    for (int port = 0; port < count; ++port) {
        const auto known =
            std::find_if(set.begin(), set.end(), [port](const SPortArea &area) { return area.port == port; });
        areas << (known != set.end() ? *known : SPortArea{quint16(port), 0, 0, 0, 0});
    }
    return areas;
}

} // namespace

void CPortAreaDialog::edit(QWidget *parent)
{
    const QUuid processor = CProcessorInView::key();
    if (processor.isNull())
        return;
    CPortAreaDialog dialog(areasOfAllPorts(processor), parent);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QList<SPortArea> areas = dialog.areas();
    CProcessorInView::carryOut(processor, parent,
                               [&areas](ILayoutInterfaceHandler &host) { return host.setPortAreas(areas); });
}

CPortAreaDialog::CPortAreaDialog(const QList<SPortArea> &areas, QWidget *parent)
    : CDialog(tr("Port area"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_given(areas)
    , m_table(new COutPortTable(areas))
    , m_hint(new QLabel)
{
    buildUi();
    showHint();
}

QList<SPortArea> CPortAreaDialog::areas() const
{
    return m_table->areas();
}

void CPortAreaDialog::accept()
{
    m_table->commitOpenEditor();
    CDialog::accept();
}

void CPortAreaDialog::reject()
{
    m_table->commitOpenEditor();
    if (areas() == m_given)
        CDialog::reject();
    else if (CMessageBox::question(this, tr("The data has been modified, whether to save?")) == 0)
        accept();
    else
        CDialog::reject();
}

void CPortAreaDialog::buildUi()
{
    m_hint->setWordWrap(true);
    contentLayout()->addWidget(m_table, 1);
    contentLayout()->addWidget(m_hint);
}

void CPortAreaDialog::showHint()
{
    m_widthLimit = CHostAccess::call<&Host::lowLatencyWidthLimit>();
    QString text;
    if (m_widthLimit > 0)
        text = tr("Low latency will be disabled when the width of LED display from any single output port is "
                  "over %1.")
                   .arg(m_widthLimit);
    if (CHostAccess::call<&Host::isThreeDEnabled>())
        text = tr("3D is enabled, and each port has a maximum load of 640*512.");
    m_hint->setText(text);
    m_hint->setVisible(!text.isEmpty());
    updateHintColor();
}

/// Tells of the areas that the processor has. It compares its limit with the heights, although it calls it a
/// width.
void CPortAreaDialog::updateHintColor()
{
    const QList<SPortArea> shown = areas();
    const bool over =
        m_widthLimit > 0 && std::any_of(shown.begin(), shown.end(),
                                        [this](const SPortArea &area) { return area.height > m_widthLimit; });
    QPalette palette;
    if (over) {
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            palette.setColor(group, QPalette::WindowText, Qt::red);
    }
    m_hint->setPalette(palette);
}
