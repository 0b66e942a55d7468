// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CSheetFileChoice.h"

#include "layout/printing/output/CSheetWriter.h"
#include "platform/widgets/CMessageBox.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

QString CSheetFileChoice::ask(QWidget *parent, const QString &title, int sheets)
{
    QFileDialog dialog(parent, tr("Save as"), QString(),
                       tr("PDF (*.pdf);;Pictures, vectors (*.svg);;Pictures, pixels (*.png);;"
                          "List of the cabinets (*.csv)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString &filter) {
        dialog.setDefaultSuffix(filter.section(QStringLiteral("(*."), 1).section(QLatin1Char(')'), 0, 0));
    });
    dialog.selectFile(QString(title).replace(QLatin1Char('/'), QLatin1Char('-')));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QString chosen = dialog.selectedFiles().first();
    const QStringList known = {QStringLiteral("pdf"), QStringLiteral("svg"), QStringLiteral("png"),
                               QStringLiteral("csv")};
    const QString file = known.contains(QFileInfo(chosen).suffix().toLower())
                             ? chosen
                             : chosen + QLatin1Char('.') + dialog.defaultSuffix();
    const QStringList names = isTable(file) ? QStringList(file) : CSheetWriter::namesOf(file, sheets);
    const bool exists = std::any_of(names.begin(), names.end(), [&chosen](const QString &one) {
        return one != chosen && QFileInfo::exists(one); // the dialog has asked about the chosen one
    });
    if (exists &&
        !CMessageBox::confirm(parent, tr("Files of these names exist. Overwrite them?"), names.first()))
        return {};
    return file;
}

bool CSheetFileChoice::isTable(const QString &file)
{
    return file.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive);
}
