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
        const auto row = [&](const char *name, bool readback, const char *typed, const char *existing,
                             const char *pressed, const char *written) {
            QStringList told;
            if (*existing && *typed && qstrcmp(pressed, "OK") != 0)
                told << overwrite;
            if (*written)
                told << (readback ? QStringLiteral("Readback successful.")
                                  : QStringLiteral("Export Success."));
            QTest::newRow(name) << readback << QString::fromLatin1(typed) << QString::fromLatin1(existing)
                                << words(pressed) << QString::fromLatin1(written) << told;
        };
        row("export without a suffix", false, "a", "", "OK", "a.rcvbp");
        row("export of words behind a point", false, "Rental P2.6 tall", "", "OK", "Rental P2.6 tall.rcvbp");
        row("export of a number behind a point", false, "Rental P1.9", "", "OK", "Rental P1.9.rcvbp");
        row("export with a suffix of one's own", false, "a.v2", "", "OK", "a.v2");
        row("export over a file", false, "a.rcvbp", "a.rcvbp", "Yes|OK", "a.rcvbp");
        row("export not over a file", false, "a.rcvbp", "a.rcvbp", "No", "");
        row("export cancelled", false, "", "", "", "");
        row("readback beside another file", true, "b", "b", "OK", "b.rcvbp");
        row("readback of another kind", true, "b.rcvp", "b.rcvbp", "OK", "b.rcvp");
        row("readback over a file that gets the suffix", true, "b", "b.rcvbp", "Yes|OK", "b.rcvbp");
        row("readback cancelled", true, "", "", "", "");
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
        QCOMPARE(m_world->store.mappingFolder() == QFileInfo(folder.path()).absoluteFilePath(),
                 !written.isEmpty()); // the next dialog opens there
        QCOMPARE(callsOf(readback), written.isEmpty()
                                        ? QStringList()
                                        : QStringList{callText(readback, folder.filePath(written))});
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

    void refusalsAreToldWithTheirReason()
    {
        const QTemporaryDir folder;
        CFakeHost &host = m_world->host;
        host.answers()->refused = {QStringLiteral("exportCabinetConfig"),
                                   QStringLiteral("readbackCabinetConfig")};
        for (const bool readback : {false, true}) {
            const CFileDialogAnswerer files(folder.filePath(QStringLiteral("a.rcvbp")));
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            runCommand(readback, typedCabinet());
            QCOMPARE(user.boxes().first().details, host.answers()->error);
            QCOMPARE(callsOf(readback).size(), 1);
        }
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
