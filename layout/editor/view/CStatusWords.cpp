// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CStatusWords.h"

#include <QCoreApplication>
#include <QStatusTipEvent>
#include <QWidget>

CStatusWords::CStatusWords(QWidget &keys, QWidget &mouse)
    : QObject(&keys)
    , m_widget(keys)
{
    keys.installEventFilter(this);
    mouse.installEventFilter(this);
}

/// As a status tip, which travels up to the window by itself.
void CStatusWords::tell(const QString &words)
{
    m_told = !words.isEmpty();
    QStatusTipEvent tip(words);
    QCoreApplication::sendEvent(&m_widget, &tip);
}

bool CStatusWords::eventFilter(QObject *watched, QEvent *event)
{
    if (m_told && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress))
        tell({});
    return QObject::eventFilter(watched, event);
}
