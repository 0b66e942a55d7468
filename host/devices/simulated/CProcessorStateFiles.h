// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/CProcessorCodec.h"

#include <QCoreApplication>
#include <QUuid>

#include <functional>

/// The memory of a simulated processor on disk: one file for its settings, one for its mapping, each written
/// whole or not at all.
class CProcessorStateFiles final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorStateFiles)

public:
    using Factory = std::function<SProcessorState()>;

    CProcessorStateFiles(QString folder, const QUuid &processor);

    /// What is on disk; a part that is not there is as @p factory makes it. So is a damaged part, whose file
    /// is kept beside it with the ending ".damaged", and one warning says so.
    SProcessorState load(const Factory &factory) const;
    CStatus save(const SProcessorSettings &settings) const;
    CStatus save(const SProcessorMapping &mapping) const;

    QString settingsFile() const { return m_base + QStringLiteral(".settings"); }
    QString mappingFile() const { return m_base + QStringLiteral(".mapping"); }

private:
    template <typename Part, typename Decode>
    Part loadPart(const QString &file, const Part &factory, const Decode &decode) const;
    CStatus write(const QString &file, const QByteArray &content) const;

    QString m_folder;
    QString m_base;
};
