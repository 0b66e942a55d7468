// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditHistories.h"

#include "layout/api/records/LayoutData.h"

#include <algorithm>

namespace {

bool holdTheSame(const CabinetLayout &a, const CabinetLayout &b)
{
    using Port = CabinetLayout::CabinetPort;
    return std::equal(a.ports.begin(), a.ports.end(), b.ports.begin(), b.ports.end(),
                      [](const Port &left, const Port &right) {
                          return left.index == right.index && LayoutData::comparePortData(left, right, true);
                      });
}

} // namespace

void CEditHistories::leave(const CabinetLayout &layout)
{
    const auto history = m_histories.find(layout.processor);
    if (history != m_histories.end())
        history->second->enter(layout, 0);
}

bool CEditHistories::hasSteps(const QUuid &processor) const
{
    const auto history = m_histories.find(processor);
    return history != m_histories.end() && history->second->stack().count() > 0;
}

CEditHistory &CEditHistories::enter(const CabinetLayout &layout, const SEditHistory &kept,
                                    const SUnsavedEdits &edits, int stepCount, EState &state)
{
    const bool hadSteps = hasSteps(layout.processor);
    std::unique_ptr<CEditHistory> &history = m_histories[layout.processor];
    if (!history)
        history = std::make_unique<CEditHistory>(m_content);
    state = !hadSteps || holdTheSame(history->layout(), layout) ? Fits : Outdated;
    if (state == Outdated)
        history->clear();
    history->enter(layout, stepCount);
    history->setUnsavedEdits(edits); // before what was kept, which is about the same saved layout
    if (!hadSteps && !history->restore(kept))
        state = Unfit;
    history->setUnsavedEdits(edits);
    return *history;
}
