// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CPrintSettings.h"

#include "layout/api/records/CPrintConfigJson.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace {

using Json = CPrintConfigJson;

constexpr int NotesHeight = 56;
constexpr int UsualScale = 25;

QString shown(const QVector<int> &stock)
{
    QStringList texts;
    for (const int metres : stock)
        texts << QString::number(metres);
    return texts.join(QStringLiteral(", "));
}

/// A number that shows no more decimal places than it has.
class CShortDecimal final : public QDoubleSpinBox
{
public:
    CShortDecimal() { setDecimals(3); }
    QString textFromValue(double value) const override
    {
        return locale().toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

/// Ascending, each once; empty if there is no length in it.
QVector<int> stockOf(const QString &text)
{
    QVector<int> stock;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        const int metres = part.trimmed().toInt();
        if (metres > 0 && metres <= Json::LongestStock && !stock.contains(metres) &&
            stock.size() < Json::MostLengths)
            stock << metres;
    }
    std::sort(stock.begin(), stock.end());
    return stock;
}

} // namespace

CPrintSettings::CPrintSettings(QWidget *parent)
    : CScrollArea(parent)
{
    auto *content = new QWidget;
    m_groups = new QVBoxLayout(content);
    m_groups->setContentsMargins(8, 8, 12, 8);
    addSheets();
    addPaper();
    addDrawing();
    addTexts();
    addCables();
    addPower();
    m_groups->addStretch(1);
    setWidget(content);
    for (auto *field : content->findChildren<QWidget *>()) {
        if (!qobject_cast<QAbstractSpinBox *>(field) && !qobject_cast<QComboBox *>(field))
            continue;
        field->setFocusPolicy(Qt::StrongFocus); // not by the wheel
        field->installEventFilter(this);
    }
    for (auto *field : content->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        const auto *label = qobject_cast<QLabel *>(field);
        if (field != m_address && !(label && label->buddy() == m_address))
            m_all << field;
    }
    show(m_config, OfJob, false);
}

bool CPrintSettings::eventFilter(QObject *watched, QEvent *event)
{
    // A field without focus would take the wheel that scrolls the settings.
    const auto *field = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Wheel || !field || field == widget() || field->hasFocus())
        return CScrollArea::eventFilter(watched, event);
    event->ignore();
    return true;
}

void CPrintSettings::show(const PrintConfig &config, Fields fields, bool addressed)
{
    m_config = config;
    m_showing = true;
    for (const auto &field : qAsConst(m_fields))
        field(m_config);
    m_showing = false;
    m_fieldsShown = fields;
    for (QWidget *widget : qAsConst(m_all))
        widget->setEnabled(fields != OfNone);
    for (QWidget *widget : qAsConst(m_ofJob))
        widget->setEnabled(fields == OfJob);
    m_address->setEnabled(addressed);
    updateEnabled();
}

void CPrintSettings::change(const Take &take)
{
    if (m_showing)
        return;
    take(m_config);
    updateEnabled();
    Q_EMIT notifyChanged();
}

void CPrintSettings::updateEnabled()
{
    const bool any = m_fieldsShown != OfNone;
    for (QWidget *widget : qAsConst(m_ofCustomPaper))
        widget->setEnabled(any && m_config.paper == PrintConfig::CustomPaper);
    m_bindingMargin->setEnabled(any && m_config.binding != PrintConfig::NoBinding);
    m_scale->setEnabled(any && m_config.scale > 0);
}

