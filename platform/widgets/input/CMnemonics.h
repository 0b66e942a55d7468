// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QDialog;

/// Assigns the letters that, with Alt, focus fields and press buttons of a dialog. GUI thread.
class CMnemonics final
{
public:
    /// Assigns a letter to each field label and each button of @p dialog that has none: the first free
    /// initial of a word, or else the first free letter. Texts without a free letter are not changed, nor are
    /// standard buttons, for which there are Return and Escape.
    static void assign(QDialog &dialog);
};
