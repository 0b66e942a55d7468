// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CPrintDialog.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/printing/dialog/CPrintChoice.h"
#include "layout/printing/dialog/CPrintSettings.h"
#include "layout/printing/dialog/CSheetFileChoice.h"
#include "layout/printing/dialog/CSheetPreview.h"
#include "layout/printing/dialog/PrintMemory.h"
#include "layout/printing/figures/CCabinetTable.h"
#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/output/CSheetPrinter.h"
#include "layout/printing/output/CSheetWriter.h"
#include "platform/widgets/CElidedLabel.h"
#include "platform/widgets/CMessageBox.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr int SettingsWidth = 340;
constexpr int LayOutDelay = 150; // milliseconds, so that typing does not lay out each letter
constexpr QSize UsualSize(1180, 680);
constexpr double UsualShare = 0.75;    // of a large screen
constexpr double ShareOfScreen = 0.92; // at most, with the frame around it

QString titleOf(const PrintConfig &config)
{
    return config.project.isEmpty() ? CPrintDialog::tr("Wiring plan") : config.project;
}

} // namespace

CPrintDialog::CPrintDialog(const SPrintInput &input, const QList<QUuid> &chosen,
                           const QMap<QUuid, PrintConfig> &kept, QWidget *parent)
    : CDialog(tr("Print"), QDialogButtonBox::Close, parent)
    , m_input(input)
    , m_job(PrintMemory::opened(input, chosen, kept))
    , m_opened(m_job)
{
    buildUi(chosen);
    connectSignals();
    onScopeChanged();
    updateEnabled(); // nothing can be printed before there are sheets
    layOut();
}

CPrintDialog::~CPrintDialog() = default;

void CPrintDialog::buildUi(const QList<QUuid> &chosen)
{
    m_choice = new CPrintChoice(m_input, chosen);
    m_settings = new CPrintSettings;
    m_preview = new CSheetPreview;
    auto *left = new QWidget;
    left->setFixedWidth(SettingsWidth);
    auto *column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_choice);
    column->addWidget(m_settings, 1);
    auto *row = new QHBoxLayout;
    row->addWidget(left);
    row->addWidget(m_preview, 1);
    contentLayout()->addLayout(row, 1);
    contentLayout()->addWidget(buildProgress());
    m_told = new CElidedLabel;
    contentLayout()->addWidget(m_told);
    m_print = buttonBox()->addButton(tr("&Print…"), QDialogButtonBox::ActionRole);
    m_print->setDefault(true);
    m_save = buttonBox()->addButton(tr("&Save as…"), QDialogButtonBox::ActionRole);
    m_save->setToolTip(
        tr("As a PDF, as pictures (SVG, PNG), one for each sheet, or the cabinets as a table (CSV)"));
    const QSize available = screen()->availableSize();
    resize(UsualSize.expandedTo(available * UsualShare).boundedTo(available * ShareOfScreen));
}

QWidget *CPrintDialog::buildProgress()
{
    m_progressRow = new QWidget;
    m_progress = new QProgressBar;
    m_cancel = new QPushButton(tr("Cancel"));
    m_cancel->setAutoDefault(false);
    auto *row = new QHBoxLayout(m_progressRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_progress, 1);
    row->addWidget(m_cancel);
    m_progressRow->hide();
    return m_progressRow;
}

void CPrintDialog::connectSignals()
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(LayOutDelay);
    connect(&m_delay, &QTimer::timeout, this, &CPrintDialog::layOut);
    connect(m_choice, &CPrintChoice::notifyChosenChanged, this, &CPrintDialog::onSettingsChanged);
    connect(m_choice, &CPrintChoice::notifyScopeChanged, this, &CPrintDialog::onScopeChanged);
    connect(m_choice, &CPrintChoice::notifyOwnToggled, this, &CPrintDialog::onOwnToggled);
    connect(m_settings, &CPrintSettings::notifyChanged, this, &CPrintDialog::onSettingsChanged);
    connect(&m_work, &CSheetWork::notifyLaidOut, this, &CPrintDialog::onLaidOut);
    connect(&m_work, &CSheetWork::notifyProgress, m_progress, &QProgressBar::setValue);
    connect(&m_work, &CSheetWork::notifyWritten, this, &CPrintDialog::onWritten);
    connect(m_cancel, &QPushButton::clicked, &m_work, &CSheetWork::cancel);
    connect(m_preview, &CSheetPreview::notifyUsualPaperWished, this, &CPrintDialog::onUsualPaperWished);
    connect(m_print, &QPushButton::clicked, this, &CPrintDialog::onPrintClicked);
    connect(m_save, &QPushButton::clicked, this, &CPrintDialog::onSaveClicked);
}

