// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CSceneContent;
class CSceneOperations;
class QWidget;

/// Clears the whole topology of a port after asking the user. GUI thread.
class CClearTopology final
{
    Q_DECLARE_TR_FUNCTIONS(CClearTopology)

public:
    /// Asks in a message box over @p parent, unless the port refuses edits; meanwhile its cabinets are
    /// marked. If another processor comes into view while the question is open, nothing is cleared, and a
    /// message says so.
    static void ask(QWidget *parent, CSceneContent &content, CSceneOperations &operations, int port);
};
