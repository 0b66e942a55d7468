// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SHostRecords.h"

#include <QObject>

class CLayoutData;
class QUuid;
class QWidget;

/// The commands in the context menu of a processor: each asks the user for what it needs, lets the host carry
/// it out, and shows the outcome. GUI thread.
class CProcessorCommands final : public QObject
{
    Q_OBJECT

public:
    /// @p store and @p messageParent must outlive the commands.
    CProcessorCommands(CLayoutData &store, QWidget &messageParent);

    void importMapping(const QUuid &processor);
    void exportMapping(const QUuid &processor);
    void copyMapping(const QUuid &from, const QUuid &to);
    void setStatusLed(bool on); ///< of the cabinets of the current processor
    void setPortCount(const QUuid &processor, int count);
    void setRedundancyFor(const QUuid &primary, const QUuid &redundancy);
    void cancelRedundancy(const QUuid &processor);
    void showRedundancy(); ///< opens the dialog that pairs processors
    /// Checks the cabinets of all detected processors and sends parameters to them.
    void saveParameters();
    void showInformation(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);
    void setVideoProcessorMode(); ///< of the current processor
    void setBypassMode();         ///< of the current processor
    void setCustomMarkup(bool on);
    bool customMarkup() const;

private:
    bool mayOverwriteLocked(const QUuid &processor);
    void rememberFolder(const QString &file);
    void report(bool done, const QString &success, const QString &failure);
    void reportSet(bool done);
    void setWorkMode(ProcessorWorkMode mode);
    void takeRedundancies(); ///< into the store

    CLayoutData &m_store;
    QWidget &m_messageParent;
};
