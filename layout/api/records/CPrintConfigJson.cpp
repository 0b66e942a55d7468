// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CPrintConfigJson.h"

#include "platform/json/CJsonDocument.h"
#include "platform/json/CStrictObject.h"

#include <algorithm>

namespace {

/// The members of an object that differ from their defaults.
class CMembers final
{
public:
    template <typename Value>
    void add(const char *key, const Value &value, const Value &usual)
    {
        if (!(value == usual))
            m_object.insert(QLatin1String(key), QJsonValue(value));
    }
    void add(const char *key, const QJsonObject &object)
    {
        if (!object.isEmpty())
            m_object.insert(QLatin1String(key), object);
    }
    void add(const char *key, const QJsonArray &array) { m_object.insert(QLatin1String(key), array); }
    const QJsonObject &object() const { return m_object; }

private:
    QJsonObject m_object;
};

QJsonObject rackJson(const PrintConfig::SRack &rack)
{
    const PrintConfig::SRack usual;
    CMembers members;
    members.add("right", rack.right, usual.right);
    members.add("distance", rack.distance, usual.distance);
    members.add("lowerEdge", rack.lowerEdge, usual.lowerEdge);
    return members.object();
}

PrintConfig::SRack readRack(CStrictObject &object)
{
    using Json = CPrintConfigJson;
    PrintConfig::SRack rack;
    rack.right = object.flagOr(rack.right, "right");
    rack.distance = object.smallIntegerOr(rack.distance, "distance", 0, Json::LargestDistance);
    rack.lowerEdge = object.smallIntegerOr(rack.lowerEdge, "lowerEdge", 0, Json::LargestDistance);
    return rack;
}

QJsonObject cablesJson(const PrintConfig::SCables &cables)
{
    const PrintConfig::SCables usual;
    CMembers members;
    members.add("hopSlack", cables.hopSlack, usual.hopSlack);
    members.add("feedSlack", cables.feedSlack, usual.feedSlack);
    members.add("sparePercent", cables.sparePercent, usual.sparePercent);
    QJsonArray stock;
    for (const int metres : cables.stock)
        stock.append(metres);
    if (cables.stock != usual.stock)
        members.add("stock", stock);
    return members.object();
}

PrintConfig::SCables readCables(CStrictObject &object)
{
    using Json = CPrintConfigJson;
    PrintConfig::SCables cables;
    cables.hopSlack = object.smallIntegerOr(cables.hopSlack, "hopSlack", 0, Json::LargestSlack);
    cables.feedSlack = object.smallIntegerOr(cables.feedSlack, "feedSlack", 0, Json::LargestSlack);
    cables.sparePercent = object.smallIntegerOr(cables.sparePercent, "sparePercent", 0, 100);
    if (!object.has("stock"))
        return cables;
    cables.stock = object.integersOr<int>("stock", 1, Json::LongestStock, Json::MostLengths);
    if (std::adjacent_find(cables.stock.begin(), cables.stock.end(), std::greater_equal<int>()) !=
        cables.stock.end())
        object.fail("stock", CPrintConfigJson::tr("the lengths are not in ascending order"));
    return cables;
}

QJsonObject supplyJson(const PrintConfig::SSupply &supply)
{
    const PrintConfig::SSupply usual;
    CMembers members;
    members.add("volts", supply.volts, usual.volts);
    members.add("phases", supply.phases, usual.phases);
    members.add("circuitAmperes", supply.circuitAmperes, usual.circuitAmperes);
    members.add("usablePercent", supply.usablePercent, usual.usablePercent);
    return members.object();
}

PrintConfig::SSupply readSupply(CStrictObject &object)
{
    PrintConfig::SSupply supply;
    supply.volts = object.smallIntegerOr(supply.volts, "volts", 1, 1000);
    supply.phases = object.smallIntegerOr(supply.phases, "phases", 1, 3);
    supply.circuitAmperes = object.smallIntegerOr(supply.circuitAmperes, "circuitAmperes", 1, 1000);
    supply.usablePercent = object.smallIntegerOr(supply.usablePercent, "usablePercent", 1, 100);
    return supply;
}

/// Reads a member that is an object; one that is missing has all defaults.
template <typename Part>
Part readPart(CStrictObject &object, const char *key, QString &error, Part (*read)(CStrictObject &))
{
    if (!object.has(key))
        return Part();
    const SJsonPlace place = object.placeOf(key);
    CStrictObject inner(object.value(key), place, error);
    const Part part = read(inner);
    inner.finish();
    return part;
}

void readTexts(CStrictObject &object, PrintConfig &config)
{
    constexpr int Longest = CPrintConfigJson::LongestText;
    config.address = object.textOr({}, "address", Longest);
    config.project = object.textOr({}, "project", Longest);
    config.venue = object.textOr({}, "venue", Longest);
    config.designer = object.textOr({}, "designer", Longest);
    config.auditor = object.textOr({}, "auditor", Longest);
    config.notes = object.pathOr({}, "notes", Longest); // with line feeds
    config.watermark = object.textOr({}, "watermark", Longest);
    config.farEnd = object.textOr({}, "farEnd", Longest);
}

void readPaper(CStrictObject &object, PrintConfig &config)
{
    using Json = CPrintConfigJson;
    const auto choice = [&object](const char *key, auto usual, auto last) {
        return decltype(usual)(object.smallIntegerOr(int(usual), key, 0, int(last)));
    };
    config.paper = choice("paper", config.paper, PrintConfig::CustomPaper);
    config.customPaper = object.sizeFOr(config.customPaper, "customPaper", Json::LargestSide);
    config.landscape = object.flagOr(config.landscape, "landscape");
    config.binding = choice("binding", config.binding, PrintConfig::BindTop);
    config.bindingMargin = object.numberOr(config.bindingMargin, "bindingMargin", 0, Json::LargestMargin);
    config.margin = object.numberOr(config.margin, "margin", 0, Json::LargestMargin);
    config.views = choice("views", config.views, PrintConfig::BothViews);
    config.scale = object.smallIntegerOr(config.scale, "scale", 0, Json::LargestScale);
    config.grey = object.flagOr(config.grey, "grey");
    config.sheets = object.smallIntegerOr(config.sheets, "sheets", 0, PrintConfig::AllSheets);
    config.own = object.has("sheets") && config.sheets == PrintConfig::AllSheets;
}

} // namespace

