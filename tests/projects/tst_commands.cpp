// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CCommandArguments.h"
#include "host/app/commands/CCommandLine.h"
#include "host/app/commands/CPngEncoder.h"
#include "host/app/commands/CPrintOptions.h"
#include "host/journal/CJournals.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CFileLock.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>

#include <functional>

namespace {

/// How a command ended and what it said.
struct SRun
{
    int status = -1;
    QString out;
    QString errors;
};

/// Runs the command in this process.
SRun runHere(const QStringList &arguments)
{
    SRun run;
    QTextStream out(&run.out);
    QTextStream errors(&run.errors);
    run.status = CCommandLine::run(arguments, out, errors);
    return run;
}

/// Runs the command as a program of its own, without a display.
SRun runProgram(const QStringList &arguments, const QString &outputFile = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
        environment.remove(QLatin1String(name));
    process.setProcessEnvironment(environment);
    if (!outputFile.isEmpty())
        process.setStandardOutputFile(outputFile);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QStringList newArguments(const QString &file)
{
    return QStringList{QStringLiteral("new"), file} +
           QStringLiteral("--cabinet 64x32 --columns 4 --rows 2 --ports 2").split(QLatin1Char(' '));
}

} // namespace

class CCommandsTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    QString wall() const { return path("wall.sprj"); }

private Q_SLOTS:
    void initTestCase() { QCOMPARE(runHere(newArguments(wall())).status, 0); }

    void knowsItsCommands()
    {
        using Arguments = QVector<const char *>;
        for (const auto &[arguments, command] : {std::pair(Arguments{"orvo"}, false),
                                                 {Arguments{"orvo", "wall.sprj", "new"}, false}, // a project
                                                 {Arguments{"orvo", "check", "wall.sprj"}, true},
                                                 {Arguments{"orvo", "wall.sprj", "--help"}, true},
                                                 {Arguments{"orvo", "--version"}, true}})
            QCOMPARE(CCommandLine::isCommand(arguments.size(), arguments.constData()), command);
    }

    void makesTheSameProjectEachTime()
    {
        const QByteArray first = ProjectSamples::contentOf(wall());
        const SRun run = runHere(newArguments(wall()));
        QCOMPARE(run.out, wall() + QStringLiteral(": cabinets: 8, ports: 2, canvas: 256x64\n"));
        QCOMPARE(ProjectSamples::contentOf(wall()), first);
        CFileLock other(wall());
        QCOMPARE(other.take(), CFileLock::Taken);
        const SRun refused = runHere(newArguments(wall()));
        QCOMPARE(refused.status, 1);
        QVERIFY(refused.errors.contains(QStringLiteral("is open: ")));
        const QString strange = path("a%2 %1.sprj"); // it is named as it is
        QVERIFY(runHere(newArguments(strange)).out.startsWith(strange));
        const SProcessorProject made = CProcessorProject::read(strange).value();
        QCOMPARE(made.name, QStringLiteral("a%2 %1"));
        QVERIFY(made.portCount >= 2 && !made.kind.isEmpty());
    }

