// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/IMappingCommands.h"

#include <QObject>

#include <map>

class CLayoutData;
class QWidget;

/// Lets the host read and save the mapping in the background, and shows the user the outcome. If this object
/// is deleted meanwhile, the outcome is not shown. GUI thread.
class CMappingCommands final : public QObject, public IMappingCommands
{
    Q_OBJECT

public:
    /// Both must outlive the commands.
    CMappingCommands(CLayoutData &store, QWidget &messageParent);

    QString refusalForAll() const override;
    void readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Ended ended) override;
    void saveMapping(ReadSaveMappingRole role, Ended ended) override;

Q_SIGNALS:
    void notifyStarted(); ///< the user wants a mapping read or saved

private:
    /// What the host was asked for.
    struct SAsked
    {
        Ended ended;
        QString success;
        QString failure;
    };

    /// Asks whether an overloaded mapping shall be saved all the same; true without an overload.
    bool mayBeOverloaded(ReadSaveMappingRole role);
    /// The callback for the host, called at the end.
    std::function<void(const SDeviceOutcome &)> whenDone(const SAsked &asked);
    void end(int number, const SDeviceOutcome &outcome);
    void endUnanswered();
    void report(const SDeviceOutcome &outcome, const QString &success, const QString &failure);

    CLayoutData &m_store;
    QWidget &m_messageParent;
    std::map<int, SAsked> m_asked; // and not answered, by number
    int m_lastNumber = 0;
};
