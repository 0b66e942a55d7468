// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/CTableFlow.h"

#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <algorithm>

namespace {

constexpr double TitleHeight = 6.6; ///< of a table's title with its room
constexpr double TitleBase = 4.4;
constexpr double Gap = 4;    ///< behind a table
constexpr int LeastRows = 4; ///< of a table that is to be split, in its first part

} // namespace

CTableFlow::CTableFlow(const std::function<SSheet()> &newSheet, const QVector<QRectF> &columns)
    : m_newSheet(newSheet)
    , m_columns(columns)
    , m_sheets{newSheet()}
    , m_top(columns.first().top())
{
}

QRectF CTableFlow::room() const
{
    QRectF room = m_columns.at(m_column);
    room.setTop(std::min(m_top, room.bottom()));
    return room;
}

void CTableFlow::nextColumn()
{
    if (m_top <= m_columns.at(m_column).top())
        return;
    if (++m_column == m_columns.size()) {
        m_column = 0;
        m_sheets << m_newSheet();
    }
    m_top = m_columns.at(m_column).top();
}

void CTableFlow::addTable(const QString &title, const CSheetTable &table, const QVector<STableRow> &rows,
                          const QVector<STableRow> &sums, const CSheetTable::SumOf &sumOf, bool repeats)
{
    const double titleHeight = title.isEmpty() ? 0 : TitleHeight;
    const int count = rows.size() + sums.size();
    if (table.capacity(room().height() - titleHeight) < std::min(count, LeastRows + sums.size()))
        nextColumn();
    if (!title.isEmpty()) {
        SheetMarks::textAt(sheet(), room().left(), m_top + TitleBase, title, SheetMarks::TitleBlockPoints,
                           true, EMark::Title);
        m_top += TitleHeight;
    }
    const double first = room().height();
    const double other = m_columns.first().height();
    const auto parts = CSheetTable::parts(
        rows, sums, [&](int part) { return table.capacity(part == 0 ? first : other); }, sumOf, repeats);
    for (int i = 0; i < parts.size(); ++i) {
        if (i > 0)
            nextColumn();
        m_top = table.draw(sheet(), room().topLeft(), parts.at(i)) + Gap;
    }
}

void CTableFlow::addNotes(const QStringList &notes)
{
    for (const QString &note : notes) {
        for (const QString &line :
             CSheetFont::lines(note, SheetMarks::NotePoints, false, m_columns.at(m_column).width())) {
            if (room().height() < NoteLine)
                nextColumn();
            if (!line.isEmpty())
                SheetMarks::textAt(sheet(), room().left(), m_top + 3.4, line, SheetMarks::NotePoints, false,
                                   EMark::Note);
            m_top += NoteLine;
        }
    }
    m_top += Gap / 2;
}
