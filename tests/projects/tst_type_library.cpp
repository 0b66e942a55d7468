// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/library/CTypeLibrary.h"
#include "tests/harness/CTestBase.h"

#include <QSet>

namespace {

using Node = CTypeLibrary::STreeNode;

QVector<Node> typesOf(const QVector<Node> &nodes)
{
    QVector<Node> types;
    for (const Node &node : nodes)
        types += node.isFolder() ? typesOf(node.children) : QVector<Node>{node};
    return types;
}

} // namespace

class CTypeLibraryTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void holdsTheKinds()
    {
        const CTypeLibrary &library = CTypeLibrary::builtIn();
        const QVector<Node> types = typesOf(library.nodes());
        QCOMPARE(types.size(), 25);
        QSet<QByteArray> keys;
        int severalReceivers = 0;
        for (const Node &type : types) {
            QVERIFY2(type.info.isValid() && type.key == type.info.key, qPrintable(type.name));
            QVERIFY(library.find(type.key) != nullptr && library.find(type.key)->name == type.name);
            QVERIFY(type.info.wattsAverage > 0 && type.info.wattsMaximum > type.info.wattsAverage);
            severalReceivers += type.info.kind == Node::RcvTypeInfo::MultiReceiver;
            keys.insert(type.key.toText());
        }
        QCOMPARE(keys.size(), types.size());
        QCOMPARE(severalReceivers, 11);
        const auto *tall = library.findBySize({192, 384});
        QVERIFY(tall);
        QCOMPARE(tall->receivers, (QVector<QRect>{{0, 0, 192, 192}, {0, 192, 192, 192}}));
        QVERIFY(!library.findBySize({1, 1}));
        QVERIFY(!library.find(SMD5()));
    }

    void keysAreTheSameInEveryInstallation()
    {
        const auto *type = CTypeLibrary::builtIn().findBySize({192, 192});
        QVERIFY(type);
        QCOMPARE(type->key.toText(), QByteArray("6dba801f5fa9c9863901f6ede1dba8fc"));
    }

    void refusesDamagedLibraries_data()
    {
        QTest::addColumn<QByteArray>("types");
        QTest::addColumn<QString>("place");
        QTest::newRow("no size") << QByteArray(R"({"name":"a"})")
                                 << QStringLiteral("folders[0].types[0]: the member \"size\"");
        QTest::newRow("too large") << QByteArray(R"({"name":"a","size":[2049,1]})")
                                   << QStringLiteral("types[0].size[0]: 2049");
        QTest::newRow("twice") << QByteArray(R"({"name":"a","size":[8,8]},{"name":"a","size":[8,8]})")
                               << QStringLiteral("types[1]: the same");
        QTest::newRow("gap") << QByteArray(
                                    R"({"name":"a","size":[8,8],"kind":2,"receivers":[[0,0,4,8],[5,0,3,8]]})")
                             << QStringLiteral("do not fill");
        QTest::newRow("overlap")
            << QByteArray(R"({"name":"a","size":[8,8],"kind":2,"receivers":[[0,0,4,8],[3,0,4,8]]})")
            << QStringLiteral("do not fill");
        QTest::newRow("kind") << QByteArray(R"({"name":"a","size":[8,8],"receivers":[[0,0,4,8],[4,0,4,8]]})")
                              << QStringLiteral("the kind");
    }
    void refusesDamagedLibraries()
    {
        QFETCH(QByteArray, types);
        QFETCH(QString, place);
        const auto library = CTypeLibrary::fromJson(R"({"folders":[{"name":"f","types":[)" + types + "]}]}");
        QVERIFY(!library);
        QVERIFY2(library.error().contains(place), qPrintable(library.error()));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CTypeLibraryTest)
#include "tst_type_library.moc"
