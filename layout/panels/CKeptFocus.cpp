// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CKeptFocus.h"

void CKeptFocus::hold(const QVector<QWidget *> &buttons)
{
    QWidget *focused = buttons.first()->window()->focusWidget();
    m_before = buttons.contains(focused) ? focused : nullptr;
}

void CKeptFocus::noteMeanwhile()
{
    m_meanwhile = m_before ? m_before->window()->focusWidget() : nullptr;
}

void CKeptFocus::giveBack()
{
    if (m_before && m_before->window()->focusWidget() == m_meanwhile)
        m_before->setFocus();
    m_before = nullptr;
}
