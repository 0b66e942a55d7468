// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CWallSights.h"

#include "platform/graphics/CGraphicsView.h"

void CWallSights::keep(const QUuid &processor)
{
    if (m_view.isFitted())
        m_sights.remove(processor);
    else if (!processor.isNull())
        m_sights.insert(processor, {m_view.scaleFactor(), m_view.middle()});
}

void CWallSights::restore(const QUuid &processor)
{
    const auto kept = m_sights.constFind(processor);
    if (kept == m_sights.constEnd()) {
        m_view.fitContent();
        return;
    }
    m_view.setScaleFactor(kept->scale);
    m_view.showPlace(kept->middle);
}
