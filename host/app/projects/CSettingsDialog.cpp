// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/projects/CSettingsDialog.h"

#include "host/app/start/CAppSettings.h"
#include "host/projects/CSafeFile.h"
#include "platform/widgets/input/CClampedSpinBox.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int NoteWidth = 380; // pixels

QLabel *note(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setMinimumWidth(NoteWidth);
    label->setEnabled(false);
    return label;
}

} // namespace

CSettingsDialog::CSettingsDialog(CAppSettings &settings, QWidget *parent)
    : CDialog(tr("Settings"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_settings(settings)
{
    buildUi();
    showValues();
}

void CSettingsDialog::buildUi()
{
    buildVersions();
    buildHistory();
}

void CSettingsDialog::buildVersions()
{
    auto *box = new QGroupBox(tr("Earlier versions"));
    auto *form = new QFormLayout(box);
    m_versions = new CClampedSpinBox<QSpinBox>;
    m_versions->setObjectName(QStringLiteral("Versions"));
    m_versions->setRange(0, CSafeFile::MostVersions);
    form->addRow(tr("&Versions kept beside a file"), m_versions);
    form->addRow(
        note(tr("Each save keeps what the file held before, as NAME~, NAME~2 and so on. With a lower "
                "number the older versions stay on the disk until they are removed in \"Restore "
                "earlier version\".")));
    contentLayout()->addWidget(box);
}

void CSettingsDialog::buildHistory()
{
    auto *box = new QGroupBox(tr("History"));
    auto *form = new QFormLayout(box);
    m_keepHistory = new QCheckBox(tr("&Keep the history when a project is saved and closed"));
    m_keepHistory->setObjectName(QStringLiteral("KeepHistory"));
    form->addRow(m_keepHistory);
    m_megabytes = new CClampedSpinBox<QSpinBox>;
    m_megabytes->setObjectName(QStringLiteral("HistoryMegabytes"));
    m_megabytes->setRange(CAppSettings::LeastHistoryMegabytes, CAppSettings::MostHistoryMegabytes);
    m_megabytes->setSuffix(tr(" MB"));
    form->addRow(tr("&Memory for the history"), m_megabytes);
    form->addRow(note(tr("The oldest steps go first when there is no more room.")));
    contentLayout()->addWidget(box);
}

void CSettingsDialog::showValues()
{
    m_versions->setValue(m_settings.keptVersions());
    m_keepHistory->setChecked(m_settings.keepsHistory());
    m_megabytes->setValue(m_settings.historyMegabytes());
}

void CSettingsDialog::accept()
{
    m_settings.setKeptVersions(m_versions->value());
    m_settings.setKeepsHistory(m_keepHistory->isChecked());
    m_settings.setHistoryMegabytes(m_megabytes->value());
    CSafeFile::setVersions(m_settings.keptVersions());
    CDialog::accept();
}
