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
}

void CUndoRecorder::push(std::unique_ptr<CUndoCommandBase> command)
{
    command->setOperationName(m_operationName);
    if (!m_stack) {
        command->redo();
        return;
    }
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
