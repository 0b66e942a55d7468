// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Registers the layout records with the meta-type system under their full names, so that they can be used in
/// queued calls and variants. Called by host and module at start-up; a second call has no effect.
void registerRecordMetaTypes();
