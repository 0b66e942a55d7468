// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CRecoveryDialog.h"

#include "layout/api/records/LayoutData.h"
#include "layout/drawing/CLayoutPicture.h"
#include "platform/widgets/ThemeColors.h"

#include <QDateTime>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize PictureSize(192, 108);
constexpr QSize DialogSize(640, 460);

QPixmap pictureOf(const SStrayJournal &offer)
{
    QPixmap picture(PictureSize);
    picture.fill(Qt::transparent);
    if (!offer.journal.isUsable())
        return picture;
    const SProcessorProject state = offer.journal.state.project();
    LayoutData data;
    data.processor = state.layout.processor;
    data.layout = state.layout;
    data.canvas = state.canvas;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    CLayoutPicture::paint(painter, data, QRectF(QPointF(), PictureSize));
    return picture;
}

QString textOf(const SStrayJournal &offer)
{
    const SJournal &journal = offer.journal;
    if (!journal.isUsable())
        return CRecoveryDialog::tr("%1\n%2").arg(QDir::toNativeSeparators(offer.path), journal.problemText());
    const QDateTime changed = QDateTime::fromMSecsSinceEpoch(journal.state.changed());
    QStringList lines{journal.owner.name};
    if (!journal.owner.project)
        lines << CRecoveryDialog::tr("Processor, not saved to it");
    else if (journal.owner.file.isEmpty())
        lines << CRecoveryDialog::tr("Project without a file");
    else
        lines << QDir::toNativeSeparators(journal.owner.file);
    lines << CRecoveryDialog::tr("Last edit: %1")
                 .arg(QLocale().toString(changed, QStringLiteral("d MMMM yyyy, HH:mm")));
    const QString unsaved = journal.state.trail().unsavedText();
    lines << unsaved.left(1).toUpper() + unsaved.mid(1);
    if (journal.problem != SJournal::None)
        lines << journal.problemText();
    return lines.join(QLatin1Char('\n'));
}

} // namespace

CRecoveryDialog::CRecoveryDialog(const QList<SStrayJournal> &offers, QWidget *parent)
    : CDialog(tr("Unsaved edits"), QDialogButtonBox::Close, parent)
    , m_offers(offers)
{
    buildUi();
    connectSignals();
    m_list->setCurrentRow(0);
}

void CRecoveryDialog::buildUi()
{
    m_text = new QLabel(tr("The program ended before these edits were saved."));
    m_text->setWordWrap(true);
    contentLayout()->addWidget(m_text);
    m_list = new QListWidget;
    m_list->setIconSize(PictureSize);
    m_list->setWordWrap(true);
    for (const SStrayJournal &offer : m_offers)
        addEntry(offer);
    contentLayout()->addWidget(m_list);
    m_restore = buttonBox()->addButton(tr("&Restore"), QDialogButtonBox::ActionRole);
    m_look = buttonBox()->addButton(tr("&Look at it first"), QDialogButtonBox::ActionRole);
    m_look->setToolTip(tr("Opens a copy as a project without a file, and changes nothing"));
    m_discard = buttonBox()->addButton(tr("&Discard..."), QDialogButtonBox::ActionRole);
    buttonBox()->button(QDialogButtonBox::Close)->setText(tr("La&ter"));
    m_restore->setDefault(true);
    resize(DialogSize);
}

void CRecoveryDialog::addEntry(const SStrayJournal &offer)
{
    const QPixmap picture = pictureOf(offer);
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected); // otherwise tinted, though its colours are those of ports
    m_list->addItem(new QListWidgetItem(icon, textOf(offer)));
}

void CRecoveryDialog::connectSignals()
{
    connect(m_list, &QListWidget::currentRowChanged, this, &CRecoveryDialog::updateButtons);
    connect(m_restore, &QPushButton::clicked, this, [this] { Q_EMIT notifyRestore(m_list->currentRow()); });
    connect(m_look, &QPushButton::clicked, this, [this] { Q_EMIT notifyLook(m_list->currentRow()); });
    connect(m_discard, &QPushButton::clicked, this, [this] { Q_EMIT notifyDiscard(m_list->currentRow()); });
}

void CRecoveryDialog::updateButtons()
{
    const int row = m_list->currentRow();
    const bool any = row >= 0 && row < m_offers.size();
    const bool usable = any && m_offers.at(row).journal.isUsable();
    m_restore->setEnabled(usable);
    m_look->setEnabled(usable);
    m_discard->setEnabled(any && m_offers.at(row).journal.mayBeDiscarded());
}

void CRecoveryDialog::setCrash(const QDateTime &time)
{
    m_text->setText(tr("The program crashed on %1, before these edits were saved.")
                        .arg(QLocale().toString(time, QStringLiteral("d MMMM yyyy, HH:mm"))));
    const QPushButton *report = buttonBox()->addButton(tr("&Crash report..."), QDialogButtonBox::ActionRole);
    connect(report, &QPushButton::clicked, this, &CRecoveryDialog::notifyReport);
}

void CRecoveryDialog::takeOut(int entry)
{
    m_offers.removeAt(entry);
    delete m_list->takeItem(entry);
    updateButtons();
    if (m_offers.isEmpty())
        accept();
}
