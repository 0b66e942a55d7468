// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/access/CHostAccess.h"
#include "layout/api/access/IEditSource.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CTestBase.h"

#include <thread>

namespace {

using Host = ILayoutInterfaceHandler;

/// Its flush is seen among the calls of the host.
class CNotedEdits final : public IEditSource
{
public:
    CNotedEdits() { CHostAccess::setEdits(this); }
    ~CNotedEdits() override { CHostAccess::setEdits(nullptr); }
    void flushEdits() override { CHostAccess::callUnflushed<&Host::lastError>(); }
};

template <auto Operation, typename Answer, typename... Arguments>
bool callWithNothing(Answer (Host::*)(Arguments...))
{
    CHostAccess::call<Operation>(std::decay_t<Arguments>()...);
    return true;
}

template <auto Operation, typename Answer, typename... Arguments>
bool callWithNothing(Answer (Host::*)(Arguments...) const)
{
    CHostAccess::call<Operation>(std::decay_t<Arguments>()...);
    return false;
}

/// Calls an operation; adds its name if it is a command without, or a query with, a flush before it.
template <auto Operation>
void note(CFakeHost &host, QStringList &exceptions)
{
    host.answers()->forgetCalls();
    const bool command = callWithNothing<Operation>(Operation);
    const QStringList calls = host.answers()->calls();
    const bool flushed = calls.size() == 2 && calls.first() == QLatin1String("lastError");
    if (flushed != command)
        exceptions << calls.last().section(QLatin1Char('('), 0, 0);
}

template <auto... Operations>
QStringList exceptionsAmong(CFakeHost &host)
{
    QStringList exceptions;
    (note<Operations>(host, exceptions), ...);
    exceptions.sort();
    return exceptions;
}

} // namespace

class CHostAccessTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAHostTheAnswerIsEmpty()
    {
        QVERIFY(CHostAccess::call<&Host::processors>().isEmpty());
        QVERIFY(!CHostAccess::call<&Host::showScreen>(true));
        QVERIFY(!CHostAccess::call<&Host::setCabinetStatusLed>(true));
        CFakeHost host;
        QVERIFY(CHostAccess::call<&Host::showScreen>(true));
        QCOMPARE(CHostAccess::call([](Host &one) { return one.lastError(); }), host.answers()->error);
    }

    void aHandlerIsKeptForItsCallOnly()
    {
        CFakeHost host;
        const auto handler = host.handler();
        const long before = handler.use_count();
        long during = 0;
        CHostAccess::call([&](Host &) { during = handler.use_count(); });
        QCOMPARE(during, before + 1);
        QCOMPARE(handler.use_count(), before);
    }

    void editsAreHandedOverBeforeWhatDependsOnThem()
    {
        CFakeHost host;
        const CNotedEdits edits;
        host.answers()->answerLater = true; // what runs in the background
        const QStringList exceptions = exceptionsAmong<
            &Host::getCanvasSize, &Host::showScreen, &Host::applyLayoutFollowUp, &Host::getProcessorNode,
            &Host::commitLayoutData, &Host::exportProcessorMapping, &Host::importProcessorMapping,
            &Host::setCabinetStatusLed, &Host::getDetectedProcessorCount, &Host::layoutFollowUpNeeded,
            &Host::isFiberTransceiverMode, &Host::currentProcessorNode, &Host::layoutData,
            &Host::preparatoryStep, &Host::performPreparatoryStep, &Host::unsavedEdits, &Host::locksBeside,
            &Host::selectedProcessors, &Host::lastError, &Host::processors, &Host::copyProcessorMapping,
            &Host::outputPortCount, &Host::maximumPortCount, &Host::setOutputPortCount,
            &Host::setProcessorRedundancy, &Host::cancelProcessorRedundancy, &Host::processorRedundancies,
            &Host::processorOfCabinet, &Host::setWorkMode, &Host::typeLibrary, &Host::setCabinetHighlight,
            &Host::exportCabinetConfig, &Host::readbackCabinetConfig, &Host::isPortRedundancyBlocked,
            &Host::isPortRedundancySupported, &Host::setPortRedundancy, &Host::cancelPortRedundancy,
            &Host::exportPortMapping, &Host::importPortMapping, &Host::portLoad, &Host::portLoadDetails,
            &Host::readMapping, &Host::saveMapping, &Host::portAreas, &Host::setPortAreas,
            &Host::lowLatencyWidthLimit, &Host::isThreeDEnabled, &Host::applyProcessorRedundancy,
            &Host::areProcessorsOnline, &Host::areProcessorsBusy, &Host::portPairRefusal,
            &Host::portRedundancies, &Host::applyPortRedundancy, &Host::showTypeLibrary,
            &Host::areOnPrimaryPorts, &Host::sendCabinetParameters, &Host::currentGains,
            &Host::importCurrentGain, &Host::clearCurrentGains, &Host::sendCurrentGains, &Host::canvasLimits,
            &Host::canvasBlock, &Host::setCanvasSize, &Host::frameRate, &Host::colorDepth, &Host::signalModes,
            &Host::setFrameRateAndColorDepth, &Host::background, &Host::setBackground,
            &Host::setPrintSettings, &Host::writeFile, &Host::processorBoundingRects,
            &Host::setProcessorOffsets, &Host::recordEdit, &Host::editHistory, &Host::printSettings,
            &Host::setPortLocked, &Host::setPortColor>(host);
        const QStringList expected{QStringLiteral("applyLayoutFollowUp"),
                                   QStringLiteral("areOnPrimaryPorts"),
                                   QStringLiteral("commitLayoutData"),
                                   QStringLiteral("layoutData"),
                                   QStringLiteral("portPairRefusal"),
                                   QStringLiteral("portRedundancies"),
                                   QStringLiteral("processorOfCabinet"),
                                   QStringLiteral("recordEdit"),
                                   QStringLiteral("setPortColor"),
                                   QStringLiteral("setPortLocked"),
                                   QStringLiteral("setPrintSettings"),
                                   QStringLiteral("unsavedEdits"),
                                   QStringLiteral("writeFile")};
        QCOMPARE(exceptions, expected);
        host.answers()->forgetCalls();
        CHostAccess::call([](Host &one) { one.processors(); });
        QCOMPARE(host.answers()->calls(),
                 (QStringList{QStringLiteral("lastError"), QStringLiteral("processors")}));
        host.answers()->forgetCalls();
        std::thread([] { CHostAccess::call<&Host::clearCurrentGains>(); }).join(); // has nothing to hand over
        QCOMPARE(host.answers()->calls(), QStringList{QStringLiteral("clearCurrentGains")});
    }
};

ORVO_TEST_MAIN(QCoreApplication, CHostAccessTest)
#include "tst_host_access.moc"
