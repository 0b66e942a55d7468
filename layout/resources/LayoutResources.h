// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Makes all pictures available under ":/Image/". To be called before the first of them is used, from any
/// library or program that links them; calling it again does nothing. GUI thread.
void initLayoutResources();
