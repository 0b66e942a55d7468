// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/LayoutVersion.h"

#include "layout/printing/figures/SPrintPlan.h"

#include <QCryptographicHash>

namespace {

/// Feeds a digest with texts and numbers so that no two different series look the same to it.
class CDigest final
{
public:
    void add(const QString &text)
    {
        const QByteArray bytes = text.toUtf8();
        add(bytes.size());
        m_hash.addData(bytes);
    }
    void add(int number) { m_hash.addData(QByteArray::number(number) + ' '); }
    void add(const QRect &rect)
    {
        for (int number : {rect.x(), rect.y(), rect.width(), rect.height()})
            add(number);
    }
    QString version() const
    {
        return QString::fromLatin1(m_hash.result().toHex().left(8)).toUpper().insert(4, QLatin1Char('-'));
    }

private:
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
};

void addCabinets(CDigest &digest, const SPlanProcessor &processor, const QVector<int> &indices)
{
    digest.add(indices.size());
    for (int index : indices) {
        const SPlanCabinet &cabinet = processor.cabinets.at(index);
        digest.add(cabinet.pixels);
        digest.add(QString::fromLatin1(cabinet.typeKey.toText()));
        digest.add(cabinet.receivers.size());
        for (const QRect &area : cabinet.receivers)
            digest.add(area);
    }
}

} // namespace

QString LayoutVersion::of(const SPlanProcessor &processor)
{
    CDigest digest;
    digest.add(processor.source.node.name);
    digest.add(processor.source.frameRate);
    digest.add(processor.source.colorDepth);
    digest.add(QRect({0, 0}, processor.source.canvas));
    for (const SPlanPort &port : processor.ports) {
        if (!port.isUsed())
            continue;
        digest.add(port.index);
        digest.add(port.redundant ? 2 : port.looped ? 1 : 0);
        if (port.redundant || port.looped) {
            digest.add(port.redundancyPort);
            digest.add(port.redundancyKey);
        }
        addCabinets(digest, processor, port.chain);
        addCabinets(digest, processor, port.unwired);
    }
    return digest.version();
}

QString LayoutVersion::of(const SPrintPlan &plan)
{
    if (plan.processors.size() == 1)
        return plan.processors.first().version;
    CDigest digest;
    for (const SPlanProcessor &processor : plan.processors)
        digest.add(processor.version);
    return digest.version();
}
