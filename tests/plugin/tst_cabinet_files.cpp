// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SCommandWorld.h"

#include <QTemporaryDir>

namespace {

/// The words of @p list, which are separated by bars.
QStringList words(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

} // namespace

class CCabinetFilesTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }
    void init()
    {
        CTestBase::init();
        m_world = std::make_unique<SCommandWorld>();
        m_world->open(2, 3);
    }
    void cleanup()
    {
        m_world.reset();
        QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo")).clear();
        CTestBase::cleanup();
    }

    void filesTellHowTheyEnded_data()
    {
        QTest::addColumn<bool>("readback");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("existing");
        QTest::addColumn<QStringList>("pressed");
        QTest::addColumn<QString>("written");
        QTest::addColumn<QStringList>("told");
        const QString overwrite =
            QStringLiteral("The file already exists in the current path. Do you want to overwrite it?");
        const QString exported = QStringLiteral("Export Success.");
        const QString readBack = QStringLiteral("Readback successful.");
        const QStringList none;
        QTest::newRow("export") << false << "a.rcvbp"
                                << "" << words("OK") << "a.rcvbp" << QStringList{exported};
        QTest::newRow("export without a suffix") << false << "a"
                                                 << "" << words("OK") << "a.rcvbp" << QStringList{exported};
        QTest::newRow("export of a name with a point")
            << false << "Rental P1.9"
            << "" << words("OK") << "Rental P1.9.rcvbp" << QStringList{exported};
        QTest::newRow("export of a name with words behind a point")
            << false << "Rental indoor P2.6 tall"
            << "" << words("OK") << "Rental indoor P2.6 tall.rcvbp" << QStringList{exported};
        QTest::newRow("export with a suffix of one's own")
            << false << "a.v2"
            << "" << words("OK") << "a.v2" << QStringList{exported};
        QTest::newRow("export over a file")
            << false << "a.rcvbp"
            << "a.rcvbp" << words("Yes|OK") << "a.rcvbp" << QStringList{overwrite, exported};
        QTest::newRow("export not over a file") << false << "a.rcvbp"
                                                << "a.rcvbp" << words("No") << "" << QStringList{overwrite};
        QTest::newRow("export cancelled") << false << ""
                                          << "" << none << "" << none;
        QTest::newRow("readback without a suffix")
            << true << "b"
            << "b" << words("OK") << "b.rcvbp" << QStringList{readBack};
        QTest::newRow("readback of another kind")
            << true << "b.rcvp"
            << "b.rcvbp" << words("OK") << "b.rcvp" << QStringList{readBack};
        QTest::newRow("readback over a file that gets the suffix")
            << true << "b"
            << "b.rcvbp" << words("Yes|OK") << "b.rcvbp" << QStringList{overwrite, readBack};
        QTest::newRow("readback not over a file") << true << "b"
                                                  << "b.rcvbp" << words("No") << "" << QStringList{overwrite};
        QTest::newRow("readback cancelled") << true << ""
                                            << "" << none << "" << none;
    }
    void filesTellHowTheyEnded()
    {
        QFETCH(bool, readback);
        QFETCH(QString, typed);
        QFETCH(QString, existing);
        QFETCH(QString, written);
        const QTemporaryDir folder;
        if (!existing.isEmpty()) {
            QFile file(folder.filePath(existing));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        CFileDialogAnswerer files(typed.isEmpty() ? QString() : folder.filePath(typed));
        QFETCH(QStringList, pressed);
        const CMessageBoxAnswerer user(pressed);
        runCommand(readback, typedCabinet());
        QTEST(user.texts(), "told");
        for (const CMessageBoxAnswerer::SBox &box : user.boxes())
            QCOMPARE(box.title, QStringLiteral("Orvo"));
        QCOMPARE(m_world->store.mappingFolder() == QFileInfo(folder.path()).absoluteFilePath(),
                 !written.isEmpty()); // the next dialog opens there
        QCOMPARE(callsOf(readback), written.isEmpty()
                                        ? QStringList()
                                        : QStringList{callText(readback, folder.filePath(written))});
        QCOMPARE(files.title, readback ? QStringLiteral("Readback...") : QStringLiteral("Export..."));
        QCOMPARE(files.filters, words("*.rcvbp|*.rcvp"));
        if (readback)
            QVERIFY(QDateTime::fromString(files.proposal, QStringLiteral("yyyy-MM-dd-hh-mm-ss")).isValid());
        else
            QCOMPARE(files.proposal, QStringLiteral("Flat"));
    }

    void theProposedNameIsThatOfAFile()
    {
        const auto node = typeNode("Rental in/outdoor: P2.6 tall", 100, 100);
        m_world->host.answers()->library = {node};
        m_world->host.notify(LayoutNotification::TypeLibraryChanged);
        const CFileDialogAnswerer files{QString()};
        auto cabinet = typedCabinet();
        cabinet.type = node.key;
        runCommand(false, cabinet);
        QCOMPARE(files.proposal, QStringLiteral("Rental in-outdoor- P2.6 tall"));
    }

    void refusalsAreToldWithTheirReason_data()
    {
        QTest::addColumn<bool>("readback");
        QTest::addColumn<QString>("told");
        QTest::newRow("export") << false << "Export failed.";
        QTest::newRow("readback") << true << "Readback failed.";
    }
    void refusalsAreToldWithTheirReason()
    {
        QFETCH(bool, readback);
        const QTemporaryDir folder;
        CFakeHost &host = m_world->host;
        host.answers()->refused = {QStringLiteral("exportCabinetConfig"),
                                   QStringLiteral("readbackCabinetConfig")};
        const CFileDialogAnswerer files(folder.filePath(QStringLiteral("a.rcvbp")));
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        runCommand(readback, typedCabinet());
        QTEST(user.texts().join(QLatin1Char('|')), "told");
        QCOMPARE(user.boxes().first().details, host.answers()->error);
        QCOMPARE(callsOf(readback).size(), 1);
    }

    void anUntypedCabinetIsReadBackWithoutATypesName()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("b.rcvbp"));
        const CFileDialogAnswerer files(file);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        const auto cabinet = m_world->cabinet(0, 2).cabinet();
        runCommand(true, cabinet);
        QCOMPARE(callsOf(true), QStringList{QStringLiteral("readbackCabinetConfig(0,%1,%2,)")
                                                .arg(cabinet.uuid.toString(QUuid::WithoutBraces), file)});
    }

