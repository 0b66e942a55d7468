// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CPrintOptions.h"

#include "layout/api/records/CPrintConfigJson.h"

#include <QLocale>
#include <QMap>

#include <algorithm>
#include <iterator>

namespace {

/// Reads the value of an option into the settings. Returns whether it is valid.
using Read = bool (*)(const QString &value, PrintConfig &config);

struct SPrintOption
{
    const char *name;
    const char *value; ///< what stands for it in the help; null: a flag
    const char *meaning;
    Read read;
};

/// A whole number in plain decimal digits within a range.
bool readNumber(const QString &value, int minimum, int maximum, int &number)
{
    const bool digits = !value.isEmpty() && value.size() <= 7 &&
                        std::all_of(value.begin(), value.end(),
                                    [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
    const int read = digits ? value.toInt() : -1;
    if (read < minimum || read > maximum)
        return false;
    number = read;
    return true;
}

/// A number of millimetres, which may have a fraction.
bool readMillimetres(const QString &value, double minimum, double maximum, double &number)
{
    bool valid = false;
    const double read = QLocale::c().toDouble(value, &valid);
    if (!valid || !(read >= minimum && read <= maximum))
        return false;
    number = read;
    return true;
}

bool readText(const QString &value, QString &text)
{
    // One line: what holds several is broken where it is shown.
    if (std::any_of(value.begin(), value.end(), [](QChar c) { return c.category() == QChar::Other_Control; }))
        return false;
    text = value;
    return value.size() <= CPrintConfigJson::LongestText;
}

bool readPaper(const QString &value, PrintConfig &config)
{
    static const char *const names[] = {"A4", "A3", "A2", "A1", "A0", "Letter", "Tabloid"};
    for (int i = 0; i < int(std::size(names)); ++i) {
        if (value.compare(QLatin1String(names[i]), Qt::CaseInsensitive) == 0) {
            config.paper = PrintConfig::Paper(i);
            return true;
        }
    }
    const QStringList sides = value.split(QLatin1Char('x'));
    double width = 0;
    double height = 0;
    if (sides.size() != 2 || !readMillimetres(sides.first(), 1, CPrintConfigJson::LargestSide, width) ||
        !readMillimetres(sides.last(), 1, CPrintConfigJson::LargestSide, height))
        return false;
    config.paper = PrintConfig::CustomPaper;
    config.customPaper = {width, height};
    return true;
}

bool readSheets(const QString &value, PrintConfig &config)
{
    static const QMap<QString, PrintConfig::Sheet> kinds{
        {QStringLiteral("cover"), PrintConfig::Cover},
        {QStringLiteral("overview"), PrintConfig::Overview},
        {QStringLiteral("ports"), PrintConfig::PortSheets},
        {QStringLiteral("table"), PrintConfig::PortTable},
        {QStringLiteral("cabinets"), PrintConfig::CabinetList},
        {QStringLiteral("parts"), PrintConfig::PartsList},
        {QStringLiteral("all"), PrintConfig::AllSheets}};
    int sheets = 0;
    for (const QString &name : value.split(QLatin1Char(','))) {
        if (!kinds.contains(name))
            return false;
        sheets |= kinds.value(name);
    }
    config.sheets = sheets;
    return true;
}

bool readScale(const QString &value, PrintConfig &config)
{
    if (value == QLatin1String("fit")) {
        config.scale = 0;
        return true;
    }
    return value.startsWith(QLatin1String("1:")) &&
           readNumber(value.mid(2), 1, CPrintConfigJson::LargestScale, config.scale);
}

bool readBinding(const QString &value, PrintConfig &config)
{
    static const QStringList edges{QStringLiteral("none"), QStringLiteral("left"), QStringLiteral("top")};
    config.binding = PrintConfig::Binding(std::max(0, edges.indexOf(value)));
    return edges.contains(value);
}

bool readDate(const QString &value, PrintConfig &config)
{
    config.date = QDate::fromString(value, Qt::ISODate);
    return config.date.isValid() && config.date.year() >= 1000 && config.date.year() <= 9999;
}

bool readRack(const QString &value, PrintConfig &config)
{
    const QStringList parts = value.split(QLatin1Char(','));
    config.rack.right = parts.first() == QLatin1String("right");
    return parts.size() == 3 && (config.rack.right || parts.first() == QLatin1String("left")) &&
           readNumber(parts.at(1), 0, CPrintConfigJson::LargestDistance, config.rack.distance) &&
           readNumber(parts.at(2), 0, CPrintConfigJson::LargestDistance, config.rack.lowerEdge);
}

bool readSlack(const QString &value, PrintConfig &config)
{
    const QStringList parts = value.split(QLatin1Char(','));
    return parts.size() == 2 &&
           readNumber(parts.first(), 0, CPrintConfigJson::LargestSlack, config.cables.hopSlack) &&
           readNumber(parts.last(), 0, CPrintConfigJson::LargestSlack, config.cables.feedSlack);
}

bool readStock(const QString &value, PrintConfig &config)
{
    QVector<int> stock;
    for (const QString &part : value.split(QLatin1Char(','))) {
        int metres = 0;
        if (!readNumber(part, 1, CPrintConfigJson::LongestStock, metres) || stock.contains(metres))
            return false;
        stock << metres;
    }
    std::sort(stock.begin(), stock.end());
    config.cables.stock = stock;
    return stock.size() <= CPrintConfigJson::MostLengths;
}

bool readSupply(const QString &value, PrintConfig &config)
{
    const QStringList parts = value.split(QLatin1Char(','));
    PrintConfig::SSupply &supply = config.supply;
    return parts.size() == 4 && readNumber(parts.at(0), 1, 1000, supply.volts) &&
           readNumber(parts.at(1), 1, 3, supply.phases) &&
           readNumber(parts.at(2), 1, 1000, supply.circuitAmperes) &&
           readNumber(parts.at(3), 1, 100, supply.usablePercent);
}

// clang-format off
constexpr SPrintOption printOptions[] = {
    {"--sheets", "LIST", "which sheets: cover, overview, ports (a sheet each), table (of the ports), cabinets,\n"
                         "parts, with commas between them, or all (all)", readSheets},
    {"--paper", "SIZE", "A4, A3, A2, A1, A0, Letter, Tabloid, or a width and a height in mm like 420x297 (A4)",
     readPaper},
    {"--landscape", nullptr, "the paper lies (so it does without it)",
     [](const QString &, PrintConfig &config) { config.landscape = true; return true; }},
    {"--portrait", nullptr, "the paper stands",
     [](const QString &, PrintConfig &config) { config.landscape = false; return true; }},
    {"--binding", "EDGE", "the edge that is bound: left, top or none (left)", readBinding},
    {"--binding-margin", "MM", "free at that edge (20)",
     [](const QString &value, PrintConfig &config) { return readMillimetres(value, 0, CPrintConfigJson::LargestMargin, config.bindingMargin); }},
    {"--margin", "MM", "free at the other edges (10)",
     [](const QString &value, PrintConfig &config) { return readMillimetres(value, 0, CPrintConfigJson::LargestMargin, config.margin); }},
    {"--front", nullptr, "the wall as seen from the front (so it is without it)",
     [](const QString &, PrintConfig &config) { config.views = PrintConfig::FrontView; return true; }},
    {"--back", nullptr, "the wall as seen from behind",
     [](const QString &, PrintConfig &config) { config.views = PrintConfig::BackView; return true; }},
    {"--both", nullptr, "front and back views in turn",
     [](const QString &, PrintConfig &config) { config.views = PrintConfig::BothViews; return true; }},
    {"--scale", "1:N", "the drawings at a true scale, over several sheets if they must, or fit (fit)", readScale},
    {"--grey", nullptr, "without the colours of the ports",
     [](const QString &, PrintConfig &config) { config.grey = true; return true; }},
    {"--color", nullptr, "with the colours of the ports (so it is without it)",
     [](const QString &, PrintConfig &config) { config.grey = false; return true; }},
    {"--address", "LIST", "of the processors, in the order of the projects, with commas between them",
     [](const QString &value, PrintConfig &config) { return readText(value, config.address); }},
    {"--project", "TEXT", "for the title block and the cover",
     [](const QString &value, PrintConfig &config) { return readText(value, config.project); }},
    {"--venue", "TEXT", "for the cover",
     [](const QString &value, PrintConfig &config) { return readText(value, config.venue); }},
    {"--designer", "TEXT", "for the title block",
     [](const QString &value, PrintConfig &config) { return readText(value, config.designer); }},
    {"--auditor", "TEXT", "for the title block",
     [](const QString &value, PrintConfig &config) { return readText(value, config.auditor); }},
    {"--date", "YYYY-MM-DD", "of the plan (today)", readDate},
    {"--notes", "TEXT", "for the cover",
     [](const QString &value, PrintConfig &config) { return readText(value, config.notes); }},
    {"--watermark", "TEXT", "across every sheet",
     [](const QString &value, PrintConfig &config) { return readText(value, config.watermark); }},
    {"--far-end", "NAME", "the processor that the ends of all strings are looped back to (none but the pairs of\n"
                          "the ports)",
     [](const QString &value, PrintConfig &config) { return readText(value, config.farEnd); }},
    {"--rack", "SIDE,MM,MM", "where the rack stands: left or right, its distance from the wall, and how high the\n"
                             "wall hangs above its floor (left,3000,1000)", readRack},
    {"--slack", "MM,MM", "added to cables from cabinet to cabinet, and to those from the rack (300,2000)", readSlack},
    {"--stock", "LIST", "lengths of cables that there are, in m (1,2,3,5,10,15,20,25,30,40,50)", readStock},
    {"--spares", "PERCENT", "of cabinets and cables (5)",
     [](const QString &value, PrintConfig &config) { return readNumber(value, 0, 100, config.cables.sparePercent); }},
    {"--supply", "V,N,A,PERCENT", "volts, phases, amperes of a circuit, and how much of it is used (230,3,16,80)",
     readSupply},
    {"--pitch", "MM", "from pixel to pixel of cabinets whose type does not tell it (2.6)",
     [](const QString &value, PrintConfig &config) { return readMillimetres(value, 0.1, 100, config.pixelPitch); }},
};
// clang-format on

QStringList namesOf(bool withValue)
{
    QStringList names;
    for (const SPrintOption &option : printOptions) {
        if ((option.value != nullptr) == withValue)
            names << QString::fromLatin1(option.name);
    }
    return names;
}

/// Options of which at most one may be given.
QString contradiction(const CCommandArguments &arguments)
{
    static const QVector<QStringList> alternatives{
        {QStringLiteral("--landscape"), QStringLiteral("--portrait")},
        {QStringLiteral("--front"), QStringLiteral("--back"), QStringLiteral("--both")},
        {QStringLiteral("--grey"), QStringLiteral("--color")}};
    const QString paper = QStringLiteral("--paper");
    PrintConfig sized;
    for (const QString &turned : alternatives.first()) {
        if (arguments.has(turned) && arguments.has(paper) && readPaper(arguments.text(paper), sized) &&
            sized.paper == PrintConfig::CustomPaper)
            return CPrintOptions::tr("paper given in mm lies as it is given: leave out %1").arg(turned);
    }
    for (const QStringList &names : alternatives) {
        QStringList given;
        for (const QString &name : names) {
            if (arguments.has(name))
                given << name;
        }
        if (given.size() > 1)
            return CPrintOptions::tr("%1 and %2 contradict each other").arg(given.at(0), given.at(1));
    }
    return {};
}

} // namespace

QStringList CPrintOptions::names()
{
    return namesOf(true);
}

QStringList CPrintOptions::flags()
{
    return namesOf(false);
}

QString CPrintOptions::help()
{
    QString help;
    for (const SPrintOption &option : printOptions) {
        QString name = QString::fromLatin1(option.name);
        if (option.value)
            name += QLatin1Char(' ') + QString::fromLatin1(option.value);
        QString meaning = tr(option.meaning);
        meaning.replace(QLatin1Char('\n'), QLatin1Char('\n') + QString(26, QLatin1Char(' ')));
        help += QStringLiteral("  %1  %2\n").arg(name, -22).arg(meaning);
    }
    return help;
}

QString CPrintOptions::apply(const CCommandArguments &arguments, PrintConfig &config)
{
    for (const SPrintOption &option : printOptions) {
        const QString name = QString::fromLatin1(option.name);
        if (arguments.has(name) && !option.read(arguments.text(name), config))
            return tr("\"%1\" is no value for %2 %3: %4")
                .arg(arguments.text(name), name, QString::fromLatin1(option.value),
                     tr(option.meaning).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    }
    return contradiction(arguments);
}
