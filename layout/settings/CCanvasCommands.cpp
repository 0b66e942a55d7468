// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCanvasCommands.h"

#include "layout/plugin/CHostAccess.h"
#include "layout/plugin/ILayoutInterfaceHandler.h"
#include "layout/settings/CCanvasBackgroundSetting.h"
#include "layout/settings/CCanvasSizeSetting.h"
#include "layout/settings/CEleCurrentAdjustDialog.h"
#include "layout/settings/CFrameRateColorDepthSetting.h"
#include "platform/widgets/CMessageBox.h"

namespace {

/// The processor in view; null: none.
QUuid processorInView()
{
    const auto handler = CHostAccess::handler();
    return handler ? handler->currentProcessorNode().uuid : QUuid();
}

} // namespace

CCanvasCommands::CCanvasCommands(QWidget &window, QObject *parent)
    : QObject(parent)
    , m_window(window)
{
}

void CCanvasCommands::setFrameRateAndColorDepth()
{
    const QUuid processor = processorInView();
    if (processor.isNull())
        return;
    const auto before = CHostAccess::handler();
    CFrameRateColorDepthSetting dialog(before->signalModes(), before->frameRate(), before->colorDepth(),
                                       &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (const auto handler = handlerOf(processor))
        report(*handler, handler->setFrameRateAndColorDepth(dialog.frameRate(), dialog.colorDepth()));
}

void CCanvasCommands::setCanvasSize()
{
    const QUuid processor = processorInView();
    if (processor.isNull())
        return;
    const auto before = CHostAccess::handler();
    CCanvasSizeSetting dialog(before->canvasLimits(), before->getCanvasSize(), &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (const auto handler = handlerOf(processor))
        report(*handler, handler->setCanvasSize(dialog.canvasSize()));
}

void CCanvasCommands::setCanvasFill()
{
    const QUuid processor = processorInView();
    if (processor.isNull())
        return;
    SBackgroundInfo before = CHostAccess::handler()->background(processor);
    before.processor = processor;
    CCanvasBackgroundSetting dialog(before, &m_window);
    connect(&dialog, &CCanvasBackgroundSetting::changed, this, &CCanvasCommands::previewed);
    bool done = false;
    if (dialog.exec() == QDialog::Accepted) {
        if (const auto handler = handlerOf(processor)) {
            done = handler->setBackground(dialog.info());
            report(*handler, done);
        }
    }
    if (!done && processorInView() == processor)
        Q_EMIT previewed(before);
}

void CCanvasCommands::adjustCurrentGain()
{
    const QUuid processor = processorInView();
    if (!processor.isNull())
        CEleCurrentAdjustDialog(processor, &m_window).exec();
}

void CCanvasCommands::report(const ILayoutInterfaceHandler &handler, bool done)
{
    if (!done)
        CMessageBox::information(&m_window, tr("Set failed."), handler.lastError());
}

/// The host, while it still shows the processor that the user was asked about; else null, and the user is
/// told.
std::shared_ptr<ILayoutInterfaceHandler> CCanvasCommands::handlerOf(const QUuid &processor)
{
    const auto handler = CHostAccess::handler();
    if (handler && processorInView() == processor)
        return handler;
    CMessageBox::information(&m_window, tr("Set failed."), tr("The processor is no longer in view."));
    return nullptr;
}
