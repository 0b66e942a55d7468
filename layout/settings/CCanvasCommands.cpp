// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasCommands.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/settings/CCanvasBackgroundSetting.h"
#include "layout/settings/CCanvasSizeSetting.h"
#include "layout/settings/CEleCurrentAdjustDialog.h"
#include "layout/settings/CFrameRateColorDepthSetting.h"
#include "platform/widgets/CMessageBox.h"

namespace {
using Host = ILayoutInterfaceHandler;
}

CCanvasCommands::CCanvasCommands(QWidget &window, QObject *parent)
    : QObject(parent)
    , m_window(window)
{
}

void CCanvasCommands::setFrameRateAndColorDepth()
{
    const QUuid processor = CProcessorInView::key();
    if (processor.isNull())
        return;
    CFrameRateColorDepthSetting dialog(CHostAccess::call<&Host::signalModes>(),
                                       CHostAccess::call<&Host::frameRate>(),
                                       CHostAccess::call<&Host::colorDepth>(), &m_window);
    if (dialog.exec() == QDialog::Accepted)
        set(processor, [&dialog](ILayoutInterfaceHandler &host) {
            return host.setFrameRateAndColorDepth(dialog.frameRate(), dialog.colorDepth());
        });
}

void CCanvasCommands::setCanvasSize()
{
    const QUuid processor = CProcessorInView::key();
    if (processor.isNull())
        return;
    CCanvasSizeSetting dialog(CHostAccess::call<&Host::canvasLimits>(),
                              CHostAccess::call<&Host::getCanvasSize>(), &m_window);
    if (dialog.exec() == QDialog::Accepted)
        set(processor,
            [&dialog](ILayoutInterfaceHandler &host) { return host.setCanvasSize(dialog.canvasSize()); });
}

void CCanvasCommands::setCanvasFill()
{
    const QUuid processor = CProcessorInView::key();
    if (processor.isNull())
        return;
    SBackgroundInfo before = CHostAccess::call<&Host::background>(processor);
    before.processor = processor;
    CCanvasBackgroundSetting dialog(before, &m_window);
    connect(&dialog, &CCanvasBackgroundSetting::notifyChanged, this,
            [this, processor](const SBackgroundInfo &info) {
                if (CProcessorInView::key() == processor)
                    Q_EMIT notifyFillPreviewed(info);
            });
    const auto send = [&dialog](ILayoutInterfaceHandler &host) { return host.setBackground(dialog.info()); };
    const bool done = dialog.exec() == QDialog::Accepted && set(processor, send);
    if (!done && CProcessorInView::key() == processor)
        Q_EMIT notifyFillPreviewed(before);
}

bool CCanvasCommands::set(const QUuid &processor, const CProcessorInView::Operation &operation)
{
    const bool done = CProcessorInView::carryOut(processor, &m_window, operation);
    if (done)
        CMessageBox::information(&m_window, tr("Set successful."));
    return done;
}

void CCanvasCommands::adjustCurrentGain()
{
    const QUuid processor = CProcessorInView::key();
    if (!processor.isNull())
        CEleCurrentAdjustDialog(processor, &m_window).exec();
}
