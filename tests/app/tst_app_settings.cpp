// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CAppSettings.h"
#include "tests/harness/CTestBase.h"

#include <QTemporaryDir>

class CAppSettingsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        CAppSettings().clearRecentProjects();
    }

    void outlivesTheObject()
    {
        {
            CAppSettings settings;
            settings.setWindowGeometry(QByteArrayLiteral("geometry\0\xff"));
            settings.setSplitterState(QByteArrayLiteral("splitter"));
            settings.setRightBarCollapsed(true);
            settings.addRecentProject(QStringLiteral("/walls/a.sprj"));
        }
        const CAppSettings settings;
        QCOMPARE(settings.windowGeometry(), QByteArrayLiteral("geometry\0\xff"));
        QCOMPARE(settings.splitterState(), QByteArrayLiteral("splitter"));
        QVERIFY(settings.isRightBarCollapsed());
        QCOMPARE(settings.recentProjects(), QStringList(QStringLiteral("/walls/a.sprj")));
    }

    void keepsRecentProjectsOnceTheLastOneFirst()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("wall.sprj")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QString link = folder.filePath(QStringLiteral("link.sprj")); // one file under two names
        QVERIFY(file.link(link));
        CAppSettings settings;
        for (const QString &name : {file.fileName(), QStringLiteral("/walls/b.sprj"), link})
            settings.addRecentProject(name);
        QCOMPARE(settings.recentProjects(), QStringList({link, QStringLiteral("/walls/b.sprj")}));
        settings.removeRecentProject(link);
        QCOMPARE(settings.recentProjects(), QStringList(QStringLiteral("/walls/b.sprj")));
        for (int i = 0; i < 2 * CAppSettings::MaximumRecentProjects; ++i)
            settings.addRecentProject(QStringLiteral("/walls/%1.sprj").arg(i));
        QCOMPARE(settings.recentProjects().size(), int(CAppSettings::MaximumRecentProjects));
        QCOMPARE(settings.recentProjects().first(), QStringLiteral("/walls/19.sprj"));
    }

    void opensDialogsWhereTheLastProjectWas()
    {
        const QTemporaryDir folder;
        CAppSettings settings;
        settings.addRecentProject(folder.filePath(QStringLiteral("gone.sprj")));
        QCOMPARE(settings.projectFolder(), folder.path());
        settings.addRecentProject(QStringLiteral("/no such folder/wall.sprj"));
        QVERIFY(settings.projectFolder() != QStringLiteral("/no such folder"));
        QVERIFY2(QFileInfo(settings.projectFolder()).isDir(), qPrintable(settings.projectFolder()));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CAppSettingsTest)
#include "tst_app_settings.moc"
