// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/recording/CUndoRecorder.h"

void CUndoRecorder::begin(const QString &operationName, const QString &text)
{
    if (m_depth++ > 0)
        return;
    m_operationName = operationName;
    m_text = text;
    m_selectionBefore = m_selection();
    m_merging.reset();
}

void CUndoRecorder::goOn()
{
    if (!m_stack || !m_stack->canUndo() || m_stack->canRedo() || m_stack->isClean())
        return;
    const QUndoCommand &step = *m_stack->command(m_stack->index() - 1);
    const auto *first =
        step.childCount() == 0 ? nullptr : dynamic_cast<const CUndoCommandBase *>(step.child(0));
    if (first && first->selectionAfter() == m_selectionBefore) // else it would continue a part of the step
        m_merging = 0;
}

/// Commands come in the order of those that they continue.
bool CUndoRecorder::mergeIntoLastStep(const CUndoCommandBase &command)
{
    const QUndoCommand &step = *m_stack->command(m_stack->index() - 1);
    while (*m_merging < step.childCount()) {
        // Merging is what the stack itself does with commands that are not in macros.
        if (const_cast<QUndoCommand *>(step.child((*m_merging)++))->mergeWith(&command))
            return true;
    }
    return false;
}

void CUndoRecorder::push(std::unique_ptr<CUndoCommandBase> command)
{
    command->setOperationName(m_operationName);
    if (!m_stack) {
        command->redo();
        return;
    }
    if (m_merging && mergeIntoLastStep(*command)) {
        command->redo();
        return;
    }
    m_merging.reset();
    if (!m_first) {
        m_stack->beginMacro(m_text);
        m_first = command.get();
        m_first->setSelectionBefore(m_selectionBefore);
    }
    m_stack->push(command.release());
}

void CUndoRecorder::end()
{
    if (--m_depth > 0 || !m_first)
        return;
    m_first->setSelectionAfter(m_selection());
    m_first = nullptr;
    m_stack->endMacro();
    ++m_stepCount;
}
