// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/output/SheetFiles.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QStringList>

/// Writes the sheets of a job as one PDF or as a picture each. Any thread.
class CSheetWriter final
{
    Q_DECLARE_TR_FUNCTIONS(CSheetWriter)

public:
    static constexpr int UsualDots = 150; ///< per inch

    /// Writes a file, whole or not at all. Returns why it failed; empty: it did not.
    using Write = std::function<QString(const QString &file, const QByteArray &content)>;

    struct SOrder
    {
        QString file; ///< ends in .pdf, .svg or .png
        QString title;
        QDate date;
        int dotsPerInch = UsualDots; ///< of a PNG
    };

    /// Pictures of several sheets are numbered, "plan-01.png". Returns the names of the files; none if
    /// @p progress said not to go on. Fails if a letter has no font, before anything is written.
    static CResult<QStringList> write(const QVector<SSheet> &sheets, const SOrder &order, const Write &write,
                                      const SheetFiles::Progress &progress = {});
    /// The files that @p count sheets are written to.
    static QStringList namesOf(const QString &file, int count);
    /// Why the sheets cannot be printed with the installed fonts; empty: they can.
    static QString fontProblem(const QVector<SSheet> &sheets);
    /// Which sheets are not at the scale that is wanted; empty: none.
    static QString scaleProblem(const QVector<SSheet> &sheets);

private:
    static CResult<QByteArray> content(const QVector<SSheet> &sheets, int sheet, const SOrder &order,
                                       const SheetFiles::Progress &progress);
};
