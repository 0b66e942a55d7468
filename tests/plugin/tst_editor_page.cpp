// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CLayoutEditorPage.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SStoreWorld.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>

class CEditorPageTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aFillThatCannotBeReadIsToldBesideTheTitle()
    {
        SStoreWorld world;
        CLayoutEditorPage page(world.store);
        const auto show = [&](const QUuid &processor) {
            world.show(processor);
            page.setProcessor(world.answers()->getProcessorNode(processor));
        };
        const QString damaged = fileOf("damaged.png", "no picture");
        const QString readable = m_folder.filePath(QStringLiteral("blue.png"));
        QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(readable));
        SBackgroundInfo info;
        info.enabled = true;
        info.file = damaged;
        info.processor = world.host.addProcessor(QStringLiteral("Stage"), 1);
        world.answers()->backgrounds[info.processor] = info;

        expectWarning(QRegularExpression(QStringLiteral("The canvas has no fill")));
        show(info.processor);
        QVERIFY2(noteOf(page).contains(damaged), qPrintable(noteOf(page)));
        show(world.host.addProcessor(QStringLiteral("Lobby"), 1));
        QCOMPARE(noteOf(page), QString());

        expectWarning(QRegularExpression(QStringLiteral("The canvas has no fill")));
        show(info.processor);
        info.file = readable;
        world.host.notify(LayoutNotification::BackgroundChanged, info);
        settle(world.host, world.store);
        QCOMPARE(noteOf(page), QString());
        page.setReadbackResult(true);
        info.opacity = 50;
        world.host.notify(LayoutNotification::BackgroundChanged, info);
        settle(world.host, world.store);
        QVERIFY(!noteOf(page).isEmpty()); // is about something else
    }

private:
    QString fileOf(const char *name, const QByteArray &content) const
    {
        QFile file(m_folder.filePath(QLatin1String(name)));
        file.open(QIODevice::WriteOnly);
        file.write(content);
        return file.fileName();
    }
    static QString noteOf(const CLayoutEditorPage &page)
    {
        return page.findChildren<QLabel *>().at(1)->text();
    }

    const QTemporaryDir m_folder;
};

ORVO_TEST_MAIN(QApplication, CEditorPageTest)
#include "tst_editor_page.moc"
