// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

namespace {
using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;
}

class CHighlightTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_shown.clear();
        m_host = std::make_unique<CDeviceFixture>();
        m_stage = m_host->named("Main stage");
        m_host->select(m_stage);
        QVERIFY(!m_host->log.waitFor(28).isEmpty());
        m_cabinets = m_host->handler.currentProcessorPorts().at(0).getAllCabinets().toList();
        connect(&m_host->manager.announcer(), &CDeviceAnnouncer::notifyHighlightChanged, this,
                [this](const QUuid &processor, const Cabinets &shown) { m_shown[processor] = shown.size(); });
    }

    void endsOnAProcessorThatLeftTheView_data()
    {
        QTest::addColumn<QByteArray>("next");
        QTest::newRow("for another one") << QByteArray("Lobby");
        QTest::newRow("for one that is offline") << QByteArray("Foyer");
        QTest::newRow("for none") << QByteArray();
    }
    void endsOnAProcessorThatLeftTheView()
    {
        QFETCH(QByteArray, next);
        QVERIFY(m_host->handler.setCabinetHighlight(m_cabinets, CabinetHighlight::FlashingBox));
        QTRY_COMPARE(m_shown.value(m_stage), m_cabinets.size());
        if (next.isEmpty())
            m_host->manager.services().select({}, PrcTreeNodeType::Other);
        else
            m_host->select(m_host->named(next.constData()));
        m_host->handler.setCabinetHighlight({}, CabinetHighlight::Off);
        QTRY_COMPARE(m_shown.value(m_stage), 0);
    }

    void isShownForDevicesOnly()
    {
        m_host->select(m_host->manager.projects().openDemo().value());
        QVERIFY(!m_host->handler.setCabinetHighlight(m_cabinets, CabinetHighlight::FlashingBox));
    }

    void cleanup()
    {
        m_host.reset();
        CTestBase::cleanup();
    }

private:
    std::unique_ptr<CDeviceFixture> m_host;
    QUuid m_stage;
    Cabinets m_cabinets;
    QMap<QUuid, int> m_shown; // how many cabinets stand out, by processor
};

ORVO_TEST_MAIN(QGuiApplication, CHighlightTest)
#include "tst_highlight.moc"
