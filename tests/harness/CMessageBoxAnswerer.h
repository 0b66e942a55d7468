// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <QVector>

/// Answers message boxes during its lifetime, as a user does: waits for a box to be on screen, finds the
/// button by its text and clicks it. A box without a given answer, or without that button, is closed with a
/// warning, which fails the test.
class CMessageBoxAnswerer final : public QObject
{
    Q_OBJECT

public:
    /// What a user saw.
    struct SBox
    {
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QString title;
        QString text;
        QString details;
        QStringList buttons; ///< without mnemonics, in the order of the box
        QString defaultButton;
    };

    /// Presses @p answers, one per box, in this order: CMessageBoxAnswerer user({"Yes", "OK"}).
    explicit CMessageBoxAnswerer(const QStringList &answers);
    ~CMessageBoxAnswerer() override;

    const QVector<SBox> &boxes() const { return m_boxes; } ///< all boxes answered so far
    QStringList texts() const;                             ///< only their texts

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void answer(QMessageBox &box);

    QStringList m_answers;
    QVector<SBox> m_boxes;
};
