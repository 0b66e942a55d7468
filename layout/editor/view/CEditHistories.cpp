// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditHistories.h"

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

void CEditHistories::leave(const QUuid &processor, const CabinetLayout &layout)
{
    const auto history = m_histories.find(processor);
    if (history != m_histories.end())
        history->second->layout = layout;
}

QUndoStack &CEditHistories::enter(const QUuid &processor, const CabinetLayout &layout)
{
    std::unique_ptr<SHistory> &history = m_histories[processor];
    if (!history)
        history = std::make_unique<SHistory>();
    else if (!holdTheSame(history->layout, layout))
        history->stack.clear();
    history->layout = CabinetLayout(); // otherwise the next edit would copy the shared records
    return history->stack;
}
