// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CLayoutGraphicsView;
class CStatusWords;
class IEditorCommands;
class QKeyEvent;

/// The keys of the canvas. GUI thread.
class CCanvasKeys final
{
public:
    /// @p view and @p words must outlive it.
    CCanvasKeys(CLayoutGraphicsView &view, CStatusWords &words)
        : m_view(view)
        , m_words(words)
    {
    }

    /// Sets what can be appended; null: nothing. The caller keeps ownership.
    void setCommands(IEditorCommands *commands) { m_commands = commands; }

    /// Does what the key is for. Returns false if it is none of the canvas or is refused now.
    bool press(QKeyEvent &event);
    /// Whether the key, pressed elsewhere in the window, is for the canvas: it edits nothing that is
    /// selected.
    static bool isOfWindow(const QKeyEvent &event);
    /// To be called for a key that press() did not take: tells why, unless somebody else has taken it.
    void explain(QKeyEvent &event);

private:
    void carryOut(const QKeyEvent &event);
    void openAppendMenu();

    CLayoutGraphicsView &m_view;
    CStatusWords &m_words;
    IEditorCommands *m_commands = nullptr;
};
