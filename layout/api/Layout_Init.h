// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class IAbstractControlInterface;
class QWidget;

#define ORVO_LAYOUT_EXPORT __attribute__((visibility("default")))

/// Enters the Layout module: stores its control interface in @p out, puts its widget under @p parent and
/// registers its right-bar widget, lock and collapse facilities with @p host by name. False, without any
/// effect, when @p out or @p host is null. GUI thread, once.
extern "C" ORVO_LAYOUT_EXPORT bool Layout_Init(IAbstractControlInterface **out,
                                               IAbstractControlInterface *host, QWidget *parent);
