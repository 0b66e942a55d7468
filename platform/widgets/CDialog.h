// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDialog>
#include <QDialogButtonBox>

class QVBoxLayout;

/// Base of all dialogs: a title, a content area and a row of standard buttons below it. It may be resized
/// unless its owner calls setFixedSize(), and is wide enough for its title unless that is too narrow. The Tab
/// key goes through the content first, then the buttons; Alt with an underlined letter leads to a field.
class CDialog : public QDialog
{
    Q_OBJECT

public:
    /// A dialog with @p buttons: the accepting ones accept and the rejecting ones reject it; the owner
    /// connects Apply and Reset.
    CDialog(const QString &title, QDialogButtonBox::StandardButtons buttons, QWidget *parent);

    QVBoxLayout *contentLayout() const { return m_content; }
    QDialogButtonBox *buttonBox() const { return m_buttons; }

    /// Makes @p button, which must belong to the dialog, the one that Enter presses.
    void setDefaultButton(QDialogButtonBox::StandardButton button);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void buildUi();
    void connectSignals();
    void putButtonsLast();

    QVBoxLayout *m_content = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
};
