// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDialog>
#include <QDialogButtonBox>

class QVBoxLayout;

/// Base of all dialogs: a title, a content area and a row of standard buttons below it. It can be resized
/// unless its owner calls setFixedSize(), and is at least as wide as its title needs unless a fixed size is
/// too narrow. The Tab key goes through the content first, then the buttons; Alt with an underlined letter
/// focuses a field.
class CDialog : public QDialog
{
    Q_OBJECT

public:
    /// A dialog with @p buttons. Buttons with accepting and rejecting roles accept and reject it; the owner
    /// connects Apply and Reset.
    CDialog(const QString &title, QDialogButtonBox::StandardButtons buttons, QWidget *parent);

    QVBoxLayout *contentLayout() const { return m_content; }
    QDialogButtonBox *buttonBox() const { return m_buttons; }

    /// Makes Enter press @p button, which must belong to the dialog.
    void setDefaultButton(QDialogButtonBox::StandardButton button);

    void done(int result) override;
    /// Makes the window below @p closed active again, which window managers forget where a question and the
    /// dialog that asked it close at once.
    static void activateBelow(const QWidget &closed);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void buildUi();
    void connectSignals();
    void putButtonsLast();

    QVBoxLayout *m_content = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
};
