// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/devices/CDeviceFixture.h"

#include "host/devices/services/CSimulatedPark.h"
#include "host/library/CTypeLibrary.h"
#include "tests/harness/CTestBase.h"

#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <QVariant>

#include <memory>
#include <optional>
#include <thread>

namespace {

QString joined(std::initializer_list<QVariant> parts)
{
    QString text;
    for (const QVariant &part : parts)
        text += QLatin1Char(' ') +
                (part.userType() == QMetaType::QUuid ? CDeviceFixture::idOf(part.toUuid()) : part.toString());
    return text;
}

QString argumentText(CSubject &subject)
{
    switch (static_cast<LayoutNotification>(subject.code())) {
    case LayoutNotification::PortBackupChanged: {
        const auto change = subject.GetArgument<SPortBackupChange>();
        return joined({change.primary, change.backup, QLatin1String(change.on ? "on" : "off")});
    }
    case LayoutNotification::ProcessorRemoved:
    case LayoutNotification::LayoutReplaced:
    case LayoutNotification::UnsavedEditsChanged:
    case LayoutNotification::CurrentProcessorChanged:
        return joined({subject.GetArgument<QUuid>()});
    case LayoutNotification::BackgroundChanged:
        return joined({subject.GetArgument<SBackgroundInfo>().processor});
    case LayoutNotification::CanvasSizeChanged: {
        const auto change = subject.GetArgument<SCanvasSizeChange>();
        return joined({change.processor, change.size.width(), change.size.height()});
    }
    case LayoutNotification::ProcessorStateChanged: {
        const auto change = subject.GetArgument<SProcessorStateChange>();
        return joined({change.processor, int(change.online)});
    }
    case LayoutNotification::PortLoadsChanged: {
        const auto change = subject.GetArgument<SPortLoadChange>();
        return joined({change.processor, change.port});
    }
    case LayoutNotification::SelectedNodeChanged: {
        const auto change = subject.GetArgument<SSelectedNodeChange>();
        QString text = joined({int(change.type)});
        for (auto it = change.rects.begin(); it != change.rects.end(); ++it)
            text += joined({it.key(), it->x(), it->y(), it->width(), it->height()});
        return text;
    }
    case LayoutNotification::ReadbackFinished: {
        const auto result = subject.GetArgument<SReadbackResult>();
        return joined({result.processor, int(result.same)});
    }
    default:
        return {};
    }
}

} // namespace

void CNotificationLog::Update(CSubject &subject)
{
    const QString text = QString::number(subject.code()) + argumentText(subject);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_texts << text;
}

QStringList CNotificationLog::take()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QStringList texts;
    texts.swap(m_texts);
    return texts;
}

QString CNotificationLog::waitFor(int code)
{
    const QString prefix = QString::number(code);
    QString found;
    const bool arrived = QTest::qWaitFor(
        [&] {
            const std::lock_guard<std::mutex> lock(m_mutex);
            while (!m_texts.isEmpty() && found.isEmpty()) {
                const QString text = m_texts.takeFirst();
                if (text == prefix || text.startsWith(prefix + QLatin1Char(' ')))
                    found = text;
            }
            return !found.isEmpty();
        },
        PatienceMilliseconds);
    return arrived ? found : QString();
}

CDeviceFixture::CDeviceFixture(double delayScale, const QString &stateFolder, const QString &journalFolder)
    : manager({stateFolder.isEmpty() ? folder.path() : stateFolder, delayScale, journalFolder})
    , handler(manager.services(), manager.jobs(), manager.commands(), CTypeLibrary::builtIn(),
              &manager.keeper())
{
    manager.announcer().subject().attach(log);
    if (delayScale <= 0) {
        detect();
        notifiedUpToDetection(); // its last notification
        lobby = named("Lobby");
        stage = named("Main stage");
        left = named("Side left");
        right = named("Side right");
    }
}

CDeviceFixture::~CDeviceFixture()
{
    manager.stop();
    manager.announcer().subject().detach(log);
}

QUuid CDeviceFixture::named(const char *name) const
{
    for (const SDevice &device : manager.table().devices()) {
        if (device.node.name == QLatin1String(name))
            return device.node.uuid;
    }
    return {};
}

void CDeviceFixture::select(const QUuid &processor)
{
    manager.services().select({processor}, PrcTreeNodeType::Processor);
}

CabinetLayout CDeviceFixture::layoutOf(const QUuid &processor) const
{
    return handler.layoutData(processor).layout;
}

SDeviceOutcome CDeviceFixture::outcomeOf(const std::function<void(CDeviceJobs::Done)> &start)
{
    QEventLoop loop; // which goes on at once, unlike QTest's waiting
    const auto ended = std::make_shared<std::optional<SDeviceOutcome>>(); // it may end after the patience
    start([ended, waiting = QPointer<QEventLoop>(&loop)](const SDeviceOutcome &outcome) {
        *ended = outcome;
        if (waiting)
            waiting->quit();
    });
    if (!*ended) {
        QTimer::singleShot(PatienceMilliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return ended->value_or(SDeviceOutcome{SDeviceOutcome::Failed, QStringLiteral("no outcome")});
}

SDeviceOutcome CDeviceFixture::detect()
{
    return outcomeOf([this](CDeviceJobs::Done done) { manager.jobs().detect(std::move(done)); });
}

QUuid CDeviceFixture::detectAlone(const char *name)
{
    for (const auto &processor : manager.services().park().processors()) {
        const bool wanted = processor->identity().name == QLatin1String(name);
        manager.simulate(processor->identity().uuid, SimulationFault::Offline, !wanted);
    }
    detect();
    return named(name);
}

SDeviceOutcome CDeviceFixture::save(const QUuid &processor)
{
    return outcomeOf(
        [&](CDeviceJobs::Done done) { manager.jobs().saveMapping({processor}, std::move(done)); });
}

SDeviceOutcome CDeviceFixture::read(const QUuid &processor)
{
    return outcomeOf(
        [&](CDeviceJobs::Done done) { manager.jobs().readMapping({processor}, {}, std::move(done)); });
}

void CDeviceFixture::settle(const QUuid &processor)
{
    while (!manager.table().device(processor).value_or(SDevice()).replaced.isEmpty())
        std::this_thread::yield();
}

void CDeviceFixture::edit(const QUuid &processor, int port)
{
    settle(processor);
    LayoutData data = handler.layoutData(processor);
    data.layout.ports[port].groups[0].cabinets[0].rect.translate(8, 8);
    handler.commitLayoutData(data);
}

void CDeviceFixture::lockPort(const QUuid &processor, int port, bool locked)
{
    settle(processor);
    LayoutData data = handler.layoutData(processor);
    data.layout.ports[port].locked = locked;
    handler.commitLayoutData(data);
}

QStringList CDeviceFixture::notifiedUpToDetection()
{
    QStringList texts;
    if (!QTest::qWaitFor([&] { return (texts << log.take()).contains(QStringLiteral("2")); },
                         PatienceMilliseconds))
        return {};
    return texts;
}