void CPrintSettings::addSheets()
{
    QFormLayout *form = addGroup(tr("Sheets"));
    const QPair<PrintConfig::Sheet, QString> sheets[] = {
        {PrintConfig::Cover, tr("Cover with totals")},
        {PrintConfig::PortTable, tr("Table of ports")},
        {PrintConfig::Overview, tr("Overview")},
        {PrintConfig::PortSheets, tr("A sheet for each port")},
        {PrintConfig::CabinetList, tr("List of cabinets")},
        {PrintConfig::PartsList, tr("Parts list")}};
    for (const auto &sheet : sheets) {
        auto *box = new QCheckBox(sheet.second);
        const int flag = sheet.first;
        form->addRow(box);
        m_ofJob << box;
        m_fields << [box, flag](PrintConfig &config) { box->setChecked(config.sheets & flag); };
        connect(box, &QCheckBox::toggled, this, [this, flag](bool on) {
            change([flag, on](PrintConfig &config) {
                config.sheets = on ? config.sheets | flag : config.sheets & ~flag;
            });
        });
    }
}

void CPrintSettings::addPaper()
{
    QFormLayout &form = *addGroup(tr("Paper"));
    addChoice<PrintConfig::Paper>(form, tr("Size"),
                                  {QStringLiteral("A4"), QStringLiteral("A3"), QStringLiteral("A2"),
                                   QStringLiteral("A1"), QStringLiteral("A0"), QStringLiteral("Letter"),
                                   QStringLiteral("Tabloid"), tr("Custom")},
                                  [](PrintConfig &config) -> PrintConfig::Paper & { return config.paper; });
    m_ofCustomPaper << addDecimal(form, tr("Width"), tr(" mm"), 1, Json::LargestSide,
                                  [](PrintConfig &config) -> double & { return config.customPaper.rwidth(); })
                    << addDecimal(
                           form, tr("Height"), tr(" mm"), 1, Json::LargestSide,
                           [](PrintConfig &config) -> double & { return config.customPaper.rheight(); });
    addFlag(form, tr("Landscape"), [](PrintConfig &config) -> bool & { return config.landscape; });
    addChoice<PrintConfig::Binding>(
        form, tr("Binding edge"), {tr("None"), tr("Left"), tr("Top")},
        [](PrintConfig &config) -> PrintConfig::Binding & { return config.binding; });
    m_bindingMargin = addDecimal(form, tr("Its margin"), tr(" mm"), 0, Json::LargestMargin,
                                 [](PrintConfig &config) -> double & { return config.bindingMargin; });
    addDecimal(form, tr("Other margins"), tr(" mm"), 0, Json::LargestMargin,
               [](PrintConfig &config) -> double & { return config.margin; });
}

void CPrintSettings::addDrawing()
{
    QFormLayout &form = *addGroup(tr("Drawing"));
    addChoice<PrintConfig::Views>(form, tr("Seen from"),
                                  {tr("Front"), tr("Back"), tr("Front and back in turn")},
                                  [](PrintConfig &config) -> PrintConfig::Views & { return config.views; });
    addScale(form);
    addFlag(form, tr("Grey: ports differ by hatching alone"),
            [](PrintConfig &config) -> bool & { return config.grey; });
    addDecimal(form, tr("Pixel pitch, if unknown"), tr(" mm"), 0.1, 100,
               [](PrintConfig &config) -> double & { return config.pixelPitch; });
}

void CPrintSettings::addTexts()
{
    QFormLayout &form = *addGroup(tr("Title block"));
    addText(form, tr("Project"), [](PrintConfig &config) -> QString & { return config.project; });
    m_address = addText(form, tr("Processor address"),
                        [](PrintConfig &config) -> QString & { return config.address; });
    m_address->setToolTip(tr("For a project: a processor tells its own. Of several projects, each has its "
                             "own, below \"Settings of\""));
    addText(form, tr("Venue"), [](PrintConfig &config) -> QString & { return config.venue; });
    addText(form, tr("Designer"), [](PrintConfig &config) -> QString & { return config.designer; });
    addText(form, tr("Auditor"), [](PrintConfig &config) -> QString & { return config.auditor; });
    addDate(form);
    addNotes(form);
    addText(form, tr("Watermark"), [](PrintConfig &config) -> QString & { return config.watermark; });
}

