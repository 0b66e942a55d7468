// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzTargets.h"
#include "layout/api/records/CRecordJson.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/placing/CCopyMime.h"
#include "layout/editor/placing/CPasteContent.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "platform/json/CStrictJson.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/editor/random/CRandomWorld.h"

#include <QImage>

namespace {

// More only cost time.
constexpr int MostOperations = 6;
constexpr int MostCabinetsOfPort = 4;
constexpr int MostCabinets = 100;

int cabinetsIn(const CabinetLayout &layout)
{
    int count = 0;
    for (const auto &port : layout.ports)
        count += port.cabinetCount();
    return count;
}

} // namespace

QString FuzzTargets::clipboard(const QByteArray &bytes)
{
    const CResult<CJsonDocument> json = CStrictJson::parse(bytes);
    const CResult<CabinetLayout> layout =
        json ? CRecordJson::layout(json.value().root()) : CResult<CabinetLayout>::failure(json.error());
    if (!layout || cabinetsIn(layout.value()) > MostCabinets)
        return {};
    CFixedPortStates states;
    CCabinetGraphicsScene scene(states);
    LayoutData data;
    data.processor = layout.value().processor;
    data.layout = layout.value();
    data.canvas = QSize(3840, 2160);
    scene.setLayoutData(SmallWorlds::node(data), data);
    QString fault = CSceneVerifier::faultIn(scene);
    if (!fault.isEmpty())
        return fault;
    scene.selectAllItem();
    const PasteCache copied = CPasteContent::copyOf(scene.selection());
    const int count = CPasteContent::cabinetCount(copied);
    const CCopyMime mime(copied, states);
    if (mime.text().count(QLatin1Char('\n')) != count + 1)
        return QStringLiteral("a table without all cabinets");
    const QImage picture = mime.imageData().value<QImage>();
    if (picture.isNull() || picture.width() > 2048 || picture.height() > 2048)
        return QStringLiteral("no picture, or a huge one");
    if (CPasteContent::placed(copied, QPoint(7, 9)).cabinetCount() != count)
        return QStringLiteral("a paste without all cabinets");
    return {};
}

QString FuzzTargets::operations(const QByteArray &bytes)
{
    const auto byte = [&bytes](int place) { return static_cast<quint8>(bytes.at(place)); };
    if (bytes.size() < 7)
        return {};
    CRandomWorld world(quint32(byte(0)) << 24 | quint32(byte(1)) << 16 | quint32(byte(2)) << 8 | byte(3),
                       MostCabinetsOfPort);
    QString fault;
    int place = 4;
    for (int i = 0; i < MostOperations && place + 2 < bytes.size() && fault.isEmpty(); ++i, place += 3)
        fault = world.run(
            {byte(place) % CRandomWorld::KindCount, quint32(byte(place + 1)) << 8 | byte(place + 2)});
    return fault.isEmpty() ? world.checkHistory() : fault;
}
