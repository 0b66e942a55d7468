// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

namespace MappingRefusal {

/// The reason why the mapping of @p processor, alone, can neither be read nor saved; empty if it can.
QString of(const ProcessorTree::ProcessorNode &processor);

} // namespace MappingRefusal