void CPrintSettings::addCables()
{
    QFormLayout &form = *addGroup(tr("Signal cables"));
    addFlag(form, tr("Rack on the right, seen from the front"),
            [](PrintConfig &config) -> bool & { return config.rack.right; });
    addNumber(form, tr("From wall to rack"), tr(" mm"), 0, Json::LargestDistance,
              [](PrintConfig &config) -> int & { return config.rack.distance; });
    addNumber(form, tr("Wall above the floor"), tr(" mm"), 0, Json::LargestDistance,
              [](PrintConfig &config) -> int & { return config.rack.lowerEdge; });
    addNumber(form, tr("Slack of a hop"), tr(" mm"), 0, Json::LargestSlack,
              [](PrintConfig &config) -> int & { return config.cables.hopSlack; });
    addNumber(form, tr("Slack of a feed"), tr(" mm"), 0, Json::LargestSlack,
              [](PrintConfig &config) -> int & { return config.cables.feedSlack; });
    addStock(form);
    addNumber(form, tr("Spares"), tr(" %"), 0, 100,
              [](PrintConfig &config) -> int & { return config.cables.sparePercent; });
    addText(form, tr("Loop back to"), [](PrintConfig &config) -> QString & { return config.farEnd; });
}

void CPrintSettings::addPower()
{
    QFormLayout &form = *addGroup(tr("Power"));
    addNumber(form, tr("Voltage"), tr(" V"), 1, 1000,
              [](PrintConfig &config) -> int & { return config.supply.volts; });
    addNumber(form, tr("Phases"), QString(), 1, 3,
              [](PrintConfig &config) -> int & { return config.supply.phases; });
    addNumber(form, tr("Circuit"), tr(" A"), 1, 1000,
              [](PrintConfig &config) -> int & { return config.supply.circuitAmperes; });
    addNumber(form, tr("Usable"), tr(" %"), 1, 100,
              [](PrintConfig &config) -> int & { return config.supply.usablePercent; });
}

QFormLayout *CPrintSettings::addGroup(const QString &title)
{
    auto *label = new QLabel(title);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    m_groups->addWidget(label);
    auto *form = new QFormLayout;
    form->setContentsMargins(0, 0, 0, 12);
    form->setSpacing(4);
    m_groups->addLayout(form);
    return form;
}

QWidget *CPrintSettings::addText(QFormLayout &form, const QString &label, const Access<QString> &access)
{
    auto *line = new QLineEdit;
    line->setMaxLength(Json::LongestText);
    form.addRow(label, line);
    m_fields << [line, access](PrintConfig &config) {
        line->setText(access(config));
        line->setCursorPosition(0);
    };
    connect(line, &QLineEdit::textChanged, this, [this, access](const QString &text) {
        change([&](PrintConfig &config) { access(config) = text.trimmed(); });
    });
    return line;
}

void CPrintSettings::addNotes(QFormLayout &form)
{
    auto *edit = new QPlainTextEdit;
    edit->setFixedHeight(NotesHeight);
    edit->setTabChangesFocus(true);
    form.addRow(tr("Notes"), edit);
    m_fields << [edit](PrintConfig &config) { edit->setPlainText(config.notes); };
    connect(edit, &QPlainTextEdit::textChanged, this, [this, edit] {
        const QString text = edit->toPlainText();
        if (text.size() > Json::LongestText)
            edit->setPlainText(text.left(Json::LongestText)); // comes here again
        else
            change([&text](PrintConfig &config) { config.notes = text; });
    });
}

void CPrintSettings::addDate(QFormLayout &form)
{
    auto *edit = new QDateEdit;
    edit->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    edit->setCalendarPopup(true);
    form.addRow(tr("Date"), edit);
    m_ofJob << edit;
    m_fields << [edit](PrintConfig &config) {
        edit->setDate(config.date.isValid() ? config.date : QDate::currentDate());
    };
    connect(edit, &QDateEdit::dateChanged, this,
            [this](const QDate &date) { change([&date](PrintConfig &config) { config.date = date; }); });
}

