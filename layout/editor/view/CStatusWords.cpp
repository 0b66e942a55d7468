// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CStatusWords.h"

#include <QCoreApplication>
#include <QStatusTipEvent>
#include <QTimer>
#include <QWidget>

namespace {

bool isAction(const QEvent &event)
{
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick ||
           event.type() == QEvent::KeyPress || event.type() == QEvent::Shortcut;
}

} // namespace

CStatusWords::CStatusWords(QWidget &widget)
    : QObject(&widget)
    , m_widget(widget)
{
}

/// As a status tip, which travels up to the window by itself.
void CStatusWords::tell(const QString &words)
{
    if (m_told)
        QCoreApplication::instance()->removeEventFilter(this);
    m_told = !words.isEmpty();
    if (m_told) {
        QCoreApplication::instance()->installEventFilter(this);
        m_fresh = true;
        QTimer::singleShot(0, this, [this] { m_fresh = false; });
    }
    QStatusTipEvent tip(words);
    QCoreApplication::sendEvent(&m_widget, &tip);
}

bool CStatusWords::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_fresh && isAction(*event))
        tell({});
    return QObject::eventFilter(watched, event);
}
