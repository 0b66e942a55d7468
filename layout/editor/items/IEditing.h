// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QString;

/// What every edit of a scene calls at its beginning and end. GUI thread.
class IEditing
{
public:
    virtual ~IEditing() = default;

    /// Between the two calls, reports of items are collected; the resulting work is done once, at the end of
    /// the outermost pair.
    virtual void beginBatch() = 0;
    virtual void endBatch() = 0;

    /// Cancels a drag, a stroke or a rubber band in progress. Every edit calls this before it reads the
    /// geometry of items.
    virtual void cancelGesture() = 0;

    /// Shows @p words in the status bar: how an edit differs from what was asked for.
    virtual void tell(const QString &words) = 0;
};

/// Opens a batch for its lifetime.
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
