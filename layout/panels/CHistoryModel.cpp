// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CHistoryModel.h"

#include "platform/widgets/ThemeColors.h"

#include <QFont>
#include <QHash>

namespace {

/// A step's text for the user: some steps have the name of their operation for a text.
QString wordsFor(const QString &text)
{
    static const QHash<QString, const char *> words{
        {QStringLiteral("createTopologyWiring"), QT_TRANSLATE_NOOP("CHistoryModel", "Wire with the pen")},
        {QStringLiteral("topologyWiring"), QT_TRANSLATE_NOOP("CHistoryModel", "Wire by a pattern")},
        {QStringLiteral("breakSelectedWiring"),
         QT_TRANSLATE_NOOP("CHistoryModel", "Clear topology of the selection")},
        {QStringLiteral("BreakPortWiring"), QT_TRANSLATE_NOOP("CHistoryModel", "Clear topology")},
        {QStringLiteral("ChangePosition"), QT_TRANSLATE_NOOP("CHistoryModel", "Change position")},
        {QStringLiteral("ChangeSize"), QT_TRANSLATE_NOOP("CHistoryModel", "Change size")},
        {QStringLiteral("ChangeRank"), QT_TRANSLATE_NOOP("CHistoryModel", "Change rows and columns")},
        {QStringLiteral("Backup"), QT_TRANSLATE_NOOP("CHistoryModel", "Make a redundancy port")},
        {QStringLiteral("Reset"), QT_TRANSLATE_NOOP("CHistoryModel", "Replace the layout")}};
    const auto found = words.find(text);
    return found == words.end() ? text : CHistoryModel::tr(*found);
}

} // namespace

void CHistoryModel::show(const QUndoStack *stack, const QString &beginning, const QSet<int> &savedRows)
{
    if (m_stack != stack) {
        if (m_stack)
            m_stack->disconnect(this);
        m_stack = stack;
        if (stack) {
            connect(stack, &QUndoStack::indexChanged, this, &CHistoryModel::update);
            connect(stack, &QObject::destroyed, this, &CHistoryModel::update);
        }
    }
    m_beginning = beginning;
    m_savedRows = savedRows;
    update();
}

/// A step that replaces undone ones changes texts without changing their number, so all rows are read again;
/// a view asks only for those that it shows.
void CHistoryModel::update()
{
    beginResetModel();
    m_rows = m_stack ? m_stack->count() + 1 : 0;
    endResetModel();
    Q_EMIT notifyCurrentRowChanged();
}

int CHistoryModel::currentRow() const
{
    return m_stack ? m_stack->index() : -1;
}

int CHistoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

QString CHistoryModel::text(int row) const
{
    const QString text = row == 0 ? m_beginning : wordsFor(m_stack->text(row - 1));
    return m_savedRows.contains(row) ? tr("%1 (saved)").arg(text) : text;
}

QVariant CHistoryModel::data(const QModelIndex &index, int role) const
{
    if (!m_stack || !index.isValid() || index.row() >= m_rows)
        return {};
    const int row = index.row();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return text(row);
    case Qt::AccessibleTextRole:
        return row > currentRow() ? tr("%1, undone").arg(text(row)) : text(row);
    case Qt::ForegroundRole:
        return row > currentRow() ? QVariant(QColor(ThemeColors::DimText)) : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setItalic(row == 0 || row > currentRow());
        return font;
    }
    default:
        return {};
    }
}