void CPrintDialog::done(int result)
{
    m_work.cancel();
    keepSettings();
    CDialog::done(result);
}

void CPrintDialog::keepSettings()
{
    if (m_job.whole.sheets == 0)
        m_job.whole.sheets = m_opened.whole.sheets; // a job without sheets is none to go on with
    // Nor is one on paper that nothing fits on; whether the drawings fit is not known of changed settings.
    PrintMemory::takePaper(m_job, m_opened, m_stale ? QVector<QUuid>() : m_unfit);
    QList<QUuid> chosen;
    for (const SPrintedProcessor &processor : m_choice->chosenInput().processors)
        chosen << processor.node.uuid;
    PrintMemory::keep(m_input, chosen, m_opened, m_job);
}

void CPrintDialog::onUsualPaperWished()
{
    PrintMemory::takePaper(m_job, {}, m_unfit);
    onScopeChanged();
    m_stale = true;
    updateEnabled();
    layOut();
}

QUuid CPrintDialog::addressed() const
{
    for (const SPrintedProcessor &processor : m_input.processors) {
        const bool shown = m_choice->scope().isNull() ? m_input.processors.size() == 1
                                                      : processor.node.uuid == m_choice->scope();
        if (shown && processor.node.address == 0)
            return processor.node.uuid;
    }
    return {};
}

void CPrintDialog::onScopeChanged()
{
    const QUuid processor = m_choice->scope();
    m_choice->setOwn(m_job.own.contains(processor));
    PrintConfig shown = m_job.own.value(processor, m_job.whole);
    shown.date = m_job.whole.date;
    shown.address = m_job.addresses.value(addressed());
    m_settings->show(shown,
                     processor.isNull()   ? CPrintSettings::OfJob
                     : m_choice->hasOwn() ? CPrintSettings::OfProcessor
                                          : CPrintSettings::OfNone,
                     !addressed().isNull());
}

void CPrintDialog::onOwnToggled(bool own)
{
    const QUuid processor = m_choice->scope();
    if (own) {
        m_job.own[processor] = m_job.whole;
        m_job.own[processor].processor = processor;
    } else {
        m_job.own.remove(processor);
    }
    onScopeChanged();
    onSettingsChanged();
}

void CPrintDialog::onSettingsChanged()
{
    const QUuid processor = m_choice->scope();
    PrintConfig config = m_settings->config();
    if (!addressed().isNull())
        m_job.addresses[addressed()] = config.address;
    config.address.clear();
    if (processor.isNull())
        m_job.whole = config;
    else if (m_choice->hasOwn())
        m_job.own[processor] = config;
    m_stale = true;
    updateEnabled();
    m_delay.start();
}

SPrintJob CPrintDialog::job() const
{
    SPrintJob job = m_job;
    if (!job.whole.date.isValid())
        job.whole.date = QDate::currentDate();
    return job;
}

void CPrintDialog::layOut()
{
    const SPrintInput input = m_choice->chosenInput();
    m_work.forget();
    if (input.processors.isEmpty())
        onLaidOut({}, tr("Choose a processor."));
    else if (m_job.whole.sheets == 0)
        onLaidOut({}, tr("Choose which sheets to print."));
    else {
        if (m_sheets.isEmpty())
            m_preview->tell(tr("Laying out the sheets..."));
        else if (!m_writing)
            m_told->setFullText(tr("Laying out the sheets..."));
        m_work.layOut(input, job());
    }
}

