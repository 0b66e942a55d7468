// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QDialog;

/// Letters that reach the fields and buttons of a dialog together with Alt. GUI thread.
class CMnemonics final
{
public:
    /// Gives a letter to each field label and each button of @p dialog that has none: the first letter of a
    /// word, or else any letter, that is still free. Texts without a free letter stay as they are, and so
    /// does the row of standard buttons, which Return and Escape reach.
    static void assign(QDialog &dialog);
};
