// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CStatusWords.h"

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
    , m_widget(&widget)
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
    if (m_widget)
        m_bar = m_widget;
    while (QWidget *owner = m_bar ? m_bar->window()->parentWidget() : nullptr)
        m_bar = owner;                    // a dialog has no status bar
    setParent(m_told ? m_bar : m_widget); // an editor of a table goes at once
    QStatusTipEvent tip(words);
    if (m_bar)
        QCoreApplication::sendEvent(m_bar, &tip);
    if (!m_widget && !m_told)
        deleteLater();
}

bool CStatusWords::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_fresh && isAction(*event))
        tell({});
    return QObject::eventFilter(watched, event);
}
