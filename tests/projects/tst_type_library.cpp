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

    void refusesDamagedLibraries()
    {
        for (const auto &[types, place] :
             {std::pair(R"({"name":"a"})", "folders[0].types[0]: the member \"size\""),
              {R"({"name":"a","size":[2049,1]})", "types[0].size[0]: 2049"},
              {R"({"name":"a","size":[8,8]},{"name":"a","size":[8,8]})", "types[1]: the same"},
              {R"({"name":"a","size":[8,8],"kind":2,"receivers":[[0,0,4,8],[3,0,4,8]]})", "do not fill"},
              {R"({"name":"a","size":[8,8],"kind":2,"receivers":[[0,0,4,8],[5,0,3,8]]})", "fill the"},
              {R"({"name":"a","size":[8,8],"receivers":[[0,0,4,8],[4,0,4,8]]})", "the kind"}}) {
            const QByteArray json = QByteArray(R"({"folders":[{"name":"f","types":[)") + types + "]}]}";
            const QString error = CTypeLibrary::fromJson(json).error();
            QVERIFY2(error.contains(QLatin1String(place)), qPrintable(error));
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CTypeLibraryTest)
#include "tst_type_library.moc"
