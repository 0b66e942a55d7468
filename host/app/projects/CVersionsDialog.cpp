// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/projects/CVersionsDialog.h"

#include "host/app/projects/CVersionReader.h"
#include "host/projects/CSafeFile.h"
#include "platform/common/CBackgroundCall.h"
#include "platform/widgets/CMessageBox.h"

#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Column { Saved, Size, Content, ColumnCount };
constexpr int PlaceRole = Qt::UserRole; // in the list of versions
constexpr int ReadableRole = Qt::UserRole + 1;
constexpr QSize PictureSize(160, 90);
constexpr int ColumnRoom = 24;

} // namespace

CVersionsDialog::CVersionsDialog(const QVector<CProjectVersions::SVersion> &versions, QWidget *parent)
    : CDialog(tr("Restore earlier version"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_versions(versions)
    , m_reader(new CVersionReader(PictureSize, this))
{
    buildUi();
    connectSignals();
    updateButtons();
    QStringList files;
    for (const CProjectVersions::SVersion &version : m_versions)
        files << version.file;
    m_reader->read(files);
}

void CVersionsDialog::buildUi()
{
    m_list = new QTreeWidget;
    m_list->setObjectName(QStringLiteral("Versions"));
    m_list->setAccessibleName(tr("Earlier versions"));
    m_list->setHeaderLabels({tr("Saved"), tr("Size"), tr("Content")});
    m_list->setRootIsDecorated(false);
    m_list->setIconSize(PictureSize);
    m_list->setUniformRowHeights(true);
    const QLocale locale;
    QPixmap room(PictureSize); // so that the rows do not grow once the pictures come
    room.fill(Qt::transparent);
    for (int place = 0; place < m_versions.size(); ++place) {
        const CProjectVersions::SVersion &version = m_versions.at(place);
        QString saved = locale.toString(version.modified, QStringLiteral("d MMMM yyyy, HH:mm:ss"));
        if (version.age > CSafeFile::versions())
            saved += QLatin1Char('\n') + tr("no longer kept up to date");
        auto *row = new QTreeWidgetItem({saved, locale.formattedDataSize(version.bytes), tr("Reading...")});
        row->setData(Saved, PlaceRole, place);
        row->setIcon(Saved, QIcon(room));
        row->setToolTip(Saved, QDir::toNativeSeparators(version.file));
        m_list->addTopLevelItem(row);
    }
    m_list->setCurrentItem(m_list->topLevelItem(0));
    for (int column = 0; column < ColumnCount; ++column) {
        m_list->resizeColumnToContents(column);
        m_list->setColumnWidth(column, m_list->columnWidth(column) + ColumnRoom);
    }
    contentLayout()->addWidget(m_list);
    buttonBox()->button(QDialogButtonBox::Ok)->setText(tr("&Restore"));
    m_remove = buttonBox()->addButton(tr("Re&move..."), QDialogButtonBox::ActionRole);
    resize(720, 460);
}

void CVersionsDialog::connectSignals()
{
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &CVersionsDialog::updateButtons);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (buttonBox()->button(QDialogButtonBox::Ok)->isEnabled())
            accept();
    });
    connect(m_remove, &QPushButton::clicked, this, &CVersionsDialog::onRemove);
    connect(m_reader, &CVersionReader::notifyRead, this, &CVersionsDialog::onRead, Qt::QueuedConnection);
}

QString CVersionsDialog::chosen() const
{
    const QTreeWidgetItem *row = m_list->selectedItems().value(0);
    return row ? m_versions.at(row->data(Saved, PlaceRole).toInt()).file : QString();
}

void CVersionsDialog::updateButtons()
{
    const QTreeWidgetItem *row = m_list->selectedItems().value(0);
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(row && row->data(Saved, ReadableRole).toBool());
    m_remove->setEnabled(row);
}

void CVersionsDialog::onRead(int place, const QImage &picture, const QString &text)
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = m_list->topLevelItem(i);
        if (row->data(Saved, PlaceRole).toInt() != place)
            continue; // others were removed
        row->setData(Saved, ReadableRole, !picture.isNull());
        row->setText(Content, picture.isNull() ? tr("Cannot be read") : text);
        if (picture.isNull())
            row->setToolTip(Content, text);
        else
            row->setIcon(Saved, QIcon(QPixmap::fromImage(picture)));
    }
    m_list->resizeColumnToContents(Content);
    updateButtons();
}

void CVersionsDialog::onRemove()
{
    const QString file = chosen();
    if (!CMessageBox::confirm(this, tr("Remove this version from the disk?"), QDir::toNativeSeparators(file)))
        return;
    bool removed = false;
    CBackgroundCall::run([&] { removed = QFile::remove(file); });
    if (removed)
        delete m_list->selectedItems().value(0);
    else
        CMessageBox::warning(this, tr("The version cannot be removed."), QDir::toNativeSeparators(file));
    updateButtons();
}
