// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// What one side offers the other to call. The concrete interface is reached by dynamic cast; the caller
/// keeps the shared pointer for one call only.
class IAbstractInterfaceHandler
{
public:
    virtual ~IAbstractInterfaceHandler() = default;
};
