// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CSceneContent;
class CSceneOperations;
class QWidget;

/// Clears the whole topology of a port when the user says so. GUI thread.
class CClearTopology final
{
    Q_DECLARE_TR_FUNCTIONS(CClearTopology)

public:
    /// Asks over @p parent; not for a port that is locked. While the question is open another processor may
    /// come into view: then nothing is cleared, and the user is told.
    static void ask(QWidget *parent, const CSceneContent &content, CSceneOperations &operations, int port);
};
