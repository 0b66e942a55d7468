// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CCurrentGainFile.h"
#include "host/projects/CStrictFile.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

namespace {

/// The sets that are imported, "*" behind those that are on: "0/2 1/0*".
QString importedBy(const CLayoutHandler &handler)
{
    QStringList texts;
    for (const SCurrentGain &gain : handler.currentGains()) {
        const QString on = gain.on ? QStringLiteral("*") : QString();
        if (gain.imported || gain.on)
            texts << QStringLiteral("%1/%2%3").arg(gain.frameRateCode).arg(gain.gainLevel).arg(on);
    }
    return texts.join(QLatin1Char(' '));
}

} // namespace

class CGainCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_host = std::make_unique<CDeviceFixture>();
        m_stage = m_host->stage;
        m_host->select(m_stage);
        m_file = m_host->folder.filePath(QStringLiteral("gain.acr"));
        QVERIFY(bool(CCurrentGainFile::write(m_file, {{1, 2, {1, 2, 3}}, {0, 0, {9, 9, 9}}})));
    }
    void cleanup()
    {
        m_host.reset();
        CTestBase::cleanup();
    }

    void whatIsImportedWaitsUntilItIsSent()
    {
        CLayoutHandler &handler = m_host->handler;
        QCOMPARE(handler.currentGains().size(), 9);
        QVERIFY2(handler.importCurrentGain(m_file), qPrintable(handler.lastError()));
        QCOMPARE(importedBy(handler), QStringLiteral("0/0 1/2"));
        QCOMPARE(onDevice(), QString());
        QVERIFY(m_host->detect().isDone());
        QCOMPARE(importedBy(handler), QStringLiteral("0/0 1/2"));

        QVERIFY2(sendWithOn(1, 2), qPrintable(handler.lastError()));
        QCOMPARE(importedBy(handler), QStringLiteral("0/0 1/2*"));
        QCOMPARE(onDevice(), QStringLiteral("0/0 1/2*"));
        QVERIFY2(handler.clearCurrentGains(), qPrintable(handler.lastError()));
        QCOMPARE(importedBy(handler), QString());
        QCOMPARE(onDevice(), QString());
    }

    void anImportReplacesItsOwnSetsOnly()
    {
        QVERIFY(m_host->handler.importCurrentGain(m_file));
        QVERIFY(bool(CCurrentGainFile::write(m_file, {{1, 2, {7, 8, 9}}, {2, 1, {4, 5, 6}}})));
        QVERIFY(m_host->handler.importCurrentGain(m_file));
        QCOMPARE(importedBy(m_host->handler), QStringLiteral("0/0 1/2 2/1"));
        const QVector<SCurrentGainRow> rows{{0, 0, {9, 9, 9}}, {1, 2, {7, 8, 9}}, {2, 1, {4, 5, 6}}};
        QCOMPARE(m_host->manager.table().device(m_stage)->gainRows, rows);
    }

    void aFileThatIsWrongChangesNothing()
    {
        CLayoutHandler &handler = m_host->handler;
        QVERIFY(handler.importCurrentGain(m_file));
        const SFileFormat format{"orvo-current-gain", "a file of current-gain parameters", 1};
        const auto refuses = [&](const char *rows, const char *place) {
            const QByteArray content = "{\"rows\":[" + QByteArray(rows) + "]}";
            QFile file(m_file);
            return file.open(QIODevice::WriteOnly) &&
                   file.write(CStrictFile::encode(format, QJsonDocument::fromJson(content).object())) > 0 &&
                   file.flush() && !handler.importCurrentGain(m_file) &&
                   handler.lastError().contains(m_file) && handler.lastError().contains(QLatin1String(place));
        };
        QVERIFY(refuses(R"({"frameRate":3,"gainLevel":1,"values":[1,2,3]})", "rows[0].frameRate: 3"));
        QVERIFY(refuses(R"({"frameRate":0,"gainLevel":1,"values":[1,2]})", "rows[0].values: the gains"));
        QVERIFY(refuses(R"({"frameRate":0,"gainLevel":1,"values":[1,2,256]})", "rows[0].values[2]"));
        QVERIFY(refuses(
            R"({"frameRate":0,"gainLevel":1,"values":[1,2,3]},{"frameRate":0,"gainLevel":1,"values":[1,2,3]})",
            "rows[1].gainLevel"));
        QCOMPARE(importedBy(handler), QStringLiteral("0/0 1/2"));
    }

    void setsThatNoProcessorHasAreNotSent()
    {
        QVERIFY(m_host->handler.importCurrentGain(m_file) && sendWithOn(0, 0));
        for (const SCurrentGain &wrong : {SCurrentGain{3, 0, true, true}, SCurrentGain{0, -1, true, true}})
            QVERIFY(!m_host->handler.sendCurrentGains({wrong}));
        QCOMPARE(onDevice(), QStringLiteral("0/0* 1/2")); // and it can still read its state
    }

    void aProjectHasNobodyToSendTo()
    {
        CLayoutHandler &handler = m_host->handler;
        m_host->select(m_host->manager.projects().openDemo().value());
        QVERIFY(handler.importCurrentGain(m_file));
        QVERIFY(!sendWithOn(0, 0));
        QVERIFY(handler.clearCurrentGains());
        QCOMPARE(importedBy(handler), QString());
        m_host->manager.services().select({}, PrcTreeNodeType::Other);
        QVERIFY(!handler.importCurrentGain(m_file) && !handler.lastError().isEmpty());
        QVERIFY(!handler.clearCurrentGains());
        QVERIFY(handler.currentGains().isEmpty());
    }

private:
    /// Sends all sets, with that one switched on.
    bool sendWithOn(int frameRate, int level)
    {
        QList<SCurrentGain> gains = m_host->handler.currentGains();
        for (SCurrentGain &gain : gains)
            gain.on = gain.frameRateCode == frameRate && gain.gainLevel == level;
        return m_host->handler.sendCurrentGains(gains);
    }
    /// What a second program on the same devices finds.
    QString onDevice()
    {
        CDeviceFixture again(0, m_host->folder.path());
        again.select(m_stage);
        return importedBy(again.handler);
    }

    std::unique_ptr<CDeviceFixture> m_host;
    QUuid m_stage;
    QString m_file;
};

ORVO_TEST_MAIN(QCoreApplication, CGainCommandsTest)
#include "tst_gain_commands.moc"