void CPrintSettings::addStock(QFormLayout &form)
{
    auto *line = new QLineEdit;
    line->setToolTip(tr("Lengths that cables are rounded up to, in metres, separated by commas"));
    line->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[ ]*\\d{1,5}([ ]*,[ ]*\\d{1,5})*[ ]*")), line));
    form.addRow(tr("Lengths in stock, m"), line);
    m_fields << [line](PrintConfig &config) {
        line->setText(shown(config.cables.stock));
        line->setCursorPosition(0);
    };
    connect(line, &QLineEdit::editingFinished, this, [this, line] {
        const QVector<int> stock = stockOf(line->text());
        if (stock.isEmpty() || stock == m_config.cables.stock)
            line->setText(shown(m_config.cables.stock));
        else
            change([&stock](PrintConfig &config) { config.cables.stock = stock; });
    });
}

QWidget *CPrintSettings::addNumber(QFormLayout &form, const QString &label, const QString &unit, int least,
                                   int most, const Access<int> &access)
{
    auto *box = new QSpinBox;
    box->setRange(least, most);
    box->setSuffix(unit);
    box->setKeyboardTracking(false);
    form.addRow(label, box);
    m_fields << [box, access](PrintConfig &config) { box->setValue(access(config)); };
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this, access](int value) { change([&](PrintConfig &config) { access(config) = value; }); });
    return box;
}

QWidget *CPrintSettings::addDecimal(QFormLayout &form, const QString &label, const QString &unit,
                                    double least, double most, const Access<double> &access)
{
    auto *box = new CShortDecimal;
    box->setRange(least, most);
    box->setSuffix(unit);
    box->setKeyboardTracking(false);
    form.addRow(label, box);
    m_fields << [box, access](PrintConfig &config) { box->setValue(access(config)); };
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, access](double value) { change([&](PrintConfig &config) { access(config) = value; }); });
    return box;
}

void CPrintSettings::addFlag(QFormLayout &form, const QString &text, const Access<bool> &access)
{
    auto *box = new QCheckBox(text);
    form.addRow(box);
    m_fields << [box, access](PrintConfig &config) { box->setChecked(access(config)); };
    connect(box, &QCheckBox::toggled, this,
            [this, access](bool on) { change([&](PrintConfig &config) { access(config) = on; }); });
}

template <typename Value>
void CPrintSettings::addChoice(QFormLayout &form, const QString &label, const QStringList &texts,
                               const Access<Value> &access)
{
    auto *box = new QComboBox;
    box->addItems(texts);
    form.addRow(label, box);
    m_fields << [box, access](PrintConfig &config) { box->setCurrentIndex(int(access(config))); };
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, access](int index) {
        change([&](PrintConfig &config) { access(config) = Value(index); });
    });
}

void CPrintSettings::addScale(QFormLayout &form)
{
    auto *fit = new QCheckBox(tr("Fit the wall to the sheet"));
    m_scale = new QSpinBox;
    m_scale->setRange(1, Json::LargestScale);
    m_scale->setPrefix(QStringLiteral("1 : "));
    m_scale->setKeyboardTracking(false);
    form.addRow(fit);
    form.addRow(tr("True scale"), m_scale);
    m_fields << [this, fit](PrintConfig &config) {
        fit->setChecked(config.scale == 0);
        m_scale->setValue(config.scale > 0 ? config.scale : UsualScale);
    };
    connect(fit, &QCheckBox::toggled, this, [this](bool on) {
        change([this, on](PrintConfig &config) { config.scale = on ? 0 : m_scale->value(); });
    });
    connect(m_scale, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int scale) {
        if (m_scale->isEnabled())
            change([scale](PrintConfig &config) { config.scale = scale; });
    });
}
