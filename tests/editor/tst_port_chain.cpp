// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SPortsScene.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>

namespace {

using Cabinet = CGraphicsCabinetItem;

/// A port whose cabinets are called A, B, C and so on, and whose chain is changed by scripts.
class CLetterPort final : public SPortsScene
{
public:
    CLetterPort()
        : SPortsScene({SmallWorlds::port(0, {SmallWorlds::loose(0, 6)})})
    {
    }

    CPortChain &chain() { return scene.backend().content().portItem(0)->chain(); }
    QVector<Cabinet *> cabinets() const { return scene.backend().content().portItem(0)->cabinets(nullptr); }
    Cabinet &cabinet(char letter) const { return *cabinets().at(letter - 'A'); }

    QVector<Cabinet *> cabinetsNamed(const char *letters) const
    {
        QVector<Cabinet *> named;
        for (; *letters; ++letters)
            named << &cabinet(*letters);
        return named;
    }

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
            if (cabinet->cabinet().rank != cabinet->chainPosition())
                words << QStringLiteral("rank of another place");
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

private:
    QString letterOf(const Cabinet *cabinet) const
    {
        return QChar('A' + cabinets().indexOf(const_cast<Cabinet *>(cabinet)));
    }
};

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
        row("append a member", "+A +B +C +A", "A1@0 B2@1 C3@2 | A>B B>C");
        row("append to a chain without a tail", "+A +B +C !C +D", "A1@0 B2@1 D3@1 | A>D");

        row("link over what follows", "A>B A>C", "A1@0 B3@1 C3@1 | A>C");
        row("link over what precedes", "A>B C>B", "A1@0 B3@1 C1@0 | C>B");
        row("link before the middle", "+A +B +C D>B", "A1@0 B2@1 C3@2 D1@0 | B>C D>B");
        row("link long chains", "D>E E>F A>B B>C C>D", "A1@0 B2@1 C2@2 D2@3 E2@4 F3@5 | A>B B>C C>D D>E E>F");
        row("close a cut", "+A +B +C !B A>B B>C +D", "A1@0 B2@1 C2@2 D3@3 | A>B B>C C>D");

        row("insert into none", "3^B", "B1@0 |");
        row("insert at 0", "+A +B 0^C", "A2@1 B3@2 C1@0 | A>B C>A");
        row("insert beyond the end", "+A +B 7^C", "A1@0 B2@1 C3@2 | A>B B>C");
        row("insert at a negative place", "+A +B -1^C", "A1@0 B3@1 | A>B");
        row("insert a member", "+A +B +C 0^C", "A1@0 B2@1 C3@2 | A>B B>C");
        row("insert where it was cut", "+A +B +C !B 1^B", "A1@0 B3@1 C3@2 | A>B");
        row("insert behind a cut", "+A +B +C +D !B 2^B", "A1@0 B1@0 C2@1 D3@2 | B>C C>D");

        row("unlink the head", "+A +B +C -A", "B1@0 C3@1 | B>C");
        row("unlink the middle", "+A +B +C -B", "A1@0 C3@1 | A>C");
        row("unlink before others", "+A +B +C +D +E -B", "A1@0 C2@1 D2@2 E3@3 | A>C C>D D>E");
        row("unlink the end of a pair", "+A +B -B", "A1@0 |");
        row("unlink what is not wired", "+A +B -C", "A1@0 B3@1 | A>B");
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
        CLetterPort port;
        port.run(script);
        QTEST(port.state(), "state");
    }

    void lookUps()
    {
        CLetterPort port;
        CPortChain &chain = port.chain();
        QVERIFY(!chain.head() && !chain.tail() && !chain.at(0) && chain.order().isEmpty());
        port.run(QStringLiteral("+B"));
        QVERIFY(!chain.tail());
        QCOMPARE(chain.at(0), &port.cabinet('B'));
        port.run(QStringLiteral("+A +D +C !A"));
        QCOMPARE(chain.order(), port.cabinetsNamed("BDC"));
        QCOMPARE(chain.head(), &port.cabinet('B'));
        QCOMPARE(chain.tail(), &port.cabinet('C'));
        QCOMPARE(chain.at(2), &port.cabinet('D'));
        QVERIFY(!chain.at(-1) && !chain.at(1) && !chain.at(4));
    }

    void linkGivesTheConnection()
    {
        CLetterPort port;
        Cabinet &a = port.cabinet('A');
        Cabinet &b = port.cabinet('B');
        CGraphicsConnectionItem *line = port.chain().link(&a, &b);
        QVERIFY(line);
        QCOMPARE(port.chain().link(&a, &b), line);
        QVERIFY(!port.chain().link(nullptr, &b) && !port.chain().link(&a, nullptr));
        QVERIFY(!port.chain().link(&a, &a));
        port.chain().insert(0, nullptr);
        QCOMPARE(port.state(), QStringLiteral("A1@0 B3@1 | A>B"));
    }

    /// Within a batch a removed line is kept for the same cabinet; at its end no line is left over.
    void linesAreUsedAgain()
    {
        CLetterPort port;
        port.run(QStringLiteral("+A +B +C +D"));
        const CGraphicsConnectionItem *line = port.cabinet('A').outgoing();
        {
            const CEditBatch batch(port.scene.backend().batches());
            port.run(QStringLiteral("-D -C -B -A +A +D"));
            port.cabinet('D').setPos(500, 600);
        }
        QCOMPARE(port.cabinet('A').outgoing(), line);
        QCOMPARE(line->line().p2(), port.cabinet('D').entryPoint());
        QCOMPARE(CSceneVerifier::faultIn(port.scene), QString());
    }

    void marksGoWithTheWiring()
    {
        for (const char *script : {"-A", "!A", "A/B"}) {
            CLetterPort port;
            port.run(QStringLiteral("+A +B"));
            Cabinet &a = port.cabinet('A');
            a.setRectFlag(1, true);
            QVERIFY(a.rectFlag(1) && !a.rectFlag(0) && !a.rectFlag(2) && !a.rectFlag(-1));
            port.run(QString::fromLatin1(script));
            QVERIFY(!a.rectFlag(1));
        }
    }

    void linesEndAtTheReceivers()
    {
        CLetterPort port;
        port.run(QStringLiteral("+C +B +D"));
        Cabinet &cabinet = port.cabinet('B');
        CabinetLayout::CabinetPort::Cabinet record = cabinet.cabinet();
        record.rects = {{0, 0, 43, 127}, {43, 0, 43, 127}, {86, 0, 42, 127}};
        record.type = SMD5::ofContent("type");
        cabinet.setCabinet(record);
        for (const bool anchored : {true, false}) {
            cabinet.setRectAnchored(anchored);
            const QPointF entry = cabinet.scenePos() + (anchored ? QPointF(21, 63) : QPointF(64, 64));
            const QPointF exit = cabinet.scenePos() + (anchored ? QPointF(106, 63) : QPointF(64, 64));
            QCOMPARE(cabinet.incoming()->line(), QLineF(port.cabinet('C').exitPoint(), entry));
            QCOMPARE(cabinet.outgoing()->line(), QLineF(exit, port.cabinet('D').entryPoint()));
        }
    }
};

ORVO_TEST_MAIN(QApplication, CPortChainTest)
#include "tst_port_chain.moc"
