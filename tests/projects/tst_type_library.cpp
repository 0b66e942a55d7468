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
    void findsItsTypesByKeyAndBySize()
    {
        const CTypeLibrary &library = CTypeLibrary::builtIn();
        QSet<QByteArray> keys;
        const QVector<Node> types = typesOf(library.nodes());
        for (const Node &type : types) {
            QVERIFY2(type.info.isValid() && type.key == type.info.key, qPrintable(type.name));
            QVERIFY(library.find(type.key) && library.find(type.key)->name == type.name);
            keys.insert(type.key.toText());
        }
        QCOMPARE(keys.size(), types.size());
        const auto *tall = library.findBySize({192, 384});
        QVERIFY(tall);
        QCOMPARE(tall->receivers, (QVector<QRect>{{0, 0, 192, 192}, {0, 192, 192, 192}}));
        // Keys are the same in every installation.
        QCOMPARE(library.findBySize({192, 192})->key.toText(),
                 QByteArray("6dba801f5fa9c9863901f6ede1dba8fc"));
        QVERIFY(!library.findBySize({1, 1}));
        QVERIFY(!library.find(SMD5()));
    }

    void refusesDamagedLibraries_data()
    {
        QTest::addColumn<QByteArray>("types");
        QTest::addColumn<QString>("place");
        const auto row = [](const char *types, const char *place) {
            QTest::newRow(place) << QByteArray(types) << QString::fromLatin1(place);
        };
        row(R"({"name":"a"})", "folders[0].types[0]: the member \"size\"");
        row(R"({"name":"a","size":[2049,1]})", "types[0].size[0]: 2049");
        row(R"({"name":"a","size":[8,8]},{"name":"a","size":[8,8]})", "types[1]: the same");
        row(R"({"name":"a","size":[8,8],"kind":2,"receivers":[[0,0,4,8],[3,0,4,8]]})", "do not fill");
        row(R"({"name":"a","size":[8,8],"kind":2,"receivers":[[0,0,4,8],[5,0,3,8]]})", "fill the");
        row(R"({"name":"a","size":[8,8],"receivers":[[0,0,4,8],[4,0,4,8]]})", "the kind");
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
