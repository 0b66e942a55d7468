// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <memory>

class CLogWriter;

/// The program's log: every message of the logging system, with time and category, in a file that is rotated
/// before it grows too large. Warnings also go to the standard error output, as long as it can be written to.
/// One instance at a time; any thread.
class CLogFile final
{
public:
    static constexpr qint64 MaximumBytes = 1024 * 1024;
    static constexpr int OlderFiles = 2; ///< how many full files are kept

    /// Opens "orvo.log" in @p folder, which is created if it is missing, and receives all messages from now
    /// on. If the file cannot be written, messages go to the standard error output only.
    explicit CLogFile(const QString &folder, qint64 maximumBytes = MaximumBytes);
    ~CLogFile(); ///< does not wait long for a disk that does not answer
    Q_DISABLE_COPY(CLogFile)

    /// Where the application keeps its log.
    static QString defaultFolder();
    /// The log file of that age; 0: the current one.
    QString fileName(int age = 0) const;

private:
    static void onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text);

    const QString m_folder;
    std::unique_ptr<CLogWriter> m_writer;
    QtMessageHandler m_previous = nullptr;
};
