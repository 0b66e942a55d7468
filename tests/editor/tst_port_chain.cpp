// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QPen>

namespace {

using Scene = CCabinetGraphicsScene;
using Cabinet = CGraphicsCabinetItem;

/// A port whose cabinets are called A, B, C and so on, and whose chain is changed by scripts.
class CLetterPort final
{
public:
    explicit CLetterPort(const CabinetLayout::CabinetPort &port)
        : m_scene(m_states)
    {
        const LayoutData data = SmallWorlds::data({port});
        m_scene.setLayoutData(SmallWorlds::node(data), data);
    }

    Scene &scene() { return m_scene; }
    CPortChain &chain() { return m_scene.portItem(0)->chain(); }
    QVector<Cabinet *> cabinets() const { return m_scene.portItem(0)->cabinets(nullptr); }
    Cabinet &cabinet(char letter) const { return *cabinets().at(letter - 'A'); }

    /// Steps: +A append, A>B link, A/B unlink the pair, -A unlink, !A cut, 2^A insert at 2.
    void run(const QString &script)
    {
        const QStringList steps = script.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &step : steps) {
            Cabinet &last = cabinet(step.back().toLatin1());
            if (step.contains(QLatin1Char('^')))
                chain().insert(step.section(QLatin1Char('^'), 0, 0).toInt(), &last);
            else if (step.contains(QLatin1Char('>')))
                chain().link(&cabinet(step.front().toLatin1()), &last);
            else if (step.contains(QLatin1Char('/')))
                chain().unlinkPair(cabinet(step.front().toLatin1()), last);
            else if (step.startsWith(QLatin1Char('+')))
                chain().append(last);
            else
                chain().unlink(last, step.startsWith(QLatin1Char('-')));
        }
    }

    /// Role and position of each wired cabinet, then the connections: "A1@0 B3@1 | A>B".
    QString state() const
    {
        QStringList words;
        QStringList links;
        for (const Cabinet *cabinet : cabinets()) {
            if (cabinet->isInChain())
                words << QStringLiteral("%1%2@%3")
                             .arg(letterOf(cabinet))
                             .arg(cabinet->chainRole())
                             .arg(cabinet->chainPosition());
            if (const CGraphicsConnectionItem *line = cabinet->outgoing())
                links << letterOf(cabinet) + QLatin1Char('>') + letterOf(line->to());
        }
        return (words << QStringLiteral("|") << links).join(QLatin1Char(' '));
    }

    /// What must hold after any step, of a cut chain too; empty when it does.
    QString fault() const
    {
        int lines = 0;
        for (const QGraphicsItem *child : m_scene.portItem(0)->childItems())
            lines += child->type() == ConnectionItemKind ? 1 : 0;
        for (const Cabinet *cabinet : cabinets()) {
            const QString name = letterOf(cabinet);
            if (cabinet->cabinet().rank != cabinet->chainPosition())
                return name + QStringLiteral(": rank in the record is not the position");
            if ((cabinet->chainRole() == Cabinet::NotInChain) != (cabinet->chainPosition() == -1))
                return name + QStringLiteral(": role and position disagree");
            const CGraphicsConnectionItem *line = cabinet->outgoing();
            if (line && (line->from() != cabinet || line->to()->incoming() != line))
                return name + QStringLiteral(": outgoing line is not the other's incoming");
            lines -= line ? 1 : 0;
        }
        return lines == 0 ? QString() : QStringLiteral("lines without a cabinet");
    }

private:
    QString letterOf(const Cabinet *cabinet) const
    {
        return QChar('A' + cabinets().indexOf(const_cast<Cabinet *>(cabinet)));
    }

    CFixedPortStates m_states;
    Scene m_scene;
};

CabinetLayout::CabinetPort unwired()
{
    return SmallWorlds::port(0, {SmallWorlds::loose(0, 6)});
}

} // namespace

class CPortChainTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void chainRules_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("state");
        const auto row = [](const char *name, const char *script, const char *state) {
            QTest::newRow(name) << QString::fromLatin1(script) << QString::fromLatin1(state);
        };
        row("append to none", "+C", "C1@0 |");
        row("append a third", "+B +C +A", "A3@2 B1@0 C2@1 | B>C C>A");
        row("append a member", "+A +B +C +A", "A1@0 B2@1 C3@2 | A>B B>C");
        row("append to a chain without a tail", "+A +B +C !C +D", "A1@0 B2@1 D3@1 | A>D");

        row("link two", "B>A", "A3@1 B1@0 | B>A");
        row("link over what follows", "A>B A>C", "A1@0 B3@1 C3@1 | A>C");
        row("link over what precedes", "A>B C>B", "A1@0 B3@1 C1@0 | C>B");
        row("link before the middle", "+A +B +C D>B", "A1@0 B2@1 C3@2 D1@0 | B>C D>B");
        row("link two chains", "C>D A>B B>C", "A1@0 B2@1 C2@2 D3@3 | A>B B>C C>D");
        row("link long chains", "D>E E>F A>B B>C C>D", "A1@0 B2@1 C2@2 D2@3 E2@4 F3@5 | A>B B>C C>D D>E E>F");
        row("close a cut", "+A +B +C !B A>B B>C +D", "A1@0 B2@1 C2@2 D3@3 | A>B B>C C>D");

        row("insert into none", "3^B", "B1@0 |");
        row("insert at 0", "+A +B 0^C", "A2@1 B3@2 C1@0 | A>B C>A");
        row("insert after the only one", "+A 1^B", "A1@0 B3@1 | A>B");
        row("insert between two", "+A +B 1^C", "A1@0 B3@2 C2@1 | A>C C>B");
        row("insert in the middle", "+A +B +C +D 2^E", "A1@0 B2@1 C2@3 D3@4 E2@2 | A>B B>E C>D E>C");
        row("insert beyond the end", "+A +B 7^C", "A1@0 B2@1 C3@2 | A>B B>C");
        row("insert at a negative place", "+A +B -1^C", "A1@0 B3@1 | A>B");
        row("insert a member", "+A +B +C 0^C", "A1@0 B2@1 C3@2 | A>B B>C");
        row("insert where it was cut", "+A +B +C !B 1^B", "A1@0 B3@1 C3@2 | A>B");
        row("insert behind a cut", "+A +B +C +D !B 2^B", "A1@0 B1@0 C2@1 D3@2 | B>C C>D");

        row("unlink the head", "+A +B +C -A", "B1@0 C3@1 | B>C");
        row("unlink the middle", "+A +B +C +D -B", "A1@0 C2@1 D3@2 | A>C C>D");
        row("unlink the tail", "+A +B +C -C", "A1@0 B3@1 | A>B");
        row("unlink the only one", "+A -A", "|");
        row("unlink what is not wired", "+A +B -C", "A1@0 B3@1 | A>B");
        row("unlink and append", "+A +B +C -B +B", "A1@0 B3@2 C2@1 | A>C C>B");
        row("cut the head", "+A +B +C !A", "B2@1 C3@2 | B>C");
        row("cut the middle", "+A +B +C +D !B", "A1@0 C2@2 D3@3 | C>D");
        row("cut the tail", "+A +B +C !C", "A1@0 B2@1 | A>B");
        row("cut the only one", "+A !A +B", "B1@0 |");

        row("unlink a pair", "+A +B +C A/B", "C3@2 | B>C");
        row("unlink a chain of a pair", "+A +B A/B", "|");
        row("append beside a rest", "+A +B +C +D C/D A/B +E +B", "B2@1 C3@2 E1@0 | B>C E>B");
        row("unlink a pair backwards", "+A +B B/A", "A1@0 B3@1 | A>B");
        row("unlink a distant pair", "+A +B +C A/C", "A1@0 B2@1 C3@2 | A>B B>C");
    }
    void chainRules()
    {
        QFETCH(QString, script);
        QFETCH(QString, state);
        CLetterPort port(unwired());
        const QStringList steps = script.split(QLatin1Char(' '));
        for (const QString &step : steps) {
            port.run(step);
            QCOMPARE(port.fault(), QString());
        }
        QCOMPARE(port.state(), state);
    }

    void lookUps()
    {
        CLetterPort port(unwired());
        CPortChain &chain = port.chain();
        QVERIFY(!chain.head() && !chain.tail() && !chain.at(0) && chain.order().isEmpty());
        port.run(QStringLiteral("+B"));
        QCOMPARE(chain.head(), &port.cabinet('B'));
        QVERIFY(!chain.tail());
        QCOMPARE(chain.at(0), &port.cabinet('B'));
        port.run(QStringLiteral("+A +D +C"));
        QCOMPARE(chain.tail(), &port.cabinet('C'));
        QCOMPARE(chain.at(2), &port.cabinet('D'));
        QVERIFY(!chain.at(-1) && !chain.at(4));
        port.run(QStringLiteral("!A"));
        QCOMPARE(chain.head(), &port.cabinet('B'));
        QCOMPARE(chain.tail(), &port.cabinet('C'));
        QVERIFY(!chain.at(1) && !chain.at(4));
        QCOMPARE(chain.at(2), &port.cabinet('D'));
        QCOMPARE(chain.order(), (QVector<Cabinet *>{chain.head(), chain.at(2), chain.tail()}));
    }

    void linkGivesTheConnection()
    {
        CLetterPort port(unwired());
        Cabinet &a = port.cabinet('A');
        Cabinet &b = port.cabinet('B');
        CGraphicsConnectionItem *line = port.chain().link(&a, &b);
        QVERIFY(line);
        QCOMPARE(port.chain().link(&a, &b), line);
        QVERIFY(!port.chain().link(nullptr, &b));
        QVERIFY(!port.chain().link(&a, nullptr));
        QVERIFY(!port.chain().link(&a, &a));
        port.chain().insert(0, nullptr);
        QCOMPARE(port.state(), QStringLiteral("A1@0 B3@1 | A>B"));
    }

    void marksGoWithTheWiring_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("unlink") << "-A";
        QTest::newRow("cut") << "!A";
        QTest::newRow("pair") << "A/B";
    }
    void marksGoWithTheWiring()
    {
        QFETCH(QString, script);
        CLetterPort port(unwired());
        port.run(QStringLiteral("+A +B"));
        Cabinet &a = port.cabinet('A');
        a.setRectFlag(1, true);
        QVERIFY(a.rectFlag(1) && !a.rectFlag(0) && !a.rectFlag(2) && !a.rectFlag(-1));
        port.run(script);
        QVERIFY(!a.rectFlag(1));
    }

    void linesEndAtTheReceivers_data()
    {
        QTest::addColumn<QVector<QRect>>("rects");
        QTest::addColumn<bool>("typed");
        QTest::addColumn<bool>("anchored");
        QTest::addColumn<QPointF>("entry");
        QTest::addColumn<QPointF>("exit");
        const QVector<QRect> two = {{0, 0, 64, 128}, {64, 0, 64, 128}};
        const QVector<QRect> three = {{0, 0, 43, 127}, {43, 0, 43, 127}, {86, 0, 42, 127}};
        const QPointF centre(64, 64);
        QTest::newRow("two") << two << true << true << QPointF(31, 63) << QPointF(95, 63);
        QTest::newRow("three") << three << true << true << QPointF(21, 63) << QPointF(106, 63);
        QTest::newRow("towards zero") << QVector<QRect>{{-5, -4, 4, 2}, {0, 0, 2, 2}} << true << true
                                      << QPointF(-3, -3) << QPointF(0, 0);
        QTest::newRow("one") << two.mid(1) << true << true << centre << centre;
        QTest::newRow("none") << QVector<QRect>() << true << true << centre << centre;
        QTest::newRow("custom size") << two << false << true << centre << centre;
        QTest::newRow("not anchored") << two << true << false << centre << centre;
    }
    void linesEndAtTheReceivers()
    {
        QFETCH(QVector<QRect>, rects);
        QFETCH(bool, typed);
        QFETCH(bool, anchored);
        QFETCH(QPointF, entry);
        QFETCH(QPointF, exit);
        CLetterPort port(unwired());
        port.run(QStringLiteral("+C +B +D"));
        Cabinet &cabinet = port.cabinet('B');
        const QPointF place = cabinet.scenePos();
        CabinetLayout::CabinetPort::Cabinet record = cabinet.cabinet();
        record.rects = rects;
        record.type = typed ? SMD5::ofContent("type") : SMD5();
        cabinet.setCabinet(record);
        cabinet.setRectAnchored(anchored);
        QCOMPARE(cabinet.incoming()->line(), QLineF(port.cabinet('C').exitPoint(), place + entry));
        QCOMPARE(cabinet.outgoing()->line(), QLineF(place + exit, port.cabinet('D').entryPoint()));
    }
};

ORVO_TEST_MAIN(QApplication, CPortChainTest)
#include "tst_port_chain.moc"
