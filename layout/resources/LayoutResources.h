// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Makes all pictures available under ":/Image/". Must be called before the first of them is used, by any
/// library or program that links them; further calls do nothing. GUI thread.
void initLayoutResources();
