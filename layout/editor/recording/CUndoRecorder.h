// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QUndoStack>
#include <QUuid>
#include <QVector>

#include <functional>
#include <memory>

#include "layout/editor/undo/CUndoCommandBase.h"

/// Puts commands on the undo stack, those of one operation in one macro, which opens with the first of them.
/// Without a stack commands are carried out and forgotten. GUI thread.
class CUndoRecorder final
{
public:
    /// @p selection gives the identities of what is selected.
    explicit CUndoRecorder(std::function<QVector<QUuid>()> selection)
        : m_selection(std::move(selection))
    {
    }

    QUndoStack *stack() const { return m_stack; }
    /// Replaces the stack, which stays owned by the caller; null: nothing can be undone. Not within an
    /// operation.
    void setStack(QUndoStack *stack) { m_stack = stack; }

    /// Name of the running or the last compound edit.
    const QString &operationName() const { return m_operationName; }
    /// For an edit that is not recorded.
    void setOperationName(const QString &name) { m_operationName = name; }

    // Both make a command on @p item, carry it out and record it. Only within an operation, see CUndoMacro.

    /// A command that changes @p item from one value to another.
    template <typename Command>
    void record(CGraphicsItemBase &item, const QVariant &start = {}, const QVariant &end = {})
    {
        auto command = std::make_unique<Command>(&item);
        command->setStartValue(start);
        command->setEndValue(end);
        push(std::move(command));
    }
    /// A command that makes @p item again by @p factory.
    template <typename Command>
    void recordWith(CGraphicsItemBase &item, const CUndoCommandBase::Factory &factory)
    {
        auto command = std::make_unique<Command>(&item);
        command->setFactory(factory);
        push(std::move(command));
    }

private:
    friend class CUndoMacro;
    void begin(const QString &operationName, const QString &text);
    void end();
    void push(std::unique_ptr<CUndoCommandBase> command);

    std::function<QVector<QUuid>()> m_selection;
    QUndoStack *m_stack = nullptr;
    QString m_operationName;
    QString m_text;
    QVector<QUuid> m_selectionBefore;
    CUndoCommandBase *m_first = nullptr; // of the open macro; owned by the stack
    int m_depth = 0;
};

/// Makes one undo step of all commands pushed while it lives; within another one it adds to that.
class CUndoMacro final
{
public:
    /// @p text is what the undo stack shows: the name of the operation, unless another is given.
    CUndoMacro(CUndoRecorder &recorder, const QString &operationName, const QString &text)
        : m_recorder(recorder)
    {
        m_recorder.begin(operationName, text);
    }
    CUndoMacro(CUndoRecorder &recorder, const QString &operationName)
        : CUndoMacro(recorder, operationName, operationName)
    {
    }
    ~CUndoMacro() { m_recorder.end(); }
    CUndoMacro(const CUndoMacro &) = delete;
    CUndoMacro &operator=(const CUndoMacro &) = delete;

private:
    CUndoRecorder &m_recorder;
};
