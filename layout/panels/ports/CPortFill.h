// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CLayoutData;
class QColor;
class QWidget;

/// Sets with which colours the cabinets of output ports are filled on the canvas. That is no edit, so locked
/// ports take a fill, too; redundancy ports, which are drawn without one, keep theirs. GUI thread.
class CPortFill final
{
    Q_DECLARE_TR_FUNCTIONS(CPortFill)

public:
    /// @p parent is the parent of the dialog. Both must outlive a call.
    CPortFill(CLayoutData &store, QWidget *parent)
        : m_store(store)
        , m_parent(parent)
    {
    }

    /// Asks for the colour of @p port, or of all ports.
    void ask(int port) const;
    void resetAll() const; ///< each port gets its default colour
    static QString rule(); ///< which ports "all outputs" means, for the user

private:
    void fillAll(const QColor &color) const;

    CLayoutData &m_store;
    QWidget *m_parent;
};
