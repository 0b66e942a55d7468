// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/CPortBackupDialog.h"
#include "layout/redundancy/CProcessorBackupDialog.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CFakeHost.h"
#include "tests/redundancy/CPairTester.h"

#include <QRegularExpression>
#include <QTest>

#include <memory>

/// Four processors A to D and their dialog, on screen.
struct SPairWorld
{
    SPairWorld()
    {
        initLayoutResources();
        for (const char name : {'A', 'B', 'C', 'D'})
            keys << host.addProcessor(QChar::fromLatin1(name), 2);
        {
            const auto lock = host.answers();
            for (ProcessorTree::ProcessorNode &node : lock->nodes)
                node.address = 0x0A000000U + quint32(node.index);
        }
    }

    void open(const QString &pairs = {})
    {
        for (const QString &pair : pairs.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            host.answers()->redundancies << SBackupPair(keyOf(pair.at(0)), keyOf(pair.at(1)));
        dialog = std::make_unique<CProcessorBackupDialog>();
        user = std::make_unique<CPairTester>(*dialog);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    }

    QUuid keyOf(QChar letter) const { return keys.at(letter.unicode() - 'A'); }
    /// "A>B" for "A(10.0.0.0)>B(10.0.0.1)".
    QString rows() const
    {
        return user->rows().remove(QRegularExpression(QStringLiteral("\\(10\\.0\\.0\\.\\d\\)")));
    }

    CFakeHost host;
    QList<QUuid> keys;
    std::unique_ptr<CProcessorBackupDialog> dialog;
    std::unique_ptr<CPairTester> user;
};

/// Two processors of four ports: the first two of each hold two cabinets.
struct SPortWorld
{
    SPortWorld()
    {
        initLayoutResources();
        for (const char *name : {"A", "B"}) {
            const QUuid key = host.addProcessor(QLatin1String(name), 4, 2);
            processors << key;
            auto lock = host.answers();
            lock->nodes.last().address = 0; // shown by name alone
            QVector<CabinetLayout::CabinetPort> &ports = lock->layouts[key].layout.ports;
            ports[2].groups.clear();
            ports[3].groups.clear();
            ports[1].groups[0].cabinets[0].rect.translate(5, 0);
        }
        host.choose(processors.at(1));
    }
    SPortKey port(int processor, int index) const { return {processors.at(processor), index}; }
    SPortPair pair(int first, int primary, int second, int backup) const
    {
        return {port(first, primary), port(second, backup)};
    }
    void open()
    {
        dialog = std::make_unique<CPortBackupDialog>();
        user = std::make_unique<CPairTester>(*dialog);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    }

    CFakeHost host;
    QList<QUuid> processors;
    std::unique_ptr<CPortBackupDialog> dialog;
    std::unique_ptr<CPairTester> user;
};
