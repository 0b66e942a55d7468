// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Registers the layout records with the meta-type system under their full names, so that they cross threads
/// in queued calls and ride in variants. Called by host and module at their start; a second call has no
/// effect.
void registerRecordMetaTypes();
