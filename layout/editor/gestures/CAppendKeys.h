// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CScenePlacing;
class QGraphicsView;
class QKeyEvent;

/// Places appended cabinets by keys: arrow keys move the ghosts, with Shift they change their number, Return
/// and Space place them. GUI thread.
namespace CAppendKeys {

/// Returns whether cabinets wait and @p event is meant for them; @p view keeps the ghosts in sight.
bool press(const QKeyEvent &event, CScenePlacing &placing, QGraphicsView &view);

} // namespace CAppendKeys
