// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/HostileFiles.h"

#include "host/journal/CByteWriter.h"
#include "host/journal/SJournal.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace {

using HostileFiles::Bytes;
using Variants = QVector<QJsonValue>;

int sizeOf(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).size();
}

QJsonArray filledWith(const QJsonValue &element)
{
    QJsonArray array;
    for (int left = Bytes / sizeOf(element); left > 0; --left)
        array.append(element);
    return array;
}

Variants variantsOf(const QJsonValue &value);

Variants variantsOfArray(const QJsonArray &array)
{
    Variants variants{filledWith(QJsonArray())};
    if (array.isEmpty())
        return variants;
    variants << filledWith(array.first());
    for (const QJsonValue &variant : variantsOf(array.first())) {
        QJsonArray changed = array;
        changed.replace(0, variant);
        variants << changed;
    }
    return variants;
}

Variants variantsOfObject(const QJsonObject &object)
{
    Variants variants;
    QJsonObject crowded = object;
    for (int i = 0; i < Bytes / 12; ++i) // one behind the other, else inserting takes long
        crowded.insert(QStringLiteral("~%1").arg(i, 6, 10, QLatin1Char('0')), 0);
    variants << crowded;
    for (auto member = object.begin(); member != object.end(); ++member) {
        for (const QJsonValue &variant : variantsOf(member.value())) {
            QJsonObject changed = object;
            changed.insert(member.key(), variant);
            variants << changed;
        }
    }
    return variants;
}

Variants variantsOf(const QJsonValue &value)
{
    if (value.isArray())
        return variantsOfArray(value.toArray());
    if (value.isObject())
        return variantsOfObject(value.toObject());
    if (value.isString())
        return {QString(Bytes / 6, QChar(1))}; // each is written as six characters
    if (value.isDouble())
        return {std::numeric_limits<int>::max()};
    return {};
}

/// A journal that goes on with the same entries over and over.
QByteArray repeating(const CJournalState &state, int kind, const QVector<QByteArray> &contents)
{
    quint64 last = 0;
    SJournalOwner owner;
    owner.processor = QUuid(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    QByteArray file = SJournal::write(owner, state, last);
    for (int i = 0; file.size() < Bytes; ++i)
        file += SJournal::append(kind, contents.at(i % contents.size()), last);
    return file;
}

/// One port with that many cabinets.
SProcessorProject crowded(int cabinets)
{
    SProcessorProject project;
    project.layout.ports.resize(1);
    project.layout.ports[0].index = 0;
    project.layout.ports[0].groups.resize(1);
    for (int i = 0; i < cabinets; ++i) {
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.uuid = QUuid(uint(i + 1), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        cabinet.port = 0;
        cabinet.rect = QRect(0, 0, 10, 10);
        project.layout.ports[0].groups[0].cabinets << cabinet;
    }
    return project;
}

/// Everything is moved to and fro, by steps of few bytes.
QByteArray restless(int cabinets)
{
    const SProcessorProject project = crowded(cabinets);
    CJournalState state(project);
    CabinetLayout::CabinetPort moved = project.layout.ports.first();
    for (auto &cabinet : moved.groups[0].cabinets)
        cabinet.rect.translate(1, 0);
    SEditRecord there;
    there.index = 1;
    there.step.ports << SEditStep::SPort{project.layout.ports.first(), moved};
    SEditRecord back = there;
    back.index = 2;
    std::swap(back.step.ports[0].before, back.step.ports[0].after);
    const QByteArray first = state.note(there, 1);
    return repeating(CJournalState(project), CJournalState::Step, {first, state.note(back, 1)});
}

QByteArray step(SEditRecord::Kind kind, int index, int dropped)
{
    SJournalStep step;
    step.kind = kind;
    step.index = index;
    step.dropped = dropped;
    CByteWriter out;
    out.number(1);
    step.write(out);
    return out.bytes();
}

/// Steps without changes, which are counted up.
QByteArray tiny(SEditRecord::Kind kind, int dropped)
{
    QVector<QByteArray> steps;
    for (int i = 1; i <= Bytes / 20; ++i)
        steps << step(kind, i, dropped);
    return repeating({}, CJournalState::Step, steps);
}

} // namespace

QVector<QByteArray> HostileFiles::likeJson(const QByteArray &sample)
{
    const int start = sample.contains("sha256") ? sample.indexOf('\n') + 1 : 0;
    const QByteArray header = sample.left(start);
    const QByteArray member("{\"a\":");
    QVector<QByteArray> files{header + member + QByteArray(Bytes, '['),
                              header + member.repeated(Bytes / member.size()),
                              header + member + '[' + QByteArray("[],").repeated(Bytes / 3) + "0]}"};
    const QJsonDocument json = QJsonDocument::fromJson(sample.mid(start));
    const QJsonValue root = json.isArray() ? QJsonValue(json.array()) : QJsonValue(json.object());
    for (const QJsonValue &variant : variantsOf(root)) {
        const QJsonDocument document =
            variant.isArray() ? QJsonDocument(variant.toArray()) : QJsonDocument(variant.toObject());
        files << header + document.toJson(QJsonDocument::Compact);
    }
    return files;
}

QVector<QByteArray> HostileFiles::likeSettings(const QByteArray &sample)
{
    QVector<QByteArray> files;
    const QList<QByteArray> lines = sample.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray key = lines.at(i).left(lines.at(i).indexOf('=') + 1);
        if (key.isEmpty())
            continue;
        for (const char *value : {"a, ", "\\x1\\x2", "[", "\"", "@Variant(", "@ByteArray(\\0\\0\\0"}) {
            QList<QByteArray> changed = lines;
            changed[i] = key + QByteArray(value).repeated(Bytes / int(qstrlen(value)));
            files << changed.join('\n');
        }
    }
    QByteArray keys = sample;
    for (int i = 0; keys.size() < Bytes; ++i)
        keys += "\nkey" + QByteArray::number(i) + "=1";
    return files << keys;
}

QVector<QByteArray> HostileFiles::journals()
{
    QVector<QByteArray> files{restless(500), restless(30000)};
    files << repeating(CJournalState(crowded(50000)), CJournalState::Step,
                       {step(SEditRecord::Cleared, 0, 0)});
    for (const auto kind : {SEditRecord::Done, SEditRecord::Merged, SEditRecord::Moved}) {
        for (const int dropped : {0, 1, std::numeric_limits<int>::max()})
            files << tiny(kind, dropped);
    }
    CJournalState state;
    const QByteArray unchanged = state.note(SProcessorProject(), 1);
    files << repeating({}, CJournalState::State, {unchanged});
    files << repeating({}, CJournalState::Owner, {QByteArray(60, '\0')});
    const QByteArray most = QByteArray(4, '\xff') + QByteArray(1, '\x07'); // 2,147,483,647
    const QByteArray content = CJournalState(crowded(3)).snapshot();
    for (int i = 0; i < content.size(); ++i) { // one figure after the other becomes the largest one
        quint64 last = 0;
        QByteArray file = SJournal::write({}, {}, last);
        file += SJournal::append(CJournalState::Snapshot, content.left(i) + most + content.mid(i + 1), last);
        files << file;
    }
    return files;
}
