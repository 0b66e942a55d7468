// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CCabinetConfig.h"
#include "host/projects/CCurrentGainFile.h"
#include "host/projects/CPortProject.h"
#include "host/projects/CStrictFile.h"
#include "platform/json/CStrictJson.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

namespace {

/// The content of a processor project with a header that fits @p body.
QByteArray sealed(const QByteArray &body, int version = 1)
{
    return QStringLiteral(
               "{\"format\":\"orvo-processor-project\",\"version\":%1,\"bytes\":%2,\"sha256\":\"%3\"}\n")
               .arg(version)
               .arg(body.size())
               .arg(QString::fromLatin1(QCryptographicHash::hash(body, QCryptographicHash::Sha256).toHex()))
               .toLatin1() +
           body;
}

/// A project's JSON with its last "ports" replaced.
QByteArray bodyWithPorts(const QByteArray &ports)
{
    return R"({"background":{},"canvas":[64,64],"colorDepth":8,"frameRate":60,"name":"n","portCount":2,"layout":{"ports":)" +
           ports + "}}";
}

QByteArray nestedGroups(int depth)
{
    QByteArray groups = "{}";
    for (int i = 1; i < depth; ++i)
        groups = "{\"groups\":[" + groups + "]}";
    return bodyWithPorts("[{\"index\":0,\"groups\":[" + groups + "]}]");
}

/// @p count elements that differ in a number, which takes the place of "%1".
QByteArray listOf(int count, const char *element)
{
    QByteArrayList list;
    for (int i = 0; i < count; ++i)
        list << QByteArray(element).replace("%1", QByteArray::number(i).rightJustified(4, '0'));
    return list.join(',');
}

QByteArray groupsOf(const QByteArray &cabinets)
{
    return "\"groups\":[{\"cabinets\":[" + cabinets + "]}]";
}

const char *const numberedCabinet = R"({"uuid":"6f727677-616c-4c77-8a11-5f0d3b6a%1","rect":[0,0,2048,1]})";
const char *const oneCabinet = R"({"uuid":"6f727677-616c-4c77-8a11-5f0d3b6a7702","rect":[0,0,32,32]})";

} // namespace

class CProjectFilesTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    /// The reading fails with one text that names the file; gives the text.
    QString refusalOf(const QByteArray &content)
    {
        const QString file = path("refused.sprj");
        QFile::remove(file); // file systems put on the disk at once what replaces the content of a file
        ProjectSamples::setContent(file, content);
        const auto project = CProcessorProject::read(file);
        const bool named = project.error().contains(file) && !project.error().contains(QLatin1Char('\n'));
        return project ? QStringLiteral("accepted")
               : named ? project.error()
                       : QStringLiteral("file not named");
    }

