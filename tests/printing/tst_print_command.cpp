// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CSheetExport.h"
#include "host/projects/CProcessorProject.h"
#include "layout/api/access/CHostAccess.h"
#include "layout/plugin/CPrintCommand.h"
#include "platform/control/IAbstractControlInterface.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CWorldTest.h"

#include <QApplication>

#include <memory>

namespace {

/// The simulated park as the host of the module.
class CParkHost final : public IAbstractControlInterface
{
public:
    CParkHost() { CHostAccess::setHost(this); }
    ~CParkHost() override { CHostAccess::setHost(nullptr); }
    Q_DISABLE_COPY(CParkHost)

    QObject *object() override { return nullptr; }
    std::shared_ptr<IAbstractInterfaceHandler> handler() const override
    {
        return {std::shared_ptr<void>(), &park.handler}; // the park owns it
    }
    CSubject *subject() override { return nullptr; }
    void stop() override {}

    mutable CDeviceFixture park;
};

} // namespace

class CPrintCommandTest final : public CWorldTest<CParkHost>
{
    Q_OBJECT

private Q_SLOTS:
    /// Sheets of a processor tell what those of its project tell.
    void printsWhatItsProjectPrints()
    {
        int compared = 0;
        for (const SPrintedProcessor &printed : CPrintCommand::input().processors) {
            const QUuid key = printed.node.uuid;
            if (m_world->park.manager.table().device(key)->settings.threeD)
                continue; // doubles the loads, and no project tells of it
            const QString file = m_world->park.folder.filePath(QStringLiteral("printed.sprj"));
            QVERIFY(m_world->park.handler.exportProcessorMapping(key, file));
            const auto project = CProcessorProject::read(file);
            QVERIFY2(project, qPrintable(project.error()));
            const SPrintedProcessor exported = CSheetExport::inputOf({project.value()}).processors.first();
            QCOMPARE(printed.kind, exported.kind);
            QCOMPARE(printed.portCount, exported.portCount);
            QCOMPARE(printed.canvas, exported.canvas);
            QCOMPARE(printed.frameRate, exported.frameRate);
            QCOMPARE(printed.colorDepth, exported.colorDepth);
            QCOMPARE(printed.pixelLimit, exported.pixelLimit);
            for (auto load = printed.loads.begin(); load != printed.loads.end(); ++load) {
                const SPortLoad same = exported.loads.value(load.key());
                QCOMPARE(load->percent, same.percent);
                QCOMPARE(load->pixels, same.pixels);
                QCOMPARE(load->capacity, same.capacity);
            }
            ++compared;
        }
        QVERIFY(compared >= 3);
    }
};

ORVO_TEST_MAIN(QApplication, CPrintCommandTest)
#include "tst_print_command.moc"