private:
    /// The middle cabinet of the second port, of a type that the library knows.
    CEditorCommands::Cabinet typedCabinet()
    {
        auto cabinet = m_world->cabinet(1, 1).cabinet();
        cabinet.type = SMD5::ofContent("Flat");
        return cabinet;
    }

    void runCommand(bool readback, const CEditorCommands::Cabinet &cabinet)
    {
        if (readback)
            m_world->commands.readBackConfiguration(cabinet, nullptr);
        else
            m_world->commands.exportConfiguration(cabinet, nullptr);
    }

    QStringList callsOf(bool readback) const
    {
        return m_world->host.answers()->calls().filter(readback ? QStringLiteral("readbackCabinetConfig")
                                                                : QStringLiteral("exportCabinetConfig"));
    }

    /// What the host is told of the typed cabinet and @p file.
    QString callText(bool readback, const QString &file)
    {
        const QString uuid = typedCabinet().uuid.toString(QUuid::WithoutBraces);
        return readback ? QStringLiteral("readbackCabinetConfig(1,%1,%2,Flat)").arg(uuid, file)
                        : QStringLiteral("exportCabinetConfig(%1,%2)").arg(uuid, file);
    }

    std::unique_ptr<SCommandWorld> m_world;
};

ORVO_TEST_MAIN(QApplication, CCabinetFilesTest)
#include "tst_cabinet_files.moc"
