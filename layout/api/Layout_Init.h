// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class IAbstractControlInterface;
class QWidget;

#define ORVO_LAYOUT_EXPORT __attribute__((visibility("default")))

/// Starts the Layout module: stores its control interface in @p out, makes its widget a child of @p parent,
/// and registers its right-bar widget, lock and collapse facilities with @p host by name. Returns false,
/// without any effect, if @p out or @p host is null, if it has returned true before, and once the module was
/// stopped. GUI thread.
extern "C" ORVO_LAYOUT_EXPORT bool Layout_Init(IAbstractControlInterface **out,
                                               IAbstractControlInterface *host, QWidget *parent);
