// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"

#include <QTableWidget>

class CSpinBoxDelegate;
class QLabel;

/// Lists the areas of output ports, one in each row, for editing. GUI thread.
class COutPortTable final : public QTableWidget
{
    Q_OBJECT

public:
    static constexpr int LargestCoordinate = 32767; ///< that an area may reach, pixels

    /// Shows @p areas in their order.
    explicit COutPortTable(const QList<SPortArea> &areas, QWidget *parent = nullptr);

    /// What the rows hold, in their order; a cell that holds no number counts as 0.
    QList<SPortArea> areas() const;
    /// Takes what is typed in an open editor.
    void commitOpenEditor();

    /// The column whose figure bounds that of @p column: the extent along the same axis, or the place.
    static int partnerOf(int column);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildUi();
    void fill(const QList<SPortArea> &areas);
    void placeHeading();

    QVector<quint16> m_ports; ///< the output port of each row
    CSpinBoxDelegate *m_delegate;
    QLabel *m_heading;
};