QJsonObject CPrintConfigJson::toJson(const PrintConfig &config)
{
    const PrintConfig usual;
    CMembers members;
    members.add("address", config.address, usual.address);
    members.add("project", config.project, usual.project);
    members.add("venue", config.venue, usual.venue);
    members.add("designer", config.designer, usual.designer);
    members.add("auditor", config.auditor, usual.auditor);
    members.add("notes", config.notes, usual.notes);
    members.add("watermark", config.watermark, usual.watermark);
    members.add("farEnd", config.farEnd, usual.farEnd);
    members.add("paper", int(config.paper), int(usual.paper));
    if (config.customPaper != usual.customPaper)
        members.add("customPaper", QJsonArray{config.customPaper.width(), config.customPaper.height()});
    members.add("landscape", config.landscape, usual.landscape);
    members.add("binding", int(config.binding), int(usual.binding));
    members.add("bindingMargin", config.bindingMargin, usual.bindingMargin);
    members.add("margin", config.margin, usual.margin);
    members.add("views", int(config.views), int(usual.views));
    members.add("scale", config.scale, usual.scale);
    members.add("grey", config.grey, usual.grey);
    members.add("sheets", config.sheets, config.own ? 0 : usual.sheets);
    members.add("pixelPitch", config.pixelPitch, usual.pixelPitch);
    members.add("rack", rackJson(config.rack));
    members.add("cables", cablesJson(config.cables));
    members.add("supply", supplyJson(config.supply));
    return members.object();
}

CResult<PrintConfig> CPrintConfigJson::config(const QJsonObject &json, const char *place)
{
    return config(CJsonDocument::of(json).root(), place);
}

CResult<PrintConfig> CPrintConfigJson::config(const CJsonValue &json, const char *place)
{
    QString error;
    const SJsonPlace outer{nullptr, place, -1};
    CStrictObject object(json, outer, error);
    PrintConfig config;
    readTexts(object, config);
    readPaper(object, config);
    config.pixelPitch = object.numberOr(config.pixelPitch, "pixelPitch", 0.1, 100);
    config.rack = readPart(object, "rack", error, readRack);
    config.cables = readPart(object, "cables", error, readCables);
    config.supply = readPart(object, "supply", error, readSupply);
    return object.finish() ? CResult<PrintConfig>(config) : CResult<PrintConfig>::failure(error);
}
