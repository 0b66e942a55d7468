// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// What edits of a scene begin and end with. GUI thread.
class IEditing
{
public:
    virtual ~IEditing() = default;

    /// Between the two, what items note is collected and acted on once, at the end of the outermost pair.
    virtual void beginBatch() = 0;
    virtual void endBatch() = 0;

    /// Puts a drag, a stroke or a rubber band that is in progress back to where it began. An edit does this
    /// before it reads where items are.
    virtual void cancelGesture() = 0;
};

/// Makes one batch of all that happens while it lives.
class CEditBatch final
{
public:
    explicit CEditBatch(IEditing &editing)
        : m_editing(editing)
    {
        m_editing.beginBatch();
    }
    ~CEditBatch() { m_editing.endBatch(); }
    CEditBatch(const CEditBatch &) = delete;
    CEditBatch &operator=(const CEditBatch &) = delete;

private:
    IEditing &m_editing;
};