    void recoversWhatWasLeft()
    {
        const auto recover = [](const QString &arguments) {
            return runHere(
                QStringLiteral("recover %1").arg(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        };
        QCOMPARE(recover({}).status, 3);
        SProcessorProject edited = ProjectSamples::ofWall(CWallBuilder::Small);
        SJournalOwner owner;
        owner.processor = edited.layout.processor;
        owner.name = QStringLiteral("Foyer");
        const auto leave = [&] {
            CJournals journals(CJournalFolder::defaultPath(), {});
            journals.begin(owner, edited);
            edited.canvas += QSize(8, 8);
            journals.note(owner, edited);
            SEditRecord record;
            record.processor = owner.processor;
            record.index = 1;
            SEditStep::SPort moved{edited.layout.ports.first(), edited.layout.ports.first()};
            moved.after.groups[0].cabinets[0].rect.translate(8, 8);
            edited.layout.ports.first() = moved.after;
            record.step.ports << moved;
            journals.note(record);
            QCOMPARE(recover({}).status, 3); // is being written
        };
        leave();
        const SRun listed = recover({});
        QCOMPARE(listed.status, 0);
        QVERIFY2(listed.out.startsWith(QStringLiteral("1: Foyer, last edit 2")), qPrintable(listed.out));
        QVERIFY(
            listed.out.endsWith(QStringLiteral(", unsaved steps: 1 and changes without a step, complete\n")));
        const QString file = path("recovered.sprj");
        QCOMPARE(recover(QStringLiteral("--restore 1 ") + file).status, 0);
        QVERIFY(CProcessorProject::read(file).value() == edited);
        QCOMPARE(recover({}).status, 3); // they are saved, with their history
        SJournal history;
        const CJournalFolder journals(CJournalFolder::defaultPath());
        QVERIFY(journals.findHistory(file, history) == CJournalFolder::Kept::Same);
        QCOMPARE(history.state.history().saved, 1);
        leave();
        for (const char *wrong : {"--restore 1",
                                  "--discard 1 "
                                  "a.sprj",
                                  "--discard 0", "--restore 1 a.png"})
            QCOMPARE(recover(QLatin1String(wrong)).status, 2);
        QCOMPARE(recover(QStringLiteral("--discard 2")).status, 1);
        QCOMPARE(recover(QStringLiteral("--discard 1")).status, 0);
        QCOMPARE(recover({}).status, 3);
    }

    void refusesWrongUsage_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("said");
        const auto row = [](const char *arguments, int status, const char *said) {
            QTest::newRow(arguments) << status << QString::fromUtf8(said);
        };
        row("paint a.sprj", 2, "no such command");
        row("new NEW --cabinet 64x64 --columns 1 --rows 1", 2, "--ports is missing");
        row("new NEW --cabinet 64x64 --columns 12abc --rows 1 --ports 1", 2, "12abc");
        row("new NEW --cabinet 64x64 --columns -8 --rows 1 --ports 1", 2, "from 1 to 32768, not \"-8\"");
        row("new NEW --cabinet 0x0 --columns 1 --rows 1 --ports 1", 2, "from 1 to 2048, not \"0x0\"");
        row("new NEW --cabinet 64x64x64 --columns 1 --rows 1 --ports 1", 2, "not \"64x64x64\"");
        row("new NEW --cabinet 64x64 --columns 1 --rows 1 --rows 2 --ports 1", 2, "--rows is given twice");
        row("new NEW --cabinet 64x64 --columns 1 --rows 1 --ports 99999", 2, "from 1 to 80");
        row("new NEW --cabinet 64x64 --columns 1 --rows 1 --ports 1 --pattern 8", 2, "0 to 7");
        row("new NEW --cabinet 64x64 --columns 1 --rows 1 --ports 1 --pattern 4294967296", 2, "0 to 7");
        row("new NEW --cabinet 64x64 --columns 1 --rows 1 --ports", 2, "needs a value");
        row("new NEW --cabinet 64x64 --columns=60 --rows=60 --ports=1", 1, "up to 1024");
        row("new NEW.txt --cabinet 64x64 --columns 1 --rows 1 --ports 1", 2, ".sprj");
        row("export WALL", 2, "2 files");
        row("export WALL OUT.txt", 2, "must end in");
        row("export WALL OUT.csv --size 10x10", 2, "only a picture");
        row("export WALL OUT.pdf --size 10x10", 2, "only a picture");
        row("export WALL OUT.svg --sheets cover --dpi 100", 2, "--dpi is for");
        row("export WALL OUT.png --grey", 2, "name those with --sheets");
        row("export WALL OUT.csv --sheets cover", 2, "a table has none");
        row("export WALL WALL OUT.png", 2, "several projects");
        row("export WALL OUT.pdf --paper A9", 2, "\"A9\" is no value for --paper");
        row("export WALL OUT.pdf --stock 5,5", 2, "no value for --stock");
        row("export WALL OUT.pdf --rack above,1,1", 2, "no value for --rack");
        row("export WALL OUT.pdf --date 2026-02-30", 2, "no value for --date");
        row("export WALL OUT.pdf --scale 25", 2, "no value for --scale");
        row("export WALL OUT.pdf --grey=1", 2, "--grey has no value");
        row("export WALL OUT.pdf --front --back", 2, "--front and --back contradict");
        row("export WALL OUT.pdf --paper 100x100", 1, "too small");
        row("export WALL OUT.pdf --paper 420x297 --portrait", 2, "leave out --portrait");
        row("export WALL OUT.pdf --designer \uE000", 1, "no font for the letters");
        row("export WALL OUT.png --keep", 2, "name those with --sheets");
        row("export WALL WALL OUT.pdf", 1, "the same processor");
        row("export WALL WALL OUT.pdf --pairs 1:2,2:1", 2, "\"2:1\" in --pairs");
        row("export WALL OUT.pdf --pairs 1:2", 2, "places of projects");
        row("export WALL NOWHERE/OUT.pdf", 1, "OUT.pdf\" cannot be written");
        row("export WALL OUT.png --size 16384x16384", 2, "at most");
        row("export MISSING.sprj OUT.png", 1, "MISSING.sprj\" cannot be read");
        row("export WALL NOWHERE/OUT.png", 1, "OUT.png\" cannot be written");
        row("check", 2, "Usage: orvo check FILE");
    }
    void refusesWrongUsage()
    {
        QFETCH(int, status);
        QFETCH(QString, said);
        QStringList list = QString::fromUtf8(QTest::currentDataTag()).split(QLatin1Char(' '));
        for (QString &argument : list) {
            if (argument == QLatin1String("WALL"))
                argument = wall();
            else if (argument == QLatin1String("NEW"))
                argument = path("refused.sprj");
            else if (argument.startsWith(QLatin1String("OUT.")) ||
                     argument.startsWith(QLatin1String("NOWHERE")))
                argument = m_folder.filePath(argument);
        }
        const SRun run = runHere(list);
        QCOMPARE(run.status, status);
        QCOMPARE(run.out, QString());
        QVERIFY2(run.errors.startsWith(QLatin1String("orvo: ")) && run.errors.contains(said),
                 qPrintable(run.errors));
        QVERIFY(
            QDir(m_folder.path()).entryList({QStringLiteral("OUT*"), QStringLiteral("refused*")}).isEmpty());
    }

    void exportsATable()
    {
        SProcessorProject project = CProcessorProject::read(wall()).value();
        auto &group = project.layout.ports[1].groups[0];
        group.uuid = QUuid::createUuidV5(QUuid(), QStringLiteral("group"));
        group.name = QStringLiteral("B\u00fchne, \"links\"");
        group.cabinets[0].rank = -1;
        group.cabinets[1].type = CTypeLibrary::builtIn().findBySize({192, 192})->key;
        QVERIFY(CProcessorProject::write(path("table.sprj"), project));
        QCOMPARE(runHere({QStringLiteral("export"), path("table.sprj"), path("table.csv")}).status, 0);
        const QList<QByteArray> lines = ProjectSamples::contentOf(path("table.csv")).split('\n');
        QCOMPARE(lines.size(), 10);
        QCOMPARE(
            lines.at(0),
            QByteArray("port,rank,uuid,x,y,width,height,type,group,number,row,column,x_mm,y_mm,processor\r"));
        const auto uuid = [&project](int port, int index) {
            return project.layout.ports[port].groups[0].cabinets[index].uuid.toByteArray(
                QUuid::WithoutBraces);
        };
        QCOMPARE(lines.at(1), "1,0," + uuid(0, 0) + ",0,0,64,32,,,1,1,1,0,0,wall\r");
        QCOMPARE(lines.at(5),
                 "2,1," + uuid(1, 1) +
                     ",192,0,64,32,Rental indoor P2.6,\"B\u00fchne, \"\"links\"\"\",1,1,4,499,0,wall\r");
        QCOMPARE(lines.at(8),
                 "2,," + uuid(1, 0) + ",128,0,64,32,,\"B\u00fchne, \"\"links\"\"\",,1,3,333,0,wall\r");
        runHere({QStringLiteral("export"), wall(), path("table.csv"), QStringLiteral("--pitch=3.5")});
        QVERIFY(ProjectSamples::contentOf(path("table.csv")).contains(",1,2,224,0,wall\r")); // 64 pixels
    }

    void aPictureKeepsEachPixel()
    {
        QRandomGenerator random(7);
        for (const QSize &size : {QSize(1, 1), QSize(3, 2), QSize(301, 97)}) {
            QImage image(size, QImage::Format_RGB32);
            for (int y = 0; y < size.height(); ++y) {
                for (int x = 0; x < size.width(); ++x)
                    image.setPixel(x, y, y % 3 == 2 ? image.pixel(x, y - 1) : random.generate());
            }
            const QImage read = QImage::fromData(CPngEncoder::encode(image), "png");
            QCOMPARE(read.convertToFormat(QImage::Format_RGB32), image);
        }
    }

    void exportsAPicture()
    {
        QCOMPARE(runHere({QStringLiteral("export"), wall(), path("wall.png")}).status, 0);
        QCOMPARE(QImage(path("wall.png")).size(), QSize(1920, 480));
        QCOMPARE(
            runHere({QStringLiteral("export"), wall(), path("wall.PNG"), QStringLiteral("--size=512x128")})
                .status,
            0);
        const QImage picture(path("wall.PNG"));
        QCOMPARE(picture.size(), QSize(512, 128));
        QSet<QRgb> colors; // of cabinets of both ports, beside their wires and numbers
        for (const QPoint &point : {QPoint(20, 20), QPoint(400, 100)})
            colors << picture.pixel(point);
        QCOMPARE(colors.size(), 2);
    }

    void exportsSheets()
    {
        const auto run = [this](const char *file, const char *options) {
            return runHere(QStringList{QStringLiteral("export"), wall(), path(file)} +
                           QString::fromLatin1(options).split(QLatin1Char(' ')));
        };
        const SRun plan =
            run("plan.pdf", "--date 2026-05-04 --paper A3 --both --grey --far-end B --rack right,1,2");
        QCOMPARE(plan.errors, QString());
        QCOMPARE(plan.out, path("plan.pdf") + QLatin1Char('\n'));
        const QByteArray content = ProjectSamples::contentOf(path("plan.pdf"));
        run("plan.pdf", "--date 2026-05-04 --paper A3 --both --grey --far-end B --rack right,1,2");
        QCOMPARE(ProjectSamples::contentOf(path("plan.pdf")), content);
        QCOMPARE(content.count("/Type /Page\n"), 1 + 1 + 2 + 2 * 2 + 1 + 1);
        QVERIFY(content.contains("/MediaBox [0 0 1191"));
        const SRun tiny = run("plan.pdf", "--sheets overview --scale 1:1000");
        QCOMPARE(tiny.status, 0);
        QVERIFY2(tiny.errors.contains(QStringLiteral("to fit: 1")), qPrintable(tiny.errors));
        const SRun distant = run("plan.pdf", "--sheets parts --rack left,90000,0");
        QCOMPARE(distant.status, 0);
        QVERIFY2(distant.errors.contains(QStringLiteral("in stock: port 1, feed to r1 c1; port 2,")),
                 qPrintable(distant.errors));

        QCOMPARE(run("plan.png", "--sheets cover,table --dpi 50").out,
                 path("plan-1.png") + QLatin1Char('\n') + path("plan-2.png") + QLatin1Char('\n'));
        QCOMPARE(QImage(path("plan-2.png")).size(), QSize(585, 413));
        QCOMPARE(run("sheet.svg", "--sheets parts").out, path("sheet.svg") + QLatin1Char('\n'));
        QVERIFY(ProjectSamples::contentOf(path("sheet.svg")).contains(">Parts list<"));
        run("sheet.svg", "--sheets parts --slack 6500,70 --stock 7,9 --pitch 10 --rack left,0,0");
        const QByteArray parts = ProjectSamples::contentOf(path("sheet.svg"));
        QVERIFY(parts.contains(">9<") && parts.contains(">870<")); // hops of 7,140 mm; a feed
        QCOMPARE(run("wall.svg", "--size 512x128").status, 0);
        QVERIFY(ProjectSamples::contentOf(path("wall.svg")).contains("viewBox=\"0 0 512 128\""));
        const QString full = path("full.sprj");
        runHere({QStringLiteral("new"), full, QStringLiteral("--cabinet=192x192"),
                 QStringLiteral("--columns=10"), QStringLiteral("--rows=4"), QStringLiteral("--ports=2")});
        QCOMPARE(runHere({QStringLiteral("export"), full, path("full.svg")}).status, 0);
        QCOMPARE(ProjectSamples::contentOf(path("full.svg")).count(">112%<"), 2); // of each overloaded port
    }

    void keepsSettingsInProjects()
    {
        const QString left = path("left.sprj");
        const QString right = path("right.sprj");
        runHere(newArguments(left));
        runHere(newArguments(right));
        const auto plan = [&](const char *options) {
            return runHere(QStringList{QStringLiteral("export"), left, right, path("both.pdf")} +
                           QString::fromLatin1(options).split(QLatin1Char(' ')));
        };
        QCOMPARE(plan("--date 2026-05-04 --paper A3 --designer Weber").status, 0);
        runHere({QStringLiteral("export"), left, right, path("both.csv")});
        const QByteArray table = ProjectSamples::contentOf(path("both.csv"));
        QCOMPARE(table.count(",left\r"), table.count(",right\r"));
        QCOMPARE(table.count('\n'), 1 + 2 * table.count(",left\r"));
        QCOMPARE(CProcessorProject::read(left).value().print, PrintConfig());
        QCOMPARE(plan("--date 2026-05-04 --paper A3 --designer Weber --keep").errors, QString());
        const QByteArray content = ProjectSamples::contentOf(path("both.pdf"));
        const PrintConfig config = CProcessorProject::read(right).value().print;
        QCOMPARE(config.designer, QStringLiteral("Weber"));
        QCOMPARE(config.paper, PrintConfig::A3);
        QVERIFY(!config.date.isValid());
        plan("--date 2026-05-04");
        QVERIFY(ProjectSamples::contentOf(path("both.pdf")) == content);
        SProcessorProject other = CProcessorProject::read(right).value();
        other.print.paper = PrintConfig::A4; // one processor's own
        QVERIFY(CProcessorProject::write(right, other));
        plan("--date 2026-05-04");
        const QByteArray mixed = ProjectSamples::contentOf(path("both.pdf"));
        QVERIFY(mixed.contains("/MediaBox [0 0 1191") && mixed.contains("/MediaBox [0 0 842"));
    }

    void everyOptionChangesItsSetting()
    {
        using Config = PrintConfig;
        const auto text = [](const char *words) { return QString::fromLatin1(words); };
        const QVector<QPair<const char *, std::function<void(Config &)>>> options{
            {"--sheets=cover,parts", [](Config &c) { c.sheets = Config::Cover | Config::PartsList; }},
            {"--paper=Tabloid", [](Config &c) { c.paper = Config::Tabloid; }},
            {"--landscape", [](Config &c) { c.landscape = true; }},
            {"--portrait", [](Config &c) { c.landscape = false; }},
            {"--binding=top", [](Config &c) { c.binding = Config::BindTop; }},
            {"--binding-margin=7.5", [](Config &c) { c.bindingMargin = 7.5; }},
            {"--margin=6", [](Config &c) { c.margin = 6; }},
            {"--front", [](Config &c) { c.views = Config::FrontView; }},
            {"--back", [](Config &c) { c.views = Config::BackView; }},
            {"--both", [](Config &c) { c.views = Config::BothViews; }},
            {"--scale=1:25", [](Config &c) { c.scale = 25; }},
            {"--grey", [](Config &c) { c.grey = true; }},
            {"--color", [](Config &c) { c.grey = false; }},
            {"--address=a", [&](Config &c) { c.address = text("a"); }},
            {"--project=a", [&](Config &c) { c.project = text("a"); }},
            {"--venue=a", [&](Config &c) { c.venue = text("a"); }},
            {"--designer=a", [&](Config &c) { c.designer = text("a"); }},
            {"--auditor=a", [&](Config &c) { c.auditor = text("a"); }},
            {"--date=2026-05-04", [](Config &c) { c.date = QDate(2026, 5, 4); }},
            {"--notes=a", [&](Config &c) { c.notes = text("a"); }},
            {"--watermark=a", [&](Config &c) { c.watermark = text("a"); }},
            {"--far-end=a", [&](Config &c) { c.farEnd = text("a"); }},
            {"--rack=right,1,2",
             [](Config &c) {
                 c.rack = {true, 1, 2};
             }},
            {"--slack=1,2", [](Config &c) { c.cables.hopSlack = 1, c.cables.feedSlack = 2; }},
            {"--stock=7,4",
             [](Config &c) {
                 c.cables.stock = {4, 7};
             }},
            {"--spares=9", [](Config &c) { c.cables.sparePercent = 9; }},
            {"--supply=110,1,20,70",
             [](Config &c) {
                 c.supply = {110, 1, 20, 70};
             }},
            {"--pitch=3.5", [](Config &c) { c.pixelPitch = 3.5; }}};
        Config other; // where flags change something that change nothing by default
        other.landscape = false;
        other.grey = true;
        other.views = Config::BothViews;
        const QStringList names = CPrintOptions::names();
        QCOMPARE(options.size(), (names + CPrintOptions::flags()).size());
        for (const auto &option : options) {
            const QStringList given{text(option.first), text("OUT")};
            const auto arguments = CCommandArguments::parse(given, names, CPrintOptions::flags(), 1);
            QVERIFY2(arguments, option.first);
            for (const Config &start : {Config(), other}) {
                Config config = start;
                Config wanted = start;
                option.second(wanted);
                QCOMPARE(CPrintOptions::apply(arguments.value(), config), QString());
                QVERIFY2(config == wanted, option.first);
            }
        }
    }

    void helpNamesEveryOption()
    {
        const QString help = runHere({QStringLiteral("export"), QStringLiteral("--help")}).out;
        for (const QString &option : CPrintOptions::names() + CPrintOptions::flags())
            QVERIFY2(help.contains(QStringLiteral("  %1 ").arg(option)), qPrintable(option));
    }

    void tellsFindings()
    {
        QCOMPARE(runHere({QStringLiteral("check"), wall()}).status, 0);
        QCOMPARE(runHere({QStringLiteral("check"), QString()}).status, 2);
        SProcessorProject project = CProcessorProject::read(wall()).value();
        project.layout.ports[1].groups[0].cabinets[0].rank = -1;
        project.layout.ports[0].groups[0].cabinets[0].rect = QRect(-2000, 0, 2000, 2000);
        QVERIFY(CProcessorProject::write(path("wrong.sprj"), project));
        const SRun run = runHere({QStringLiteral("check"), path("wrong.sprj")});
        QCOMPARE(run.status, 1);
        for (const char *text :
             {"950,000,000 bits a second. The port's rate determines the load: it carries 659,722 pixels.",
              "Port 1: overloaded", "Processor: overloaded", "Port 1: the cabinet at (-2000, 0) lies outside",
              "Port 2: the cabinet at (128, 0) is not wired"})
            QVERIFY2(run.out.contains(QLatin1String(text)), qPrintable(run.out));
        QVERIFY2(run.errors.contains(path("wrong.sprj")), qPrintable(run.errors));
        project.colorDepth = 10;
        project.kind = QStringLiteral("unknown"); // the smallest with as many ports counts
        QVERIFY(CProcessorProject::write(path("deep.sprj"), project));
        const QString deep = runHere({QStringLiteral("check"), path("deep.sprj")}).out;
        QVERIFY2(deep.contains(QLatin1String("it carries 494,791 pixels")), qPrintable(deep));
    }

    void tellsWhenItsOutputIsLost()
    {
        for (const QStringList &arguments :
             {QStringList(QStringLiteral("--help")), QStringList({QStringLiteral("check"), wall()})}) {
            const SRun run = runProgram(arguments, QStringLiteral("/dev/full"));
            QCOMPARE(run.status, 1);
            QCOMPARE(run.errors, QStringLiteral("orvo: the output could not be written\n"));
        }
    }

    void runsAsAProgramWithoutADisplay()
    {
        const SRun help = runProgram({QStringLiteral("--help")});
        QCOMPARE(help.status, 0);
        QVERIFY(help.out.contains(QLatin1String("orvo new")) && help.errors.isEmpty());
        QCOMPARE(runProgram({QStringLiteral("--version")}).out, QStringLiteral("orvo " ORVO_VERSION "\n"));
        QCOMPARE(runProgram({QStringLiteral("check"), path("missing.sprj")}).status, 1);
        QCOMPARE(runProgram({QStringLiteral("new")}).status, 2);
        const SRun picture = runProgram({QStringLiteral("export"), wall(), path("program.png")});
        QCOMPARE(picture.status, 0);
        QCOMPARE(picture.errors, QString());
        QCOMPARE(QImage(path("program.png")).width(), 1920);
    }
};

/// The test is the program under test as well: called with a command it runs that.
int main(int argc, char **argv)
{
    if (CCommandLine::isCommand(argc, argv))
        return CCommandLine::main(argc, argv);
    const CTestEnvironment environment;
    QGuiApplication application(argc, argv);
    CCommandsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_commands.moc"
