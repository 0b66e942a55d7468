// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractButton>

#include <array>

/// A button that consists only of a picture, with one picture per state.
class CPureImageBtn final : public QAbstractButton
{
    Q_OBJECT

public:
    /// @p family is a resource name without state and ending: ":/Image/X/name" stands for
    /// ":/Image/X/name_normal.svg" and for _hover, _checked, _down, _pressed and _disabled as far as they
    /// exist.
    explicit CPureImageBtn(const QString &family, QWidget *parent = nullptr);

    QSize sizeHint() const override { return iconSize(); }

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    enum State { Normal, Hover, Checked, Pressed, Disabled, StateCount };
    State state() const;

    std::array<QIcon, StateCount> m_pictures; ///< null if the family has no such picture
};
