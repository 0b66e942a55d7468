// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QUndoStack>
#include <QUuid>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>

#include "layout/editor/undo/CUndoCommandBase.h"

/// Puts commands on the undo stack. The commands of one operation form one macro, which opens with the first
/// of them. If there is no stack, commands are carried out and discarded. GUI thread.
class CUndoRecorder final
{
public:
    /// @p selection returns the identities of the selected items.
    explicit CUndoRecorder(std::function<QVector<QUuid>()> selection)
        : m_selection(std::move(selection))
    {
    }

    QUndoStack *stack() const { return m_stack; }
    /// Replaces the stack; null: nothing can be undone. The caller keeps ownership. Must not be called within
    /// an operation.
    void setStack(QUndoStack *stack) { m_stack = stack; }

    /// How many steps have been put on stacks so far.
    int stepCount() const { return m_stepCount; }
    /// What stepCount() is after the operation that is in progress.
    int nextStepCount() const { return m_stepCount + (m_first ? 1 : 0); }

    /// The name of the running or the last operation.
    const QString &operationName() const { return m_operationName; }
    /// Sets the name for an edit that is not recorded.
    void setOperationName(const QString &name) { m_operationName = name; }

    // Both make a command on @p item, carry it out and record it. Only within an operation, see CUndoMacro.

    /// A command that changes @p item from one value to another.
    template <typename Command, typename Start = QVariant, typename End = QVariant>
    void record(CGraphicsItemBase &item, const Start &start = {}, const End &end = {})
    {
        auto command = std::make_unique<Command>(&item);
        command->setStartValue(start);
        command->setEndValue(end);
        push(std::move(command));
    }
    /// A command that re-creates @p item by @p factory.
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
    void goOn();
    bool mergeIntoLastStep(const CUndoCommandBase &command);
    void end();
    void push(std::unique_ptr<CUndoCommandBase> command);

    std::function<QVector<QUuid>()> m_selection;
    QUndoStack *m_stack = nullptr;
    QString m_operationName;
    QString m_text;
    QVector<QUuid> m_selectionBefore;
    CUndoCommandBase *m_first = nullptr; // of the open macro; owned by the stack
    int m_depth = 0;
    int m_stepCount = 0;
    std::optional<int> m_merging; // next command of the last step that may take in one; none: a new step
};

/// Makes one undo step of all commands pushed during its lifetime; nested ones add to the outermost.
class CUndoMacro final
{
public:
    /// @p text is what the undo stack shows; by default the name of the operation.
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
    /// The operation repeats the one before: it becomes part of the last step, as far as each command there
    /// ended where one begins now, and the step is not the one at which the layout was saved.
    void goOn() { m_recorder.goOn(); }
    CUndoMacro(const CUndoMacro &) = delete;
    CUndoMacro &operator=(const CUndoMacro &) = delete;

private:
    CUndoRecorder &m_recorder;
};
