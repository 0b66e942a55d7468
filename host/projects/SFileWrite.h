// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/SFileStamp.h"

#include <optional>

/// What a write expects of the file that it replaces, and what has become of it.
struct SFileWrite
{
    /// A file that is there but has another stamp is not replaced; empty: whatever is there is.
    std::optional<SFileStamp> expected;
    bool changed = false;  ///< nothing was written, because the file was another one
    bool replaced = false; ///< the file holds the new content, even if the disk has not confirmed it
    SFileStamp stamp;      ///< of the file, once it was replaced
};