private Q_SLOTS:
    void aLackOfMemoryIsAMessage()
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        return; // sanitizers end a program that gets no memory; the other presets try it
#endif
        const QString file = path("full.sprj");
        QVERIFY(ProjectSamples::trueInChild([&] {
            return bool(CProcessorProject::write(file, ProjectSamples::ofWall(CWallBuilder::Full)));
        }));
        for (const int megabytes : {0, 40}) { // it runs out at once, or while the content is parsed
            QVERIFY(ProjectSamples::trueInChild([&] {
                ProjectSamples::leaveMemory(megabytes);
                const QString error = CProcessorProject::read(file).error();
                return error.contains(file) && error.contains(QLatin1String("memory"));
            }));
        }
    }
    void bringsBackEveryMember()
    {
        SProcessorProject project = ProjectSamples::withEverything();
        const QString file = path("everything.sprj");
        QVERIFY(CProcessorProject::write(file, project));
        QVERIFY(CProcessorProject::read(file).value() == project);

        SPrjPort port;
        port.processor = project.layout.processor;
        port.index = 2;
        port.cabinetCount = 1;
        port.load = 17;
        port.area = {1, 2, 3, 0xFFFFFFFFu};
        port.redundancyPort = 3;
        port.version = 2;
        port.brightness = 7;
        port.port = project.layout.ports.first();
        QVERIFY(CPortProject::write(path("port.pprj"), port));
        QVERIFY(CPortProject::read(path("port.pprj")).value() == port);

        SCabinetConfig config;
        config.type.key = SMD5::ofContent("key");
        config.type.name = QStringLiteral("Tall");
        config.type.kind = SCabinetConfig().type.MultiReceiver;
        config.type.width = 128;
        config.type.height = 256;
        config.type.receivers = config.rects = {{0, 0, 128, 128}, {0, 128, 128, 128}};
        config.type.millimetres = {600, 337.5};
        config.type.kilograms = 11.8;
        config.type.wattsMaximum = 300;
        config.type.wattsAverage = 100;
        config.type.voltsMinimum = 100;
        config.type.voltsMaximum = 240;
        config.type.customGamma = config.type.damaged = true;
        config.gamma = 2.2;
        QVERIFY(CCabinetConfig::write(path("cabinet.rcvbp"), config));
        QVERIFY(CCabinetConfig::read(path("cabinet.rcvbp")).value() == config);

        const QVector<SCurrentGainRow> rows = {{0, 2, {255, 0, 7}}, {1, 0, {1, 2, 3}}};
        QVERIFY(CCurrentGainFile::write(path("gain.acr"), rows));
        QVERIFY(CCurrentGainFile::read(path("gain.acr")).value() == rows);
    }

    void theSampleOfCurrentGainsHoldsAllSets()
    {
        const QString file = QStringLiteral(ORVO_SOURCE_DIR "/docs/samples/current-gain.acr");
        const auto rows = CCurrentGainFile::read(file);
        QVERIFY2(rows, qPrintable(rows.error()));
        QCOMPARE(rows.value().size(), 9);
    }

    void refusesEveryCutAndEveryFlippedBit()
    {
        const QString file = path("small.sprj");
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Small);
        project.layout.ports.resize(1);
        QVERIFY(CProcessorProject::write(file, project));
        const QByteArray content = ProjectSamples::contentOf(file);
        const SFileFormat format{"orvo-processor-project", "a processor project", 4};
        QVERIFY(CStrictFile::decode(content, format, file));
        for (int length = 0; length < content.size(); ++length) {
            const QString refusal = refusalOf(content.left(length));
            QVERIFY2(refusal.endsWith(QLatin1Char('.')),
                     qPrintable(QStringLiteral("%1: %2").arg(length).arg(refusal)));
        }
        for (int at = 0; at < content.size(); ++at) {
            for (int bit = 0; bit < 8; ++bit) {
                QByteArray flipped = content;
                flipped[at] = char(flipped.at(at) ^ (1 << bit));
                const auto decoded = CStrictFile::decode(flipped, format, file);
                QVERIFY2(!decoded && decoded.error().contains(file), qPrintable(QString::number(at)));
            }
        }
        QVERIFY(refusalOf(content + "x").contains(QLatin1String("added")));
        QCOMPARE(ProjectSamples::contentOf(file), content);
    }

    void saysWhatIsWrongAndWhere_data()
    {
        QTest::addColumn<QByteArray>("content");
        const auto row = [](const QByteArray &content, const char *place) {
            QTest::newRow(place) << content;
        };
        const QByteArray cabinet = oneCabinet;
        const auto cabinets = [](const QByteArray &list) {
            return sealed(bodyWithPorts("[{\"index\":0," + groupsOf(list) + "}]"));
        };
        const auto cabinetWith = [&](const char *changed, const QByteArray &to) {
            return cabinets(QByteArray(cabinet).replace(changed, to));
        };
        const auto ports = [](const QByteArray &list) { return sealed(bodyWithPorts("[" + list + "]")); };
        row("", "is empty");
        row(sealed("{}", 5), "newer version");
        row(CStrictFile::encode({"orvo-port-project", "a port project", 1}, {}), "\"orvo-port-project\"");
        row(sealed(R"({"name":"a","name":"b"})"), "line 2, column 13: the member \"name\" occurs twice");
        row(sealed(R"({"name":"a","n\u0061me":"b"})"), "line 2, column 15");
        row(sealed("{} {}"), "line 2, column 4: there is text behind the end");
        row(sealed("{\"name\":\n 1e400}"), "line 3, column 2: a number is too large");
        row(sealed("{\"name\":-01}"), "line 2, column 9: a value is expected");
        row(sealed("{\"name\":9007199254740993}"), "line 2, column 9"); // which loses digits
        row(sealed("{\"name\":" + QByteArray(100000, '[')), "nested too deep");
        row(sealed("{\"name\":\"\xff\"}"), "UTF-8");
        row(sealed("{\"name\":\"x\xed\xa0\x80\"}"), "line 2, column 11: a text is not valid UTF-8");
        row(sealed("{\"name\":\"\x01\"}"), "line 2, column 10: a control character");
        row("{\"format\":\"\\b\",\"version\":1}\n", "line 1, format: the text holds");
        row("{\"format\":\"\\u00fc\\/\\\"b\",\"version\":1}\n", "the format \"\xfc/\"b\"");
        row(sealed(QByteArray(bodyWithPorts("[]")).replace("\"n\"", '"' + QByteArray(257, 'x') + '"')),
            "name: the text is longer than 256");
        row(ports("{\"index\":1.5}"), "ports[0].index: a whole number is expected");
        const QByteArray group = QByteArray(cabinet).left(cabinet.indexOf(',')) + "}";
        row(ports("{\"index\":0,\"groups\":[" + group + "," + group + "]}"), "the same group occurs twice");
        row(sealed("{}"), "the member \"name\" is missing");
        row(sealed(bodyWithPorts("[],\"more\":1,\"less\":1")), "layout: the member \"less\" is not known");
        row(ports("{\"index\":\"1\"}"), "layout.ports[0].index: a whole number");
        row(ports("{\"index\":-1}"), "layout.ports[0].index: -1");
        row(ports("{\"index\":4000}"), "layout.ports[0].index: 4000");
        row(ports("{\"index\":1},{\"index\":1}"), "layout.ports[1].index");
        row(sealed(nestedGroups(65)), "nested deeper than 64");
        row(cabinets(cabinet + "," + cabinet), "layout.ports[0].groups[0].cabinets[1].uuid: the same");
        row(cabinetWith("32]", "32,1]"), "cabinets[0].rect: [x, y");
        row(cabinetWith("32]", "32],\"original\":{\"size\":[9,9],\"blanks\":[[0,0,1,1]]}"),
            "cabinets[0].original.receivers");
        row(cabinetWith("6f727677", "6f72767g"), "cabinets[0].uuid");
        row(ports("{\"index\":0,\"color\":\"pink\"}"), "ports[0].color");
        row(cabinetWith("32,32]", "0,32]"), "cabinets[0].rect: the size is 0x32 pixels");
        row(cabinetWith("}", ",\"receivers\":[" + listOf(257, "[0,0,1,1]") + "]}"),
            "cabinets[0].receivers: there are 257 entries, the most is 256");
        row(cabinetWith("}", ",\"cards\":[" + listOf(257, "1") + "]}"),
            "cabinets[0].cards: there are 257 entries");
        row(ports("{\"index\":0},{\"index\":3,\"groups\":[{\"cabinets\":[" + listOf(1024, numberedCabinet) +
                  "],\"groups\":[{\"cabinets\":[" + cabinet + "]}]}]}"),
            "layout.ports[1].groups[0].groups[0].cabinets: the output port has 1025 or more");
        row(ports("{\"index\":0,\"groups\":[" + listOf(2049, "{}") + "]}"),
            "layout.ports[0].groups: the output port has 2049 or more, the most is 2048");
        row(sealed("{\"name\":[" + QByteArray("[],").repeated(CStrictJson::MaximumValues) + "0]}"),
            "more than 4000000 values");
        row(sealed("{\"name\":\"" + QByteArray(CStrictJson::MaximumTextBytes + 1, 'x') + "\"}"),
            "line 2, column"); // too long a text
        row(sealed(QByteArray(bodyWithPorts("[]")).replace("\"n\"", "\"\\ud800\"")), "name: the text");
        QByteArray most = listOf(1024, numberedCabinet); // as many as a port takes
        most.insert(most.indexOf('}'), ",\"receivers\":[" + listOf(256, "[0,0,1,1]") + "]");
        row(ports("{\"index\":0," + groupsOf(most) + "},{\"index\":1," +
                  groupsOf(QByteArray(most).replace("3b6a", "3b6b")) + "}"),
            "accepted");
        row(sealed(nestedGroups(64)), "accepted");
    }
    void saysWhatIsWrongAndWhere()
    {
        QFETCH(QByteArray, content);
        const QString refusal = refusalOf(content);
        QVERIFY2(refusal.contains(QLatin1String(QTest::currentDataTag())), qPrintable(refusal));
    }

    void neverWritesWhatItCouldNotRead()
    {
        const QString file = path("kept.sprj");
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Small);
        QVERIFY(CProcessorProject::write(file, project));
        const QByteArray before = ProjectSamples::contentOf(file);
        auto &ports = project.layout.ports;
        project.name = QChar(0xD800); // half a character
        QVERIFY(CProcessorProject::write(file, project).error().contains(QLatin1String("name: the text")));
        project.name = QStringLiteral("n");
        ports[1].groups[0].cabinets[0].uuid = ports[0].groups[0].cabinets[0].uuid;
        const QString error = CProcessorProject::write(file, project).error();
        QVERIFY2(error.contains(QLatin1String("ports[1].groups[0].cabinets[0].uuid")), qPrintable(error));
        QCOMPARE(ProjectSamples::contentOf(file), before);
    }
};

ORVO_TEST_MAIN(QCoreApplication, CProjectFilesTest)
#include "tst_project_files.moc"
