// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QSpinBox>

#include <optional>

class CStatusWords;

/// A field for a figure of what is selected. What is typed, a number or a sum such as "1920/2", or reached by
/// steps counts when Enter is pressed or the focus leaves; Escape brings back the figure before. A number
/// beyond the range counts as the nearest limit. Without one figure there is nothing to step from. Who
/// clicked into the field gets the focus back to where it was after Enter or Escape. Undo and redo belong to
/// the window while nothing is typed. The status bar tells what was not taken as it was typed. GUI thread.
class CRecoveryFocusSpinBox final : public QSpinBox
{
    Q_OBJECT

public:
    explicit CRecoveryFocusSpinBox(QWidget *parent = nullptr);

    /// Shows @p figure, moved into the range, without announcing it. What is being typed stays unless the
    /// figure is another one than before.
    void showFigure(int figure);
    /// Shows that there is no one figure: the selected things differ, or there are none.
    void showMixed();
    bool isMixed() const { return !m_shown; }
    /// Sets what gets the focus after Enter or Escape in place of what had it before a click.
    void setFocusHeir(QWidget *heir) { m_heir = heir; }
    /// Tells @p words in the status bar until the user does something else.
    void tell(const QString &words) const;

Q_SIGNALS:
    /// The user has entered @p figure, another one than was shown.
    void notifyFigureEntered(int figure);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void stepBy(int steps) override;
    StepEnabled stepEnabled() const override;
    QValidator::State validate(QString &text, int &position) const override;
    int valueFromText(const QString &text) const override;
    QString textFromValue(int value) const override;
    void fixup(QString &text) const override;

private:
    void commit();
    void restore();
    void recoverFocus();

    std::optional<int> m_shown; ///< none: mixed
    mutable bool m_typed =
        false; ///< or stepped, since the figure was shown; mutable as fixup() drops what is empty
    mutable QString m_limit;        ///< why what was typed last is not taken as it is; empty: it is
    QPointer<CStatusWords> m_words; // goes to the window that it tells in
    QPointer<QWidget> m_heir;
    bool m_clicked = false;     ///< the focus came by a click
    QPointer<QWidget> m_before; ///< had the focus before a click into the field
};