void CPrintDialog::onLaidOut(const QVector<SSheet> &sheets, const QString &problem, const QString &warning,
                             const QVector<QUuid> &unfit)
{
    if (m_delay.isActive())
        return; // the next ones are on their way
    const QString fonts = problem.isEmpty() ? CSheetWriter::fontProblem(sheets) : QString();
    m_sheets = fonts.isEmpty() ? sheets : QVector<SSheet>();
    m_stale = false;
    if (!m_writing) {
        QStringList told{CSheetWriter::scaleProblem(m_sheets), warning};
        told.removeAll(QString());
        if (m_sheets.isEmpty())
            told.clear(); // only why there are none
        m_told->setFullText(told.join(QStringLiteral("; ")));
    }
    SPrintJob usual = m_job;
    m_unfit = unfit;
    PrintMemory::takePaper(usual, {}, m_unfit);
    const bool failed =
        !problem.isEmpty() && m_job.whole.sheets != 0 && !m_choice->chosenInput().processors.isEmpty();
    if (m_sheets.isEmpty())
        m_preview->tell(problem + fonts, failed && !(usual.whole == m_job.whole && usual.own == m_job.own));
    else
        m_preview->show(m_sheets);
    updateEnabled();
}

void CPrintDialog::updateEnabled()
{
    const bool ready = !m_stale && !m_writing && !m_sheets.isEmpty();
    m_print->setEnabled(ready);
    m_save->setEnabled(ready);
    m_settings->setEnabled(!m_writing);
    m_choice->setEnabled(!m_writing);
    m_progressRow->setVisible(m_writing);
}

void CPrintDialog::begin(const QString &title, const CSheetWork::Output &output, bool singly)
{
    m_writing = true;
    m_ifCancelled = singly ? tr("Cancelled. Files that were complete remain.") : tr("Cancelled.");
    m_told->setFullText({});
    m_progress->setRange(0, m_sheets.size());
    m_progress->setValue(0);
    m_progress->setFormat(title + QStringLiteral(" %v / %m"));
    updateEnabled();
    m_work.run(output);
}

void CPrintDialog::onSaveClicked()
{
    const QString file = CSheetFileChoice::ask(this, titleOf(m_job.whole), m_sheets.size());
    if (file.isEmpty())
        return;
    const CSheetWriter::Write write = [](const QString &name, const QByteArray &content) {
        return CHostAccess::call<&ILayoutInterfaceHandler::writeFile>(name, content);
    };
    if (CSheetFileChoice::isTable(file)) {
        using Names = CResult<QStringList>;
        begin(tr("Saving"),
              [input = m_choice->chosenInput(), job = job(), file, write](const auto &progress) -> Names {
                  const QByteArray table = CCabinetTable::toCsv(SPrintPlan::of(input, job));
                  if (!progress(0))
                      return QStringList();
                  const QString problem = write(file, table);
                  return problem.isEmpty() ? Names(QStringList{file}) : Names::failure(problem);
              });
        return;
    }
    const CSheetWriter::SOrder order{file, titleOf(m_job.whole), job().whole.date, CSheetWriter::UsualDots};
    begin(
        tr("Saving"),
        [sheets = m_sheets, order, write](const SheetFiles::Progress &progress) {
            return CSheetWriter::write(sheets, order, write, progress);
        },
        CSheetWriter::namesOf(file, m_sheets.size()).size() > 1);
}

void CPrintDialog::onPrintClicked()
{
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        CMessageBox::warning(this, tr("There is no printer."),
                             tr("Save the sheets as a PDF, and print that where there is one."));
        return;
    }
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(titleOf(m_job.whole));
    QPrintDialog dialog(printer.get(), this);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, m_sheets.size());
    if (dialog.exec() != QDialog::Accepted)
        return;
    begin(tr("Printing"), [sheets = m_sheets, printer](const SheetFiles::Progress &progress) {
        return CSheetPrinter::print(sheets, *printer, progress);
    });
}

void CPrintDialog::onWritten(const QStringList &names, const QString &problem)
{
    m_writing = false;
    updateEnabled();
    if (problem.isEmpty())
        m_told->setFullText(names.isEmpty() ? m_ifCancelled
                            : names.size() == 1
                                ? tr("Done: %1").arg(names.first())
                                : tr("Done: %1 and %2 more").arg(names.first()).arg(names.size() - 1));
    if (!problem.isEmpty())
        CMessageBox::warning(this, tr("The sheets were not written."), problem);
}
