// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QDialog;

/// Letters that reach the fields and buttons of a dialog together with Alt. GUI thread.
class CMnemonics final
{
public:
    /// Gives each label of a field and each button of @p dialog that has none the first letter of a word,
    /// failing that any letter, that no other has. Texts without a letter left, and the row of standard
    /// buttons, for which there are Return and Escape, stay as they are.
    static void assign(QDialog &dialog);
};
